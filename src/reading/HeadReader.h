#pragma once

#include "files/Result.h"
#include "reading/PageReading.h"
#include "reading/WordList.h"
#include "view/Picture.h"

#include <memory>
#include <string>
#include <vector>

namespace velmarin {

/// Whether the first words of entries are read too. They take about as long as the head.
enum class EntryWords {
    Never,
    IfNeeded, ///< if the head has no words, or words that may be wrong
    Always,
};

/// Reads the head of a page: where it is, and its words, from the text layer or else by Tesseract. Loads the language
/// data once (some 0.1 s and 20 MB a language). One is used by one thread at a time.
class HeadReader {
  public:
    HeadReader();
    HeadReader(HeadReader&& other) noexcept;
    HeadReader& operator=(HeadReader&& other) noexcept;
    ~HeadReader();

    /// The names of the languages that Tesseract has data for ("eng", "lat"), sorted.
    static std::vector<std::string> installedLanguages();

    /// Loads the data of the languages, the main one first. Fails if data are missing or damaged, or if no language is
    /// given; the reason names the package to install. The failure's item is the data folder. Until it succeeds, `read`
    /// recognizes nothing: it finds the head and takes the words of a text layer. Readings that `words` has, or that
    /// Tesseract's data have, are preferred; may be null.
    Result open(const std::vector<std::string>& languages, std::shared_ptr<const WordList> words = nullptr);

    /// Reads a page. `layer` is the text that comes with the scan, or null. Never fails: what cannot be read is empty.
    PageReading read(const std::string& page, const Picture& picture, const PageText* layer,
                     EntryWords entries = EntryWords::IfNeeded);

  private:
    struct Parts;
    std::unique_ptr<Parts> parts_;
};

} // namespace velmarin
