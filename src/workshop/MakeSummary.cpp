#include "workshop/MakeSummary.h"

#include "text/NumberText.h"

#include <algorithm>

namespace velmarin {

namespace {

/// Of what can be too long to be read.
constexpr std::size_t kMostNamed = 200;

std::string counted(std::size_t count, const char* one, const char* many) {
    return Format(static_cast<double>(count), "#,##0") + ' ' + (count == 1 ? one : many);
}

std::string inQuotes(const std::string& text) {
    return "“" + text + "”";
}

std::string pageName(const BookPage& page) {
    return page.number.empty() ? page.file : page.number + " (" + page.file + ")";
}

std::string misplacedLine(const BookPlan& plan, const Misplaced& misplaced) {
    const auto headword = [&](std::size_t entry) { return inQuotes(plan.entries[entry].headword); };
    const BookEntry& entry = plan.entries[misplaced.entry];
    std::string line = "    " + inQuotes(entry.headword) + " on page " + pageName(plan.dictionary.pages[entry.page]);
    if (misplaced.before)
        line += ", after " + headword(*misplaced.before);
    if (misplaced.after)
        line += (misplaced.before ? " and before " : ", before ") + headword(*misplaced.after);
    return line;
}

std::string extraPagesLine(const BookPlan& plan) {
    std::size_t extra = 0;
    for (const BookEntry& entry : plan.entries)
        extra += entry.errata.size();
    if (extra == 0)
        return {};
    const FolderItem& folder = plan.dictionary.extraPageFolder;
    return counted(extra, "extra page", "extra pages") + (folder.isNil()
                                                              ? ": choose the folder that has them\n"
                                                              : " from " + inQuotes(folder.path().native()) + "\n");
}

/// The names of pages in one line.
template <typename Rows, typename NameOf> std::string listed(const Rows& rows, NameOf nameOf) {
    std::string text = "    ";
    for (std::size_t i = 0; i < std::min(rows.size(), kMostNamed); ++i)
        text += (i > 0 ? ", " : "") + nameOf(rows[i]);
    return text + (rows.size() > kMostNamed ? " …\n" : "\n");
}

} // namespace

std::string summaryOf(const BookPlan& plan) {
    const NewDictionary& made = plan.dictionary;
    const auto numbered =
        std::count_if(made.pages.begin(), made.pages.end(), [](const BookPage& page) { return !page.number.empty(); });
    std::string text = counted(made.pages.size(), "page, ", "pages, ") +
                       Format(static_cast<double>(numbered), "#,##0") + " with a printed number\n" +
                       counted(plan.entries.size(), "headword of the guide words, ", "headwords of the guide words, ") +
                       counted(made.lines.size() + 1, "line", "lines") + " in the index\n";
    text += extraPagesLine(plan);
    if (!plan.doubtful.empty())
        text += counted(plan.doubtful.size(), "page is", "pages are") + " doubtful and will be used as read:\n" +
                listed(plan.doubtful, [&](std::size_t row) { return pageName(made.pages[row]); });
    if (!plan.removed.empty())
        text += counted(plan.removed.size(), "page", "pages") + " of the draft, missing in the scan, left out:\n" +
                listed(plan.removed, [](const std::string& page) { return page; });
    if (!plan.misplaced.empty())
        text += counted(plan.misplaced.size(), "headword breaks", "headwords break") +
                " the order. Each opens its own page, and no other word is led astray:\n";
    for (std::size_t i = 0; i < std::min(plan.misplaced.size(), kMostNamed); ++i)
        text += misplacedLine(plan, plan.misplaced[i]) + '\n';
    if (plan.misplaced.size() > kMostNamed)
        text += "    …\n";
    return text;
}

std::string whyNotMade(const FolderItem& group, const std::string& name) {
    if (name.empty() || !isMemberName(name))
        return name.empty() ? "Give the dictionary a name." : "A name cannot have \"/\" in it, or be \".\" or \"..\".";
    if (name.front() == '.' || group.Name().front() == '.')
        return "A name that begins with a point is hidden from Velmarin.";
    if (group.Exists() && !group.Directory())
        return inQuotes(group.Name()) + " is not a folder.";
    if (group.Child(name).occupied())
        return "The group has " + inQuotes(name) + " already, and it will not be replaced. Choose another name.";
    return {};
}

} // namespace velmarin
