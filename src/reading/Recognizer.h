#pragma once

#include "files/Result.h"
#include "reading/WordList.h"
#include "scan/PageText.h"

#include <memory>
#include <string>
#include <vector>

struct Pix;

namespace velmarin {

/// What the letters of a line can be.
enum class Alphabet { Any, Digits };

/// Tesseract's neural reader, for pictures of one line. Quiet, and in the thread that calls it alone. One is used by
/// one thread at a time.
class Recognizer {
  public:
    Recognizer();
    ~Recognizer();
    Recognizer(const Recognizer&) = delete;
    Recognizer& operator=(const Recognizer&) = delete;

    /// The languages that there are data for, sorted. "osd", which finds the script only, is none.
    static std::vector<std::string> installedLanguages();

    /// As HeadReader::open.
    Result open(const std::vector<std::string>& languages, std::shared_ptr<const WordList> words);
    bool isOpen() const { return opened_; }

    /// Reads a line in 8 bits, black on white, whose capitals are about 30 pixels high. The words' boxes are in pixels
    /// of the picture, their confidence is Tesseract's own,
    /// less where another letter is likely too, and their other readings differ in one letter. Empty if
    /// nothing was read or no language is open.
    std::vector<TextWord> readLine(Pix* line, Alphabet alphabet = Alphabet::Any);

    /// Whether the word list of the main language, or one of `open`, has a word. Case does not count.
    bool knows(const std::string& word) const;

  private:
    struct Engine;
    std::unique_ptr<Engine> engine_;
    std::shared_ptr<const WordList> words_;
    bool opened_ = false;
};

} // namespace velmarin
