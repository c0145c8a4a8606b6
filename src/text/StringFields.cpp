#include "text/StringFields.h"

#include <algorithm>

namespace velmarin {

std::string_view trimmed(std::string_view text) {
    constexpr std::string_view blanks = " \t\r\n";
    text.remove_prefix(std::min(text.find_first_not_of(blanks), text.size()));
    return text.substr(0, text.find_last_not_of(blanks) + 1);
}

std::string_view NthField(std::string_view text, std::string_view separator, std::size_t n) {
    if (n == 0)
        return {};
    if (separator.empty())
        return n == 1 ? text : std::string_view();
    for (; n > 1; --n) {
        const std::size_t at = text.find(separator);
        if (at == std::string_view::npos)
            return {};
        text.remove_prefix(at + separator.size());
    }
    return text.substr(0, text.find(separator));
}

std::vector<std::string> Split(std::string_view text, std::string_view separator) {
    std::vector<std::string> fields;
    if (!separator.empty()) {
        for (std::size_t at; (at = text.find(separator)) != std::string_view::npos;) {
            fields.emplace_back(text.substr(0, at));
            text.remove_prefix(at + separator.size());
        }
    }
    fields.emplace_back(text);
    return fields;
}

std::string Join(const std::vector<std::string>& parts, std::string_view separator) {
    std::string result;
    for (std::size_t i = 0; i < parts.size(); ++i) {
        if (i > 0)
            result += separator;
        result += parts[i];
    }
    return result;
}

} // namespace velmarin
