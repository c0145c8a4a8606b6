#include "side/DictionaryService.h"

#include "files/LineReader.h"
#include "side/DictZip.h"
#include "side/DictdIndex.h"
#include "text/NilObjectException.h"
#include "text/StringFields.h"
#include "text/Utf8.h"

#include <vector>

namespace velmarin {

namespace {

constexpr std::string_view kIndexEnd = ".index";
constexpr std::string_view kBlanks = " \t\r\n";

std::string_view characters(std::string_view text, int start, int length) {
    const auto after = [&](std::size_t pos, int count) {
        for (; count > 0 && pos < text.size(); --count)
            pos += decodeUtf8(text, pos).length;
        return pos;
    };
    const std::size_t begin = after(0, start);
    return text.substr(begin, after(begin, length) - begin);
}

/// Dictionaries without the flag "utf8" are in ASCII or ISO 8859-1.
std::string asUtf8(std::string text, bool declaredUtf8) {
    if (isValidUtf8(text))
        return text;
    return declaredUtf8 ? toValidUtf8(text) : utf8OfLatin1(text);
}

/// The name in the entry "00-database-short", which may begin with its own headword.
std::string nameIn(std::string_view entry) {
    LineReader lines(entry);
    while (!lines.EOF_()) {
        const std::string_view line = trimmed(lines.ReadLine());
        if (!line.empty() && !line.starts_with("00"))
            return std::string(line);
    }
    return {};
}

/// One dictionary's name and its answer; empty if it has none. Raises NilObjectException if the disk fails.
std::string answerOf(const FolderItem& folder, const std::string& stem, std::string_view word) {
    const auto index = DictdIndex::open(folder.Child(stem + std::string(kIndexEnd)));
    if (!index)
        return {};
    const std::vector<DictdPlace> places = index->find(word);
    if (places.empty())
        return {};
    auto texts = DictZip::open(folder.Child(stem + ".dict.dz"));
    if (!texts)
        texts = DictZip::open(folder.Child(stem + ".dict"));
    if (!texts)
        return {};
    const auto entry = [&](const DictdPlace& place) {
        return asUtf8(texts->read(place.offset, place.size).value_or(std::string()), index->utf8());
    };
    std::string entries;
    for (const DictdPlace& place : places) {
        // Verses, tables and drawings need their line breaks and blanks, and the blanks before the first line are its
        // indentation, so only the empty lines around an entry are removed.
        const std::string text = entry(place);
        const std::size_t begin = text.find_first_not_of("\r\n");
        if (trimmed(text).empty() || entries.size() > DictionaryService::kLongestAnswer)
            continue;
        entries += "\n\n";
        entries += text.substr(begin, text.find_last_not_of(kBlanks) + 1 - begin);
    }
    if (entries.empty())
        return {};
    const auto nameEntry = index->nameEntry();
    const std::string name = nameEntry ? nameIn(entry(*nameEntry)) : std::string();
    return (name.empty() ? stem : name) + entries;
}

} // namespace

std::string DictionaryService::TextDefinition(std::string_view text, int start, int length,
                                              const std::function<void()>& yield) const {
    const std::string_view word = characters(text, start, length);
    std::string answer;
    if (word.empty())
        return answer;
    for (const std::string& name : listNames(folder_.path()).value_or(std::vector<std::string>())) {
        if (!name.ends_with(kIndexEnd) || answer.size() > kLongestAnswer)
            continue;
        std::string found;
        try {
            found = answerOf(folder_, name.substr(0, name.size() - kIndexEnd.size()), word);
        } catch (const NilObjectException& unreadable) {
            found = unreadable.what();
        }
        if (!found.empty())
            answer += (answer.empty() ? "" : "\n\n\n") + found;
        if (yield)
            yield();
    }
    return toValidUtf8(answer);
}

} // namespace velmarin
