#include "making/KeyRule.h"

#include "text/FindReplace.h"
#include "text/StringFields.h"
#include "text/UnicodeForms.h"
#include "text/Utf8.h"

#include <algorithm>

namespace velmarin {

namespace {

std::vector<std::string> charactersOf(std::string_view text) {
    std::vector<std::string> characters;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t length = decodeUtf8(text, at).length;
        characters.emplace_back(text.substr(at, length));
        at += length;
    }
    return characters;
}

} // namespace

std::optional<KeyRule> KeyRule::parse(std::string_view ignore, std::string_view alike) {
    KeyRule rule;
    rule.ignored_ = charactersOf(composedForm(ignore));
    for (const std::string& pair : Split(ReplaceAllB(composedForm(alike), ",", " "), " ")) {
        if (pair.empty())
            continue;
        const std::size_t sign = pair.find('=', 1);
        if (sign == std::string::npos)
            return std::nullopt;
        rule.alike_.emplace_back(pair.substr(0, sign), pair.substr(sign + 1));
    }
    // The longest first, so that "sch=s" is not spoiled by "ch=c".
    std::stable_sort(rule.alike_.begin(), rule.alike_.end(),
                     [](const auto& one, const auto& other) { return one.first.size() > other.first.size(); });
    return rule;
}

std::string KeyRule::keyOf(std::string_view headword) const {
    std::string key = composedForm(headword);
    for (const auto& [letters, counted] : alike_)
        key = ReplaceAll(key, letters, counted);
    for (const std::string& character : ignored_)
        key = ReplaceAllB(key, character, "");
    return key;
}

} // namespace velmarin
