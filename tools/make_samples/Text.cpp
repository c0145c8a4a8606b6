#include "make_samples/Text.h"

#include <algorithm>

#include "text/Utf8.h"

namespace velmarin {

namespace {

constexpr std::string_view blanks = " \t\r\n";

bool opensQuotation(std::string_view before) {
    return before.empty() || before.find_last_of(" ([") == before.size() - 1 || before.ends_with("—") ||
           before.ends_with("“") || before.ends_with("‘");
}

/// Nothing in it is opened and not closed.
bool isBalanced(std::string_view text) {
    const auto count = [&](char c) { return std::ranges::count(text, c); };
    return count('{') == count('}') && count('(') == count(')') && count('[') == count(']') && count('"') % 2 == 0 &&
           count('_') % 2 == 0;
}

} // namespace

char32_t nextCodePoint(std::string_view text, std::size_t& at) {
    const Utf8Unit unit = decodeUtf8(text, at);
    at += unit.length;
    return unit.value < invalidByteUnit ? unit.value : 0xFFFD;
}

std::string_view trimmed(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(blanks), text.size()));
    return text.substr(0, text.find_last_not_of(blanks) + 1);
}

std::string singleSpaced(std::string_view text) {
    std::string out;
    out.reserve(text.size());
    for (const char c : trimmed(text)) {
        if (blanks.find(c) == std::string_view::npos)
            out += c;
        else if (out.back() != ' ')
            out += ' ';
    }
    return out;
}

std::vector<std::string_view> linesOf(std::string_view text) {
    std::vector<std::string_view> lines;
    while (!text.empty()) {
        lines.push_back(text.substr(0, text.find('\n')));
        text.remove_prefix(std::min(lines.back().size() + 1, text.size()));
    }
    return lines;
}

std::size_t indentOf(std::string_view line) {
    return std::min(line.find_first_not_of(' '), line.size());
}

std::string escaped(std::string_view text) {
    std::string out;
    for (const char c : toValidUtf8(text)) {
        if (c == '&')
            out += "&amp;";
        else if (c == '<' || c == '>')
            out += c == '<' ? "&lt;" : "&gt;";
        else
            out += c;
    }
    return out;
}

std::string bold(std::string_view text) {
    return "<b>" + escaped(text) + "</b>";
}

std::string italic(std::string_view text) {
    return "<i>" + escaped(text) + "</i>";
}

std::string smallCapitals(std::string_view text) {
    return "<span variant=\"small-caps\">" + escaped(text) + "</span>";
}

std::string inRed(std::string_view markup) {
    return "<span color=\"#ac241c\">" + std::string(markup) + "</span>";
}

std::string printedMarks(std::string_view text) {
    std::string out;
    out.reserve(text.size() + 16);
    for (std::size_t i = 0; i < text.size(); ++i) {
        const std::string_view rest = text.substr(i);
        if (text[i] == '"') {
            out += opensQuotation(out) ? "“" : "”";
        } else if (text[i] == '\'' || text[i] == '`') {
            out += text[i] == '`' && rest.size() > 1 && opensQuotation(out) ? "‘" : "’";
        } else if (rest.starts_with("--")) {
            out += "—";
            ++i;
        } else if (rest.starts_with(". . .")) {
            out += "…";
            i += 4;
        } else {
            out += text[i];
        }
    }
    return out;
}

std::string richText(std::string_view text) {
    static Pattern author(R"(^(.+)--([A-Z].{0,37})$)");
    std::string signature;
    if (author.finds(text) && author.Substring(2).find("--") == std::string::npos) {
        signature =
            (author.Substring(1).ends_with(" ") ? "—\u00A0" : " —\u00A0") + italic(printedMarks(author.Substring(2)));
        text = text.substr(0, author.Substring(1).size());
    }
    std::string out;
    std::string plain;
    bool isItalic = false;
    const auto finish = [&](bool isReference) {
        if (!plain.empty())
            out += isReference ? smallCapitals(plain) : isItalic ? italic(plain) : escaped(plain);
        plain.clear();
    };
    for (const char c : printedMarks(text)) {
        if (c == '{' || c == '}' || c == '_') {
            finish(c == '}');
            isItalic = isItalic != (c == '_');
        } else {
            plain += c;
        }
    }
    finish(false);
    return out + signature;
}

std::string cutShort(std::string_view text, std::size_t longest) {
    if (text.size() <= longest)
        return std::string(text);
    const std::string_view head = text.substr(0, longest);
    for (const char* end : {". ", "; ", ", "}) {
        const auto at = head.rfind(end);
        if (at != std::string_view::npos && at >= longest / 3 && isBalanced(head.substr(0, at)))
            return std::string(head.substr(0, at)) + (head.substr(0, at).ends_with(".") ? "" : ".");
    }
    std::string kept(head.substr(0, head.rfind(' ')));
    std::erase_if(kept, [](char c) { return c == '{' || c == '}' || c == '_'; });
    return kept + "\u00A0…";
}

} // namespace velmarin
