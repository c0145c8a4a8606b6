#include "make_samples/OtherParsers.h"

#include <cctype>
#include <charconv>

#include "make_samples/RichText.h"
#include "make_samples/TextPieces.h"

namespace velmarin {

namespace {

/// What follows `label` on a line that begins with it.
std::string_view valueAfter(std::string_view line, std::string_view label) {
    return line.starts_with(label) ? trimmed(line.substr(label.size())) : std::string_view();
}

} // namespace

ElementArticle parseElement(std::string_view text) {
    ElementArticle element;
    std::string symbol;
    std::string weight;
    std::string body;
    for (const std::string_view raw : linesOf(text)) {
        const std::string_view line = trimmed(raw);
        if (line.empty())
            continue;
        if (element.name.empty()) {
            element.name = line;
        } else if (const auto number = valueAfter(line, "Atomic number:"); !number.empty()) {
            std::from_chars(number.data(), number.data() + number.size(), element.number);
        } else if (const auto letters = valueAfter(line, "Symbol:"); !letters.empty()) {
            symbol = letters;
        } else if (const auto value = valueAfter(line, "Atomic weight:"); !value.empty()) {
            weight = value;
        } else {
            body += body.empty() ? "" : " ";
            body += line;
        }
    }
    if (element.number <= 0 || element.name.empty())
        return {};
    element.name[0] = static_cast<char>(std::toupper(static_cast<unsigned char>(element.name[0])));
    Article& article = element.article;
    article.guide = std::to_string(element.number) + " " + element.name;
    article.note = element.name;
    std::string opening = inRed(bold(std::to_string(element.number) + ".")) + bold(" " + element.name);
    if (!symbol.empty())
        opening += ", " + inRed(bold(symbol));
    if (!weight.empty())
        opening += ". " + italic("Atomic weight") + " " + escaped(weight) + ".";
    article.paragraphs.push_back({Setting::Hanging, false, false, opening});
    if (!body.empty())
        article.paragraphs.push_back({Setting::Indented, false, false, richText(body)});
    return element;
}

} // namespace velmarin
