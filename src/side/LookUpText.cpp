#include "side/LookUpText.h"

#include "files/AtomicFile.h"
#include "text/NilObjectException.h"

namespace velmarin {

namespace {

/// The platform's line end.
constexpr std::string_view kEndOfLine = "\n";
constexpr std::string_view kUnixLineEnd = "\n";
constexpr std::string_view kScriptName = "temp.sh";

std::string joined(std::initializer_list<std::string_view> parts) {
    std::string text;
    for (const std::string_view part : parts)
        text += part;
    return text;
}

} // namespace

std::string wordsScript(std::string_view word, std::string_view folder) {
    std::string script = joined({"cd ", folder, kUnixLineEnd, folder, "words"});
    if (!word.empty())
        script += joined({" '", word, "'"});
    return script;
}

ScriptResult runWords(const FolderItem& preferencesFolder, std::string_view word, const std::function<bool()>& goOn,
                      std::string_view folder) {
    const auto script = preferencesFolder.path() / kScriptName;
    const Result written = writeFileAtomically(script, wordsScript(word, folder), Durability::RenamedOnly);
    if (!written)
        throw NilObjectException("WORDS cannot be asked. " + written.failure().message());
    return runScript(script, goOn);
}

std::string wordsBlock(std::string_view output) {
    return joined({"✣✣✣✣✣ WORDS Latin-English ✣✣✣✣✣", kEndOfLine, "✣✣✣✣✣ by  Ansel  Corrigan ✣✣✣✣✣", kEndOfLine,
                   kEndOfLine, output, kEndOfLine, kEndOfLine});
}

std::string serviceBlock(std::string_view word, std::string_view answer) {
    std::string block = joined({kUnixLineEnd, "✜✜✜✜✜✜✜✜ Dictionary.app ✜✜✜✜✜✜✜✜", kUnixLineEnd, kUnixLineEnd});
    block += answer.empty() ? joined({"Sorry no result for ", word, " !"}) : std::string(answer);
    return block + joined({kEndOfLine, kEndOfLine});
}

std::string userDictionaryHeading(std::string_view dictionaryName) {
    return joined({kUnixLineEnd, "✜✜✜✜✜✜✜✜ ", dictionaryName, " ✜✜✜✜✜✜✜✜", kUnixLineEnd, kUnixLineEnd});
}

} // namespace velmarin
