#include "cli/PageListCheck.h"

#include "cli/LineCheck.h"
#include "store/ImageIndex.h"
#include "text/NumberText.h"
#include "text/StringFields.h"

namespace velmarin {

namespace {

/// The lines of an image index.
struct IndexLines {
    std::string first;
    PictureNames names;
    std::uint64_t count = 0;
    /// The last line with a page name.
    std::uint64_t lastNamed = 1;
};

std::optional<IndexLines> readIndexLines(const FolderItem& file, bool captioned, Findings& findings) {
    IndexLines lines{.first = {}, .names = PictureNames(file.path())};
    const auto count = checkLines(file, findings, [&](const std::string& line, std::uint64_t number) {
        if (number == 1) {
            lines.first = line;
            return;
        }
        const std::string_view name = captioned ? NthField(line, "\t", 1) : std::string_view(line);
        if (name.empty())
            return;
        // Empty lines at the end are beyond the count and do no harm.
        for (std::uint64_t empty = lines.lastNamed + 1; empty < number; ++empty)
            findings.push_back({file.path(), empty, "names no page"});
        lines.lastNamed = number;
        lines.names.add(name, number);
        if (captioned && NthField(line, "\t", 2).empty())
            findings.push_back({file.path(), number, "has no caption: a TAB separates name and caption"});
    });
    if (!count)
        return std::nullopt;
    lines.count = *count;
    return lines;
}

bool beginsWithDigit(std::string_view text) {
    const std::size_t at = text.find_first_not_of(" \t");
    return at != std::string_view::npos && text[at] >= '0' && text[at] <= '9';
}

/// The program uses no more than kMostPages pages.
void checkLimit(const std::filesystem::path& file, std::uint64_t pages, Findings& findings) {
    if (pages > kMostPages)
        findings.push_back(
            {file, 0,
             "has " + std::to_string(pages) + " pages; only the first " + std::to_string(kMostPages) + " are used"});
}

void checkCount(const FolderItem& file, const IndexLines& lines, Findings& findings) {
    const std::uint64_t pages = lines.lastNamed - 1;
    if (pages == 0) {
        findings.push_back({file.path(), 1, "lists no pages"});
        return;
    }
    const std::string right = std::to_string(pages - 1) + ", the number of pages less one";
    if (!beginsWithDigit(lines.first))
        findings.push_back({file.path(), 1, inQuotes(lines.first) + " is not a number; it should be " + right});
    else if (toInt32(CDbl(lines.first)) != static_cast<std::int64_t>(pages) - 1)
        findings.push_back({file.path(), 1, "the count is " + inQuotes(lines.first) + "; it should be " + right});
}

std::optional<PageListSummary> checkImageIndex(const FolderItem& file, bool captioned, const FolderListing& mImg,
                                               Findings& findings) {
    const auto lines = readIndexLines(file, captioned, findings);
    if (!lines)
        return std::nullopt;
    PageListSummary summary;
    summary.name = file.Name();
    checkLimit(file.path(), lines->lastNamed - 1, findings);
    checkCount(file, *lines, findings);
    for (const std::string& name : lines->names.names())
        summary.pages.set(name, 0);
    summary.pictures = lines->names.findIn(mImg, findings);
    return summary;
}

} // namespace

std::optional<PageListSummary> checkPageList(const FolderListing& mImg, Findings& findings) {
    if (const FolderItem captioned = mImg.Child("ImageIndex2"); captioned.Exists())
        return checkImageIndex(captioned, true, mImg, findings);
    if (const FolderItem plain = mImg.Child("ImageIndex"); plain.Exists())
        return checkImageIndex(plain, false, mImg, findings);

    PageListSummary summary;
    summary.name = "the page list that is made from the pictures";
    const std::vector<std::string> pictures = pictureNames(mImg.folder());
    for (const std::string& name : pictures)
        summary.pages.set(name, 0);
    checkLimit(mImg.folder().path(), pictures.size(), findings);
    if (!pictures.empty())
        return summary;
    findings.push_back({mImg.folder().path(), 0, "has neither a picture nor an image index"});
    return std::nullopt;
}

} // namespace velmarin
