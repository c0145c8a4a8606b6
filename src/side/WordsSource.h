#pragma once

#include "platform/ChildProgram.h"
#include "side/LookUpSource.h"
#include "side/SourceContext.h"

#include <string>
#include <string_view>

namespace velmarin {

/// The folder of the Latin program WORDS, which holds the program `words` and its data.
inline constexpr std::string_view kWordsFolder = "/usr/local/lib/words/";

/// The shell script that asks WORDS for `word`, or, if that is empty, starts it without an argument. The word is put
/// between quotes as it is: a quote inside it ends the quoting.
std::string wordsScript(std::string_view word, std::string_view folder);

/// The Latin program WORDS as a source: its output under two banners at the end of the text.
class WordsSource : public LookUpSource {
  public:
    explicit WordsSource(const SourceContext& context) : context_(context) {}

    void lookUp(const std::string& word) override { mLatinWORDS(word); }
    bool tickedByUser() override { return LatinCB_Action(); }

    /// True if WORDS answered; only then is the text changed. Raises NilObjectException if the script "temp.sh" cannot
    /// be written. The caller holds a Busy guard.
    bool mLatinWORDS(const std::string& word);
    /// Tries WORDS without a word. If that fails, asks the user whether to go to its home page. Neither answer opens
    /// anything, because no address is known. Returns false if WORDS failed.
    bool LatinCB_Action();

  private:
    ChildResult run(const std::string& word);

    SourceContext context_;
};

} // namespace velmarin
