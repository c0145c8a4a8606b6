#include "reading/HeadReader.h"

#include "reading/EntryLines.h"
#include "reading/EntryProof.h"
#include "reading/LayerWords.h"
#include "reading/PageLayout.h"
#include "reading/Recognizer.h"
#include "reading/WordReader.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace velmarin {

namespace {

constexpr double kSure = 0.965;
constexpr std::size_t kEntries = 3; // that are read at the top of the first column, and at the foot of the last

// One page while it is read.
class PageInWork {
  public:
    PageInWork(Recognizer& recognizer, const Picture& picture, const PageText* layer)
        : recognizer_(recognizer), picture_(picture), layer_(layer), page_(straightenPage(picture)),
          layout_(layoutOf(page_)) {}

    PageReading read(EntryWords entries) {
        const bool layerWords = layer_ != nullptr && !layer_->lines.empty();
        reading_.look = layout_.look == PageLook::Blank && layerWords ? PageLook::Text : layout_.look;
        reading_.head = emptyText();
        reading_.foot = emptyText();
        reading_.headStrip = page_.straightening.onPage(topOf(page_, layout_));
        if (reading_.look == PageLook::Blank || !page_.ink)
            return std::move(reading_);
        readRows(layout_.headRows, reading_.head);
        if (!hasSureWord(reading_.head) || !hasNumber(reading_.head))
            readRows(layout_.footRows, reading_.foot);
        if (reading_.head.lines.empty() && hasSureWord(reading_.foot))
            reading_.headStrip = reading_.foot.lines.front().box;
        if (entries == EntryWords::Always || (entries == EntryWords::IfNeeded && !hasSureWord(reading_.head)))
            readEntries();
        proveByEntries(reading_, [this](const std::string& word) { return recognizer_.knows(word); });
        return std::move(reading_);
    }

  private:
    PageText emptyText() const { return {picture_.Width(), picture_.Height(), {}}; }

    // From the layer; what it lacks is recognized.
    TextLine lineAt(const PageBox& row, Effort effort = Effort::Full) {
        if (layer_ != nullptr) {
            TextLine line = layerWordsIn(*layer_, page_.straightening, row);
            if (!line.words.empty()) {
                reading_.fromTextLayer = true;
                return line;
            }
        }
        return readRow(recognizer_, picture_, page_, row, effort,
                       effort == Effort::Quick ? RowEnd::Sharp : RowEnd::Open);
    }

    void readRows(const std::vector<PageBox>& rows, PageText& text) {
        for (const PageBox& row : rows) {
            TextLine line = lineAt(row);
            if (!line.words.empty())
                text.lines.push_back(std::move(line));
        }
    }

    void readEntries() {
        for (std::size_t i = 0; i < layout_.columns.size(); ++i) {
            auto& column = reading_.entryStarts.emplace_back();
            const std::vector<EntryLine> entries = entryLinesOf(picture_, page_, layout_.columns[i]);
            for (std::size_t j = 0; j < entries.size(); ++j) {
                const bool first = i == 0 && j < kEntries;
                const bool last = i + 1 == layout_.columns.size() && j + kEntries >= entries.size();
                if (first || last)
                    column.push_back(startOf(entries[j]));
            }
        }
    }

    // The bold words of an entry's first line, or else the first words of it.
    TextLine startOf(const EntryLine& entry) {
        const bool bold = entry.boldEnd > 0;
        const int width =
            bold ? entry.boldEnd - entry.box.x : std::min(entry.box.width, static_cast<int>(12 * page_.xHeight));
        TextLine line = lineAt({entry.box.x, entry.box.y, width, entry.box.height}, Effort::Quick);
        if (!bold && width < entry.box.width && line.words.size() > 1)
            line.words.pop_back(); // it is cut
        for (TextWord& word : line.words)
            word.bold = bold;
        return line;
    }

    // Whether no guide word needs a proof by the entries. Short unsure words are mostly dirt.
    static bool hasSureWord(const PageText& text) {
        bool found = false;
        for (const TextLine& line : text.lines) {
            for (const TextWord& word : line.words) {
                const bool sure = word.confidence >= kSure;
                if (isNumber(word.text) || (!sure && word.text.size() < 4))
                    continue;
                if (!sure)
                    return false;
                found = true;
            }
        }
        return found;
    }

    static bool hasNumber(const PageText& text) {
        return std::ranges::any_of(text.lines, [](const TextLine& line) {
            return std::ranges::any_of(line.words, [](const TextWord& word) { return isNumber(word.text); });
        });
    }

    Recognizer& recognizer_;
    const Picture& picture_;
    const PageText* layer_;
    StraightPage page_;
    PageLayout layout_;
    PageReading reading_;
};

} // namespace

struct HeadReader::Parts {
    Recognizer recognizer;
};

HeadReader::HeadReader() : parts_(std::make_unique<Parts>()) {}
HeadReader::HeadReader(HeadReader&& other) noexcept = default;
HeadReader& HeadReader::operator=(HeadReader&& other) noexcept = default;
HeadReader::~HeadReader() = default;

std::vector<std::string> HeadReader::installedLanguages() {
    return Recognizer::installedLanguages();
}

Result HeadReader::open(const std::vector<std::string>& languages, std::shared_ptr<const WordList> words) {
    return parts_->recognizer.open(languages, std::move(words));
}

PageReading HeadReader::read(const std::string& page, const Picture& picture, const PageText* layer,
                             EntryWords entries) {
    PageReading reading = PageInWork(parts_->recognizer, picture, layer).read(entries);
    reading.page = page;
    return reading;
}

} // namespace velmarin
