#include "workshop/DictionaryText.h"

#include "files/LineReader.h"
#include "files/LineScanner.h"
#include "files/ReadOnlyFile.h"
#include "store/DictionaryItem.h"
#include "store/TxtLine.h"
#include "text/LetterCase.h"
#include "text/NilObjectException.h"
#include "text/StringFields.h"

#include <algorithm>
#include <utility>

namespace velmarin {

namespace {

constexpr std::string_view kNoteMark = "__DLM__";

void appendAll(HeadwordIndex& words, const HeadwordIndex& from, std::size_t begin, std::size_t end) {
    for (std::size_t i = begin; i < end; ++i)
        words.append(from[i]);
}

HeadwordIndex without(const HeadwordIndex& from, std::size_t line) {
    HeadwordIndex words;
    appendAll(words, from, 0, line);
    appendAll(words, from, line + 1, from.size());
    words.finish();
    return words;
}

HeadwordIndex withWord(const HeadwordIndex& from, std::size_t line, std::string_view word) {
    HeadwordIndex words;
    appendAll(words, from, 0, line);
    words.append(word);
    appendAll(words, from, line, from.size());
    words.finish();
    return words;
}

/// Moves one element, and those between by one place.
template <typename Lines> void move(Lines& lines, std::size_t from, std::size_t to) {
    const auto at = [&](std::size_t i) { return lines.begin() + static_cast<std::ptrdiff_t>(i); };
    if (from < to)
        std::rotate(at(from), at(from + 1), at(to + 1));
    else
        std::rotate(at(to), at(from), at(from + 1));
}

} // namespace

void DictionaryText::File::split(std::string bytes) {
    texts = {std::make_shared<const std::string>(std::move(bytes))};
    const std::string_view all = *texts.front();
    LineReader reader(all);
    mark = all.substr(0, reader.position());
    lines.clear();
    lines.reserve(static_cast<std::size_t>(std::count(all.begin(), all.end(), '\n')) + 1);
    while (!reader.EOF_()) {
        const std::size_t begin = reader.position();
        const std::string_view text = reader.ReadLine();
        lines.push_back({text, all.substr(begin + text.size(), reader.position() - begin - text.size())});
    }
}

std::string_view DictionaryText::File::keep(std::string text) {
    return *texts.emplace_back(std::make_shared<const std::string>(std::move(text)));
}

void DictionaryText::File::insert(std::size_t line, std::string text) {
    // The first line has an end, because there is at least one after it.
    const std::string_view end = lines.size() > 1 ? lines.front().end : "\n";
    lines.insert(lines.begin() + static_cast<std::ptrdiff_t>(line), {keep(std::move(text)), end});
}

std::string DictionaryText::File::bytes() const {
    std::string all(mark);
    all.reserve(texts.front()->size() + texts.front()->size() / 8);
    for (const Line& line : lines)
        all.append(line.text).append(line.end);
    return all;
}

Result DictionaryText::read(const FolderItem& dictionary, DictionaryText& text) {
    if (dictionary.Alias())
        return Failure{dictionary, "it is a link to \"" + dictionary.AbsolutePath() + "\". Open that folder instead"};
    DictionaryItem item;
    try {
        if (!MakeDictionaryItem(dictionary, item, 0))
            return Failure{dictionary, "it is not a dictionary: \"ind\", \"txt\" or \"mImg\" is missing"};
    } catch (const NilObjectException& error) {
        return Failure{dictionary, std::string("it could not be read: ") + error.what()};
    }
    auto ind = readWholeFile(dictionary.Child("ind"));
    auto txt = readWholeFile(dictionary.Child("txt"));
    if (!ind || !txt)
        return Failure{dictionary.Child(ind ? "txt" : "ind"), "it could not be read"};
    text.ind_.split(std::move(*ind));
    text.txt_.split(std::move(*txt));
    text.words_ = std::move(item.IND);
    text.order_ = item.order;
    return text.words_.size() == text.ind_.lines.size()
               ? Result()
               : Failure{dictionary.Child("ind"), "it was changed while it was being read"};
}

std::string_view DictionaryText::headword(std::size_t line) const {
    return NthField(ind_.lines[line].text, kNoteMark, 1);
}

std::string DictionaryText::page(std::size_t line) const {
    if (!isWhole(line))
        return {};
    return parseTxtLine(txt_.lines[line].text.substr(0, LineScanner::kLongestLine)).imageName;
}

std::size_t DictionaryText::placeOf(std::string_view word) const {
    return words_.firstGreater(Uppercase(querySearchWord(word, order_)));
}

std::optional<std::size_t> DictionaryText::lineOf(std::string_view headword) const {
    const std::string word = indexSearchWord(headword, order_);
    for (std::size_t line = words_.size(); line-- > 0;)
        if (words_[line] == word && this->headword(line) == headword)
            return line;
    return std::nullopt;
}

bool DictionaryText::isFoundBy(std::size_t line, std::string_view word) const {
    return words_[line] == Uppercase(querySearchWord(word, order_));
}

std::size_t DictionaryText::placeOfNew(std::string_view headword) const {
    return words_.firstGreater(indexSearchWord(headword, order_));
}

void DictionaryText::setPage(std::size_t line, std::string_view page) {
    std::string_view& text = txt_.lines[line].text;
    text = txt_.keep(withPage(text, page));
}

void DictionaryText::insert(std::string_view headword, std::string_view note, std::string_view page) {
    const std::size_t line = placeOfNew(headword);
    std::string text(headword);
    if (!note.empty())
        text.append(kNoteMark).append(note);
    ind_.insert(line, std::move(text));
    txt_.insert(line, withPage("", page));
    words_ = withWord(words_, line, indexSearchWord(headword, order_));
}

void DictionaryText::rename(std::size_t line, std::string_view headword) {
    const std::string word = indexSearchWord(headword, order_);
    const bool fits = (line == 0 || words_[line - 1] <= word) && (line + 1 == size() || word <= words_[line + 1]);
    std::string_view& text = ind_.lines[line].text;
    text = ind_.keep(std::string(headword).append(text.substr(this->headword(line).size())));
    const HeadwordIndex others = without(words_, line);
    const std::size_t place = fits ? line : others.firstGreater(word);
    words_ = withWord(others, place, word);
    move(ind_.lines, line, place);
    move(txt_.lines, line, place);
}

bool DictionaryText::isAsRead(const FolderItem& dictionary) const {
    return readWholeFile(dictionary.Child("ind")) == *ind_.texts.front() &&
           readWholeFile(dictionary.Child("txt")) == *txt_.texts.front();
}

} // namespace velmarin
