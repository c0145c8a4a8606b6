#include "side/DictionaryModule.h"

#include "files/Leftovers.h"
#include "files/LineScanner.h"
#include "text/FindReplace.h"
#include "text/LetterCase.h"
#include "text/Message.h"
#include "text/NilObjectException.h"
#include "text/NumberText.h"
#include "text/RegExMBS.h"
#include "text/SearchWord.h"
#include "text/StringFields.h"

#include <algorithm>

namespace velmarin {

namespace {

constexpr std::string_view kNumberMarker = "__NUM__";
constexpr std::string_view kTab = "\t";

bool matchesPattern(std::string_view word, std::string_view pattern) {
    RegExMBS expression;
    expression.CompileOptionUTF8 = true;
    expression.CompileOptionCaseLess = true;
    return expression.Compile(pattern) && expression.Execute(std::string(word), 1) > 0;
}

} // namespace

std::string DictionaryModule::m__SubMakeSearchWord(std::string_view word) const {
    if (word.empty())
        return {};
    // Ignoring case, as withSuperscripts does.
    if (const std::size_t marker = InStr(1, word, kNumberMarker); marker != 0)
        word = word.substr(0, marker - 1);
    return m__SubIJUV(m__SubSpanish(mSub_MakeSearchWord(word), 0));
}

std::string DictionaryModule::m__SubIJUV(std::string_view word) const {
    return pIJUV ? mSub_IJUV(word) : std::string(word);
}

std::string DictionaryModule::m__SubSpanish(std::string_view word, int back) const {
    return pSpanish ? mSub_Spanish(word, back) : std::string(word);
}

bool DictionaryModule::m__SubMatch(std::string_view indexWord, std::string_view searchWord, int mode) {
    switch (mode) {
    case 0:
        return Uppercase(indexWord).starts_with(Uppercase(searchWord));
    case 1:
        return Uppercase(indexWord).ends_with(Uppercase(searchWord));
    case 2:
        return equalStrings(indexWord, searchWord);
    case 3:
        return InStr(1, indexWord, searchWord) != 0;
    case 4:
        return matchesPattern(indexWord, searchWord);
    default:
        return false;
    }
}

bool DictionaryModule::mSearch(const FolderItem& dictionary, std::string_view word, int mode, bool indexOnly,
                               const Yield& yield) {
    pResult.clear();
    auto index = ReadOnlyFile::open(dictionary.Child(kIndexFileName));
    if (!index || !dictionary.Child(kTextFileName)
                       .Exists()) { // a build that was killed may have left the earlier pair in a hidden folder
        Work quiet;
        clearLeftovers(dictionary.path(), quiet);
        index = ReadOnlyFile::open(dictionary.Child(kIndexFileName));
    }
    if (!index)
        throw NilObjectException("The user dictionary \"" + dictionary.Name() + "\" has no " +
                                 std::string(kIndexFileName) + " that can be read.");
    const std::string searchWord = m__SubMakeSearchWord(word);
    std::vector<std::int32_t> lineNumbers;
    LineScanner lines(*index);
    for (std::string_view line; lines.next(line);) {
        if (m__SubMatch(NthField(line, kTab, 1), searchWord, mode)) {
            const std::string_view number = NthField(line, kTab, 2);
            if (indexOnly)
                pResult.emplace_back(number);
            else
                lineNumbers.push_back(toInt32(CDbl(number)));
        }
        if (yield)
            yield();
    }
    if (!indexOnly && !lineNumbers.empty())
        m__SubGetText(dictionary.Child(kTextFileName), std::move(lineNumbers), yield);
    return !pResult.empty();
}

void DictionaryModule::m__SubGetText(const FolderItem& textFile, std::vector<std::int32_t> lineNumbers,
                                     const Yield& yield) {
    const auto text = ReadOnlyFile::open(textFile);
    if (!text) {
        MsgBox("DictionaryModule, m__SubGetText: something wrong");
        return;
    }
    std::sort(lineNumbers.begin(), lineNumbers.end());
    lineNumbers.erase(std::unique(lineNumbers.begin(), lineNumbers.end()), lineNumbers.end());
    auto wanted = std::lower_bound(lineNumbers.begin(), lineNumbers.end(), 0);
    LineScanner lines(*text);
    std::string_view line;
    for (std::int64_t number = 0; wanted != lineNumbers.end() && lines.next(line); ++number) {
        if (number == *wanted) {
            pResult.emplace_back(line);
            ++wanted;
        }
        if (yield)
            yield();
    }
}

} // namespace velmarin
