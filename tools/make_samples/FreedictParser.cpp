#include "make_samples/OtherParsers.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <set>
#include <utility>

#include "make_samples/RichText.h"
#include "make_samples/TextPieces.h"

namespace velmarin {

namespace {

/// Every " /pronunciation/" taken out.
std::string withoutPronunciation(std::string_view line) {
    std::string out(line);
    for (auto at = out.find(" /"); at != std::string::npos; at = out.find(" /", at)) {
        const auto end = out.find('/', at + 2);
        if (end == std::string::npos)
            break;
        out.erase(at, end - at + 1);
    }
    return out;
}

constexpr std::array<std::pair<std::string_view, std::string_view>, 12> wordClasses{{
    {"sg", ""},
    {"masc", "m."},
    {"fem", "f."},
    {"neut", "n."},
    {"pn", "pr. n."},
    {"n", "n."},
    {"v", "v."},
    {"adj", "adj."},
    {"adv", "adv."},
    {"m", "m."},
    {"f", "f."},
    {"gen", "gen."},
}};

/// "n, sg, f" to "n. f."
std::string printedClass(std::string_view tags) {
    std::string out;
    while (!tags.empty()) {
        const auto end = std::min(tags.find(','), tags.size());
        const std::string_view tag = trimmed(tags.substr(0, end));
        std::string printed(tag);
        for (const auto& [name, form] : wordClasses)
            if (tag == name)
                printed = form;
        if (!printed.empty())
            out += (out.empty() ? "" : " ") + printed + (printed.back() == '.' ? "" : ".");
        tags.remove_prefix(std::min(end + 1, tags.size()));
    }
    return out;
}

/// A line with its <tags> in italics.
std::string taggedText(std::string_view line) {
    std::string markup;
    for (;;) {
        const auto open = line.find('<');
        const auto close = open == std::string_view::npos ? open : line.find('>', open);
        if (close == std::string_view::npos)
            return markup + richText(line);
        markup += richText(line.substr(0, open)) + italic(printedClass(line.substr(open + 1, close - open - 1)));
        line.remove_prefix(close + 1);
    }
}

std::size_t senseNumber(std::string_view line) {
    std::size_t digits = 0;
    while (digits < line.size() && std::isdigit(static_cast<unsigned char>(line[digits])) != 0)
        ++digits;
    return digits > 0 && line.substr(digits).starts_with(".") ? digits + 1 : 0;
}

/// Some sources end a line with the number of the sense on the next.
std::string withoutStrayNumber(std::string line) {
    if (!line.ends_with("."))
        return line;
    const auto digits = line.find_last_not_of("0123456789", line.size() - 2);
    if (digits != std::string::npos && digits + 2 < line.size() && line[digits] == ' ')
        line.resize(digits);
    return line;
}

} // namespace

Article parseFreedictArticle(std::string_view text) {
    Article article;
    const auto lines = linesOf(text);
    if (lines.size() < 2)
        return article;
    const std::string heading = singleSpaced(withoutPronunciation(lines[0]));
    const std::size_t end = std::min({heading.find(" <"), heading.find(" ("), heading.size()});
    if (end == 0 || heading.find('{') < end)
        return article;
    article.key = heading.substr(0, end);
    article.guide = article.key;
    std::string markup = bold(article.key) + taggedText(std::string_view(heading).substr(end));
    bool isFirst = true;
    bool afterNumber = false; // and nothing else on its line
    std::string last;
    for (std::size_t i = 1; i < lines.size(); ++i) {
        const std::string line = withoutStrayNumber(singleSpaced(withoutPronunciation(lines[i])));
        if (line.empty())
            continue;
        const std::size_t number = senseNumber(line);
        const bool runsOn = isFirst || number > 0 || line.starts_with("\"") || last.ends_with(")");
        if (!afterNumber && !line.starts_with(";"))
            markup += runsOn ? " " : " — ";
        afterNumber = number > 0 && number == line.size();
        isFirst = false;
        last = line;
        if (number > 0)
            markup += bold(line.substr(0, number) + "\u00A0");
        markup += taggedText(trimmed(std::string_view(line).substr(number)));
    }
    if (isFirst)
        return {};
    if (!last.ends_with(".") && !last.ends_with("?") && !last.ends_with("!") && !markup.ends_with(".</i>"))
        markup += '.';
    article.paragraphs.push_back({Setting::Hanging, false, false, markup});
    return article;
}

std::vector<Article> articlesOf(const SourceText& source, Article (*parse)(std::string_view), std::size_t most) {
    std::vector<Article> all;
    std::set<std::string_view> seen;
    for (const std::string_view text : source.articles()) {
        if (isAbusive(text) || !seen.insert(text).second)
            continue;
        Article article = parse(text);
        if (!article.key.empty())
            all.push_back(std::move(article));
    }
    if (all.size() <= most)
        return all;
    std::stable_sort(all.begin(), all.end(), [](const Article& a, const Article& b) { return a.key < b.key; });
    std::vector<Article> chosen;
    chosen.reserve(most);
    for (std::size_t i = 0; i < most; ++i)
        chosen.push_back(std::move(all[i * all.size() / most]));
    return chosen;
}

} // namespace velmarin
