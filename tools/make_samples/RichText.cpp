#include "make_samples/RichText.h"

#include <algorithm>
#include <cctype>

#include "text/StringRules.h"

namespace velmarin {

namespace {

/// How long the name of an author after a quotation may be.
constexpr std::size_t longestAuthor = 40;

bool opensQuotation(std::string_view before) {
    return before.empty() || before.back() == ' ' || before.back() == '(' || before.back() == '[' ||
           before.ends_with("—") || before.ends_with("“") || before.ends_with("‘");
}

/// Where the author begins, the dashes included; npos where none is named.
std::size_t authorStart(std::string_view text) {
    const auto at = text.rfind("--");
    if (at == std::string_view::npos || at == 0 || text.size() - at > longestAuthor)
        return std::string_view::npos;
    const auto name = at + 2;
    if (name >= text.size() || std::isupper(static_cast<unsigned char>(text[name])) == 0)
        return std::string_view::npos;
    return at;
}

} // namespace

std::string escaped(std::string_view text) {
    std::string out;
    for (const char c : toValidUtf8(text))
        out += c == '&' ? "&amp;" : c == '<' ? "&lt;" : c == '>' ? "&gt;" : std::string(1, c);
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
            out += opensQuotation(out) && rest.size() > 1 && text[i] == '`' ? "‘" : "’";
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
    const std::size_t author = authorStart(text);
    const std::string_view signature = author == std::string_view::npos ? "" : text.substr(author + 2);
    text = text.substr(0, author);
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
    if (!signature.empty())
        out += (text.ends_with(" ") ? "—\u00A0" : " —\u00A0") + italic(printedMarks(signature));
    return out;
}

std::string cutShort(std::string_view text, std::size_t longest) {
    if (text.size() <= longest)
        return std::string(text);
    const std::string_view head = text.substr(0, longest);
    for (const std::string_view end : {std::string_view(". "), std::string_view("; "), std::string_view(", ")}) {
        const auto at = head.rfind(end);
        if (at != std::string_view::npos && at >= longest / 3) {
            const std::string_view kept = head.substr(0, at);
            // What a cut would leave open is no good place to end.
            if (std::count(kept.begin(), kept.end(), '{') == std::count(kept.begin(), kept.end(), '}') &&
                std::count(kept.begin(), kept.end(), '"') % 2 == 0 &&
                std::count(kept.begin(), kept.end(), '_') % 2 == 0 &&
                std::count(kept.begin(), kept.end(), '(') == std::count(kept.begin(), kept.end(), ')') &&
                std::count(kept.begin(), kept.end(), '[') == std::count(kept.begin(), kept.end(), ']'))
                return std::string(kept) + (kept.ends_with(".") ? "" : ".");
        }
    }
    std::string kept(head.substr(0, std::min(head.rfind(' '), head.size())));
    std::erase_if(kept, [](char c) { return c == '{' || c == '}' || c == '_'; });
    return kept + "\u00A0…";
}

} // namespace velmarin
