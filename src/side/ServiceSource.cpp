#include "side/ServiceSource.h"

#include "side/AnswerText.h"
#include "side/DictionaryService.h"

namespace velmarin {

namespace {

std::string answerBlock(const std::string& word, const std::string& answer) {
    return "\n✜✜✜✜✜✜✜✜ Dictionary.app ✜✜✜✜✜✜✜✜\n\n" + (answer.empty() ? "Sorry no result for " + word + " !" : answer) +
           "\n\n";
}

} // namespace

void ServiceSource::lookUp(const std::string& word) {
    // A length in bytes reaches the last character of any word.
    const std::string answer = context_.dictionaries.TextDefinition(word, 0, static_cast<int>(word.size()),
                                                                    [this] { context_.lookUp.yield(); });
    if (context_.lookUp.shut())
        return;
    // Measured only now, because the user may have typed into the text meanwhile.
    const int end = context_.text.textLength();
    context_.text.select(end, 0);
    // A painted hit at the end of the text must not color the answer.
    context_.text.clearSelTextColor();
    context_.text.setSelText(answerBlock(word, answer));
    context_.text.scrollToLineOf(end);
}

} // namespace velmarin
