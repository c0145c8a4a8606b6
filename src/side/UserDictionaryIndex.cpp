#include "side/UserDictionaryIndex.h"

#include "files/AtomicFile.h"
#include "files/LineScanner.h"
#include "files/SystemCalls.h"
#include "side/DictionaryModule.h"
#include "side/ProgressPort.h"
#include "store/TextFileLines.h"
#include "text/NilObjectException.h"
#include "text/NumberText.h"
#include "text/StringFields.h"

#include <algorithm>

namespace velmarin {

namespace {

constexpr int kFirstPassStep = 1000;
constexpr int kLaterPassStep = 2000;
/// The sort lets events run once in this many comparisons.
constexpr unsigned kComparisonsPerYield = 64;

/// All search words in one buffer, and where each ends.
struct Words {
    std::string letters;
    std::vector<std::size_t> ends;
};

Words makeWords(const DictionaryModule& module, const ReadOnlyFile& source, ProgressPort& progress) {
    Words words;
    LineScanner lines(source);
    std::string_view line;
    for (std::size_t counter = 0; lines.next(line); ++counter) {
        if (counter % kFirstPassStep == 0)
            progress.setValue(static_cast<int>(counter));
        words.letters += module.m__SubMakeSearchWord(NthField(line, "\t", 1));
        words.ends.push_back(words.letters.size());
        progress.yield();
    }
    return words;
}

/// A line of the index for each word, with its line end.
std::string makeElements(const Words& words, ProgressPort& progress) {
    constexpr std::size_t kTabNumberAndEnd = 10;
    std::string elements;
    elements.reserve(words.letters.size() + words.ends.size() * kTabNumberAndEnd);
    std::size_t begin = 0;
    for (std::size_t i = 0; i < words.ends.size(); ++i) {
        if (i % kLaterPassStep == 0)
            progress.setValue(static_cast<int>(i));
        elements.append(words.letters, begin, words.ends[i] - begin);
        elements.append("\t").append(Str(static_cast<std::int64_t>(i))).append("\n");
        begin = words.ends[i];
        progress.yield();
    }
    return elements;
}

std::vector<std::string_view> sortedLines(std::string_view text, ProgressPort& progress) {
    std::vector<std::string_view> lines;
    for (std::size_t begin = 0; begin < text.size();) {
        const std::size_t end = text.find('\n', begin) + 1;
        lines.push_back(text.substr(begin, end - begin));
        begin = end;
    }
    unsigned comparisons = 0;
    std::sort(lines.begin(), lines.end(), [&](std::string_view a, std::string_view b) {
        if (++comparisons % kComparisonsPerYield == 0)
            progress.yield();
        return a < b;
    });
    return lines;
}

} // namespace

Result makeUserDictionaryIndex(const DictionaryModule& module, const FolderItem& source, ProgressPort& progress,
                               const std::function<Result(std::string_view bytes)>& write) {
    progress.message("I'm counting the lines of the data.");
    const int lineCount = mFiMod_GetLineCountFromTextFi(source);
    const auto file = ReadOnlyFile::open(source);
    if (!file)
        return Failure{source, "it could not be read: " + errorInWords(errno)};
    progress.showBar();

    progress.message("I'm making the word for sorting and searching.");
    progress.setMaximum(lineCount);
    const Words words = makeWords(module, *file, progress);
    progress.setValue(lineCount);

    progress.message("I'm making the index data.");
    const int last = static_cast<int>(words.ends.size()) - 1;
    progress.setMaximum(last);
    const std::string elements = makeElements(words, progress);

    progress.message("I'm sorting the index data. The progress bar looks frozen.");
    progress.setValue(last);
    const std::vector<std::string_view> sorted = sortedLines(elements, progress);

    progress.message("Now I'm writing data.");
    std::string bytes;
    bytes.reserve(elements.size());
    for (std::size_t i = 0; i < sorted.size(); ++i) {
        if (i % kLaterPassStep == 0)
            progress.setValue(static_cast<int>(i));
        bytes += sorted[i];
        progress.yield();
    }
    const Result written = write(bytes);
    if (!written)
        return written;
    progress.setValue(last);
    progress.message("");
    return {};
}

void DictionaryModule::mDic_MakeIndex(const FolderItem& source, const FolderItem& index, ProgressPort& progress) const {
    if (source.isNil() || index.isNil())
        return;
    const Result made = makeUserDictionaryIndex(
        *this, source, progress, [&](std::string_view bytes) { return writeFileAtomically(index.path(), bytes); });
    if (!made)
        throw NilObjectException(made.failure().message());
}

} // namespace velmarin
