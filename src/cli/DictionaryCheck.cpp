#include "cli/DictionaryCheck.h"

#include "cli/FolderArgument.h"
#include "cli/IndexCheck.h"
#include "cli/LineCheck.h"
#include "cli/PageListCheck.h"
#include "cli/PictureCheck.h"
#include "files/FolderListing.h"
#include "files/Leftovers.h"
#include "files/LineReader.h"
#include "files/ReadOnlyFile.h"
#include "files/SystemCalls.h"
#include "store/DictionaryItem.h"
#include "store/TxtLine.h"
#include "text/NilObjectException.h"

#include <algorithm>
#include <cerrno>
#include <optional>

namespace velmarin {

namespace {

/// The content of a `txt`.
struct TextSummary {
    explicit TextSummary(const FolderItem& txt) : pages(txt.path()), extraPages(txt.path()) {}
    std::optional<std::uint64_t> lines;
    PictureNames pages;
    PictureNames extraPages;
};

/// `closingLine` is the number of the closing entry, 0 if there is none. Its line is never shown and needs no page.
TextSummary checkText(const FolderItem& txt, std::uint64_t closingLine, Findings& findings) {
    TextSummary summary(txt);
    summary.lines = checkLines(txt, findings, [&](const std::string& line, std::uint64_t number) {
        const TxtLine parsed = parseTxtLine(line);
        if (!parsed.imageName.empty())
            summary.pages.add(parsed.imageName, number);
        else if (number != closingLine)
            findings.push_back({txt.path(), number, "names no page"});
        for (const std::string& name : parsed.errata)
            summary.extraPages.add(name, number);
    });
    return summary;
}

void compareLengths(const FolderItem& ind, std::uint64_t entries, const FolderItem& txt, std::uint64_t lines,
                    Findings& findings) {
    const std::string numbers = " (ind has " + std::to_string(entries) + ", txt " + std::to_string(lines) + ")";
    if (entries > lines)
        findings.push_back(
            {ind.path(), lines + 1, "no line of txt belongs to this entry: different lengths" + numbers});
    else if (lines > entries)
        findings.push_back({txt.path(), entries + 1, "no entry belongs to this line: different lengths" + numbers});
}

/// Reports existing pages that stepping cannot reach.
void compareWithPageList(const PictureNames& named, const std::vector<NamedPicture>& found, const PageListSummary& list,
                         Findings& findings) {
    for (const NamedPicture& page : found) {
        if (!list.pages.has(page.name))
            findings.push_back({page.namedIn, page.line,
                                "names " + inQuotes(page.name) + ", which is not in " + list.name +
                                    ": stepping continues from the first page" + named.furtherLines(page.name)});
    }
}

/// A required member; nullopt, with a finding, if it is missing.
std::optional<FolderItem> neededMember(const FolderListing& members, const char* name, Findings& findings) {
    FolderItem item = members.Child(name);
    if (item.Exists())
        return item;
    findings.push_back({item.path(), 0, "is missing"});
    return std::nullopt;
}

/// The lines of a `Format` that are used: the number format and the mark of an independent dictionary.
constexpr std::uint64_t kFormatLines = 2;

/// Checks one dictionary and collects the findings.
class DictionaryChecker {
  public:
    explicit DictionaryChecker(const FolderItem& folder) : members_(folder) {}

    void run(Images images, const std::function<void(const Finding&)>& write) {
        try {
            checkMembers();
        } catch (const NilObjectException&) {
            writeFindings(write);
            throw;
        }
        // Decoding takes long: the other findings are written before.
        writeFindings(write);
        if (images == Images::Decode)
            checkPictures(pictures_, findings_);
        writeFindings(write);
    }

  private:
    void checkMembers() {
        if (holdsInterruptedSwap(members_.folder().path()))
            findings_.push_back({members_.folder().path(), 0, kInterruptedUpdate});
        if (!members_.has("FW"))
            findings_.push_back({members_.folder().path() / "FW", 0, "is missing: groups do not show the dictionary"});
        checkFormat();
        ind_ = neededMember(members_, "ind", findings_);
        txt_ = neededMember(members_, "txt", findings_);
        const auto mImg = neededMember(members_, "mImg", findings_);
        if (ind_)
            checkInd(*ind_);
        if (txt_)
            checkTxt(*txt_, ind_);
        if (mImg)
            checkPages(*mImg);
    }

    void writeFindings(const std::function<void(const Finding&)>& write) {
        for (const Finding& finding : sorted(findings_.take(), {ind_, txt_}))
            write(finding);
    }

    void checkFormat() {
        const FolderItem format = members_.Child("Format");
        if (!format.Exists())
            return;
        const auto file = ReadOnlyFile::open(format);
        const std::string start = (file ? readFileStart(*file, kFormatBytes) : std::nullopt).value_or("");
        LineReader asRead(start);
        checkLines(format, findings_, [&](const std::string& line, std::uint64_t number) {
            if (number <= kFormatLines && asRead.ReadLine() != line)
                findings_.push_back({format.path(), number, "goes beyond 64 KiB; only the first 64 KiB are read"});
        });
    }

    void checkInd(const FolderItem& ind) {
        const IndexOrder order = {
            .SpanishMode = members_.has("Spanish"), .IJUVMode = members_.has("IJUV"), .FormatFom = {}};
        index_ = checkIndex(ind, order, findings_);
    }

    void checkTxt(const FolderItem& txt, const std::optional<FolderItem>& ind) {
        text_.emplace(checkText(txt, index_ && index_->hasClosingEntry ? index_->lines : 0, findings_));
        if (index_ && text_->lines)
            compareLengths(*ind, index_->lines, txt, *text_->lines, findings_);
        addPictures(text_->extraPages.findIn(FolderListing(members_.Child("mPimg")), findings_));
    }

    void checkPages(const FolderItem& folder) {
        if (!folder.Directory()) {
            findings_.push_back({folder.path(), 0, "is not a folder"});
            return;
        }
        const FolderListing mImg(folder);
        if (!mImg.listed())
            throw NilObjectException("\"" + folder.path().native() + "\" could not be read: " + errorInWords(errno));
        const auto list = checkPageList(mImg, findings_);
        if (text_) {
            const std::vector<NamedPicture> found = text_->pages.findIn(mImg, findings_);
            if (list)
                compareWithPageList(text_->pages, found, *list, findings_);
            addPictures(found);
        }
        if (list)
            addPictures(list->pictures);
    }

    void addPictures(const std::vector<NamedPicture>& pictures) {
        pictures_.insert(pictures_.end(), pictures.begin(), pictures.end());
    }

    /// First the findings without a line, then `ind`, `txt` and the image index, each by line.
    static std::vector<Finding> sorted(std::vector<Finding> findings,
                                       const std::vector<std::optional<FolderItem>>& files) {
        const auto rank = [&](const Finding& finding) {
            if (finding.line == 0)
                return std::size_t{0};
            for (std::size_t i = 0; i < files.size(); ++i) {
                if (files[i] && files[i]->path().native() == finding.file.native())
                    return i + 1;
            }
            return files.size() + 1;
        };
        std::stable_sort(findings.begin(), findings.end(), [&](const Finding& a, const Finding& b) {
            const std::size_t rankOfA = rank(a);
            const std::size_t rankOfB = rank(b);
            return rankOfA != rankOfB ? rankOfA < rankOfB : a.line < b.line;
        });
        return findings;
    }

    FolderListing members_;
    std::optional<FolderItem> ind_, txt_;
    Findings findings_;
    std::vector<NamedPicture> pictures_;
    std::optional<IndexSummary> index_;
    std::optional<TextSummary> text_;
};

} // namespace

void checkDictionary(const FolderItem& folder, Images images, const std::function<void(const Finding&)>& write) {
    DictionaryChecker(folder).run(images, write);
}

} // namespace velmarin
