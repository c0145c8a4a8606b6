#include "side/WordsSource.h"

#include "files/AtomicFile.h"
#include "files/FolderItem.h"
#include "platform/Busy.h"
#include "platform/Host.h"
#include "side/AnswerText.h"
#include "text/NilObjectException.h"

namespace velmarin {

namespace {

constexpr std::string_view kScriptName = "temp.sh";
constexpr std::string_view kBanners = "✣✣✣✣✣ WORDS Latin-English ✣✣✣✣✣\n✣✣✣✣✣ by  Ansel  Corrigan ✣✣✣✣✣\n\n";
constexpr std::string_view kQuestion = "To use this function, you have to install Words made by Mr. Ansel Corrigan. Do "
                                       "you want to go to his home page ?\r";

} // namespace

std::string wordsScript(std::string_view word, std::string_view folder) {
    std::string script;
    script.append("cd ").append(folder).append("\n").append(folder).append("words");
    if (!word.empty())
        script.append(" '").append(word).append("'");
    return script;
}

ChildResult WordsSource::run(const std::string& word) {
    const auto script = context_.preferencesFolder.path() / kScriptName;
    const Result written =
        writeFileAtomically(script, wordsScript(word, context_.wordsFolder), Durability::RenamedOnly);
    if (!written)
        throw NilObjectException("WORDS cannot be asked. " + written.failure().message());
    context_.lookUp.beginWait("WORDS");
    ChildResult result = runChild({.file = "/bin/sh", .arguments = {script.native()}, .mayContinue = [this] {
                                       return context_.lookUp.keepWaiting();
                                   }});
    context_.lookUp.endWait();
    if (result.ok()) {
        const int end = context_.text.textLength();
        context_.text.assignWithAppended(std::string(kBanners) + result.output + "\n\n");
        context_.text.scrollToLineOf(end);
    }
    return result;
}

bool WordsSource::mLatinWORDS(const std::string& word) {
    return run(word).ok();
}

bool WordsSource::LatinCB_Action() {
    ChildResult result;
    {
        const Busy guard(context_.busy);
        result = run("");
    }
    if (!result.ok() && result.end != ChildResult::End::Stopped && !context_.lookUp.shut())
        context_.host.askYesNo(kQuestion);
    return result.ok();
}

} // namespace velmarin
