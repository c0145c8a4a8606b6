#include "text/UnicodeForms.h"

#include "text/Utf8.h"

#include <cstdlib>
#include <memory>
#include <new>
#include <utf8proc.h>

namespace velmarin {

namespace {

/// Composes a well-formed text; `option` adds another operation.
std::string compose(std::string_view text, utf8proc_option_t option) {
    utf8proc_uint8_t* composed = nullptr;
    const auto options = static_cast<utf8proc_option_t>(UTF8PROC_STABLE | UTF8PROC_COMPOSE | option);
    const auto length = utf8proc_map(reinterpret_cast<const utf8proc_uint8_t*>(text.data()),
                                     static_cast<utf8proc_ssize_t>(text.size()), &composed, options);
    if (length < 0)
        throw std::bad_alloc();
    const std::unique_ptr<utf8proc_uint8_t, decltype(&std::free)> owner(composed, &std::free);
    return {reinterpret_cast<const char*>(composed), static_cast<std::size_t>(length)};
}

/// Builds a text from `text`: `append` adds a form of each well-formed run to the result, and other bytes are copied.
template <class Append> std::string withRuns(std::string_view text, Append append) {
    std::string result;
    result.reserve(text.size());
    for (std::size_t pos = 0; pos < text.size();) {
        const std::size_t end = wellFormedEnd(text, pos);
        if (end == pos) {
            result += text[pos++];
            continue;
        }
        append(result, text.substr(pos, end - pos));
        pos = end;
    }
    return result;
}

} // namespace

std::string foldedFileName(std::string_view name) {
    return withRuns(name, [](std::string& result, std::string_view run) {
        if (asciiPrefix(run) == run.size()) {
            for (const char c : run)
                result += c >= 'A' && c <= 'Z' ? static_cast<char>(c + 0x20) : c;
        } else {
            result += compose(run, UTF8PROC_CASEFOLD);
        }
    });
}

std::string composedForm(std::string_view text) {
    return withRuns(text, [](std::string& result, std::string_view run) {
        if (asciiPrefix(run) == run.size())
            result += run;
        else
            result += compose(run, {});
    });
}

} // namespace velmarin
