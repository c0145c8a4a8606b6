#include "make_samples/Parsers.h"

#include <algorithm>

#include "make_samples/Text.h"
#include "text/Utf8.h"

namespace velmarin {

Article parseElement(std::string_view text) {
    static Pattern labelled("^(Atomic number|Symbol|Atomic weight): *(.*)$");
    std::string name;
    std::string number;
    std::string symbol;
    std::string weight;
    std::string body;
    for (const std::string_view raw : linesOf(text)) {
        const std::string_view line = trimmed(raw);
        if (labelled.finds(line))
            (line[0] == 'S' ? symbol : line[7] == 'n' ? number : weight) = labelled.Substring(2);
        else if (name.empty())
            name = line;
        else
            body += std::string(body.empty() ? "" : " ") += line;
    }
    if (number.empty() || number.size() > 3 || name.empty())
        return {};
    name[0] = asciiCapital(name[0]);
    std::string opening = inRed(bold(number + ".")) + bold(" " + name);
    if (!symbol.empty())
        opening += ", " + inRed(bold(symbol));
    if (!weight.empty())
        opening += ". " + italic("Atomic\u00A0weight") + "\u00A0" + escaped(weight) + ".";
    Article article{std::string(3 - number.size(), '0') + number, number + " " + name, name, {}, {}};
    article.paragraphs.push_back({Setting::Hanging, false, false, opening});
    if (!trimmed(body).empty())
        article.paragraphs.push_back({Setting::Indented, false, false, richText(singleSpaced(body))});
    return article;
}

} // namespace velmarin
