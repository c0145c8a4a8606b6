#include "press/Text.h"

#include <algorithm>
#include <utility>

#include "files/LineReader.h"
#include "text/FindReplace.h"
#include "text/StringFields.h"
#include "text/Utf8.h"

namespace velmarin {

namespace {

std::string span(const char* attribute, std::string_view markup) {
    return "<span " + std::string(attribute) + ">" + std::string(markup) + "</span>";
}

} // namespace

std::string singleSpaced(std::string_view text) {
    static const Pattern blanks("[ \t\r\n]+");
    return blanks.ReplaceAll(trimmed(text), " ");
}

std::vector<std::string> linesOf(std::string_view text) {
    std::vector<std::string> lines;
    for (LineReader reader(text); !reader.EOF_();)
        lines.emplace_back(reader.ReadLine());
    return lines;
}

std::vector<std::vector<std::string>> blocksOf(const std::vector<std::string>& lines) {
    std::vector<std::vector<std::string>> blocks(1);
    for (const std::string& line : lines) {
        if (!trimmed(line).empty())
            blocks.back().push_back(line);
        else if (!blocks.back().empty() || blocks.size() == 1)
            blocks.emplace_back();
    }
    if (blocks.size() > 1 && blocks.back().empty())
        blocks.pop_back();
    return blocks;
}

std::size_t indentOf(std::string_view line) {
    return std::min(line.find_first_not_of(' '), line.size());
}

std::string escaped(std::string_view text) {
    return ReplaceAllB(ReplaceAllB(ReplaceAllB(toValidUtf8(text), "&", "&amp;"), "<", "&lt;"), ">", "&gt;");
}

std::string bold(std::string_view text) {
    return "<b>" + escaped(text) + "</b>";
}

std::string italic(std::string_view text) {
    return "<i>" + escaped(text) + "</i>";
}

std::string smallCapitals(std::string_view text) {
    return span(R"(variant="small-caps")", escaped(text));
}

std::string inRed(std::string_view markup) {
    return span(R"(color="#ac241c")", markup);
}

std::string printedMarks(std::string_view text) {
    // A mark opens a quotation at the start and after a blank, a bracket, a dash or another opening mark.
    static const std::pair<Pattern, const char*> rows[] = {{Pattern("--"), "—"},
                                                           {Pattern("[.] [.] [.]"), "…"},
                                                           {Pattern("((?<=^|[ (\\[])|(?<=—))\""), "“"},
                                                           {Pattern("((?<=^|[ (\\[])|(?<=—|“))`(?!$)"), "‘"},
                                                           {Pattern("(?<=‘)\""), "“"},
                                                           {Pattern("\""), "”"},
                                                           {Pattern("['`]"), "’"}};
    std::string out(text);
    for (const auto& [mark, printed] : rows)
        out = mark.ReplaceAll(out, printed);
    return out;
}

std::string richText(std::string_view text) {
    static Pattern author(R"(^(.+)--([A-Z].{0,37})$)");
    std::string signature;
    if (author.finds(text) && author.Substring(2).find("--") == std::string::npos) {
        const std::string before = author.Substring(1);
        signature = (before.ends_with(" ") ? "—\u00A0" : " —\u00A0") + italic(printedMarks(author.Substring(2)));
        text = text.substr(0, before.size());
    }
    std::string out;
    std::string plain;
    bool isItalic = false;
    for (const char c : printedMarks(text) + "{") {
        if (c != '{' && c != '}' && c != '_') {
            plain += c;
            continue;
        }
        if (!plain.empty())
            out += c == '}' ? smallCapitals(plain) : isItalic ? italic(plain) : escaped(plain);
        plain.clear();
        isItalic = isItalic != (c == '_');
    }
    return out + signature;
}

} // namespace velmarin
