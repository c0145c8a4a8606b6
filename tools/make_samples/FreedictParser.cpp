#include "make_samples/Parsers.h"

#include <algorithm>
#include <array>
#include <map>
#include <set>

#include "make_samples/Text.h"
#include "text/StringFields.h"

namespace velmarin {

namespace {

/// A line without pronunciations, which are between slashes.
std::string cleanLine(std::string_view line) {
    static const Pattern pronunciation(" /[^/]*/");
    return singleSpaced(pronunciation.removedFrom(line));
}

/// "n, sg, f" to "n. f."
std::string printedClass(const std::string& tags) {
    static const std::map<std::string, std::string> forms{
        {"sg", ""}, {"masc", "m."}, {"fem", "f."}, {"neut", "n."}, {"pn", "pr. n."}};
    std::string out;
    for (const std::string& part : Split(tags, ",")) {
        const std::string tag(trimmed(part));
        const auto known = forms.find(tag);
        const std::string form = known != forms.end() ? known->second : tag.ends_with(".") ? tag : tag + ".";
        if (!form.empty())
            out += (out.empty() ? "" : " ") + form;
    }
    return out;
}

/// A line with its <tags> in italics.
std::string taggedText(std::string_view line) {
    static Pattern tag("<(.*?)>");
    std::string markup;
    while (tag.finds(line)) {
        const std::size_t open = line.find(tag.Substring(0));
        const std::size_t size = tag.Substring(0).size();
        markup += richText(line.substr(0, open)) + italic(printedClass(tag.Substring(1)));
        line.remove_prefix(open + size);
    }
    return markup + richText(line);
}

} // namespace

Article parseFreedictArticle(std::string_view text) {
    static Pattern sense(R"(^(\d+\.)? *(.*?)( \d+\.)?$)"); // some end with the number of the sense on the next line
    const auto lines = linesOf(text);
    const std::string heading = lines.empty() ? "" : cleanLine(lines[0]);
    const std::size_t end = std::min({heading.find(" <"), heading.find(" ("), heading.size()});
    if (end == 0 || heading.find('{') < end)
        return {};
    const std::string key = heading.substr(0, end);
    std::string markup = bold(key) + taggedText(std::string_view(heading).substr(end));
    std::string last;
    bool afterNumber = false; // and nothing else on its line
    for (std::size_t i = 1; i < lines.size(); ++i) {
        if (!sense.finds(cleanLine(lines[i])) || sense.Substring(0).empty())
            continue;
        const std::string number = sense.Substring(1);
        const std::string line = sense.Substring(2);
        const bool runsOn = last.empty() || !number.empty() || line.starts_with("\"") || last.ends_with(")");
        if (!afterNumber && !line.starts_with(";"))
            markup += runsOn ? " " : " — ";
        if (!number.empty())
            markup += bold(number + "\u00A0");
        markup += taggedText(line);
        afterNumber = line.empty();
        last = number + line;
    }
    if (last.empty())
        return {};
    if (last.find_last_of(".?!") != last.size() - 1 && !markup.ends_with(".</i>"))
        markup += '.';
    return {key, key, "", {{Setting::Hanging, false, false, markup}}, {}};
}

std::vector<Article> articlesOf(const SourceText& source, Article (*parse)(std::string_view), std::size_t most) {
    std::vector<Article> all;
    std::set<std::string_view> seen;
    for (const std::string_view text : source.articles())
        if (seen.insert(text).second)
            if (Article article = parse(text); !article.key.empty())
                all.push_back(std::move(article));
    if (all.size() <= most)
        return all;
    std::ranges::stable_sort(all, {}, &Article::key);
    std::vector<Article> chosen;
    for (std::size_t i = 0; i < most; ++i)
        chosen.push_back(std::move(all[i * all.size() / most]));
    return chosen;
}

} // namespace velmarin
