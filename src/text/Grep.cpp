#include "text/Grep.h"

#include "text/Message.h"

namespace velmarin {

namespace {

std::string lineEndsToLf(std::string_view text) {
    std::string result(text);
    if (result.find('\r') == std::string::npos)
        return result;
    std::size_t kept = 0;
    for (std::size_t i = 0; i < result.size(); ++i) {
        const bool isCr = result[i] == '\r';
        if (isCr && i + 1 < result.size() && result[i + 1] == '\n')
            ++i;
        result[kept++] = isCr ? '\n' : result[i];
    }
    result.resize(kept);
    return result;
}

/// Leaves the match in `Grep` and returns whether there is one.
bool executeGrep(int start, std::string_view text, std::string_view pattern) {
    if (!RegExMBS::UTF8supported())
        MsgBox("UTF8 support is missing. Please complain to Marten Ilvis.");
    if (!Grep().Compile(pattern)) {
        MsgBox("failed to compile: Bad regular expression");
        return false;
    }
    return Grep().Execute(lineEndsToLf(text), start) >= 1;
}

} // namespace

RegExMBS markupExpression() {
    RegExMBS expression;
    expression.CompileOptionUTF8 = true;
    expression.CompileOptionMultiline = true;
    return expression;
}

RegExMBS& Grep() {
    static RegExMBS grep = markupExpression();
    return grep;
}

int mStrMod_GrepMBS_Search(int start, std::string_view text, std::string_view pattern) {
    return executeGrep(start, text, pattern) ? Grep().OffsetCharacters(0) : 0;
}

std::string mStrMod_GrepMBS_Find(int start, std::string_view text, std::string_view pattern) {
    return executeGrep(start, text, pattern) ? Grep().Substring(1) : std::string();
}

std::string mStrMod_GrepMBS_FoundStr() {
    return Grep().Substring(0);
}

std::string mStrMod_GrepMBS_Replace(std::string_view text, std::string_view pattern, std::string_view replacement) {
    if (text.empty())
        return {};
    Grep().CompileOptionMultiline = true;
    Grep().CompileOptionUngreedy = false;
    if (!Grep().Compile(pattern))
        return std::string(text);
    mStrMod_GrepMBS_Search(0, text, pattern);
    return lineEndsToLf(Grep().Replace(replacement));
}

std::string mStrMod_GrepMBS_ReplaceAll(std::string_view text, std::string_view pattern, std::string_view replacement) {
    if (text.empty())
        return {};
    RegExMBS expression;
    expression.CompileOptionMultiline = true;
    expression.CompileOptionUngreedy = false;
    if (!expression.Compile(pattern))
        return std::string(text);
    return lineEndsToLf(expression.ReplaceAll(lineEndsToLf(text), replacement));
}

std::vector<std::string> pStrMod_Encodings;

void mStrMod_OpenThisModule() {
    Grep() = markupExpression();
    pStrMod_Encodings = {"UTF-8", "UTF-16", "MacJapanese", "Shift JIS", "EUC-JP", "MacRoman", "WindowsLatin1"};
}

} // namespace velmarin
