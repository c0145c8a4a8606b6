#include "making/NewDictionary.h"

#include "files/FolderLock.h"
#include "files/Leftovers.h"
#include "files/NewFile.h"
#include "files/StagedMembers.h"
#include "files/SystemCalls.h"
#include "files/TreeCopy.h"
#include "maintenance/LockedFolder.h"
#include "text/Utf8.h"

#include <algorithm>
#include <cerrno>
#include <set>

namespace velmarin {

namespace fs = std::filesystem;

namespace {

/// Sorts after everything else; docs/dictionary-format.md explains it.
constexpr std::string_view kClosingLine = "\U0010FFFD__DLM__end\n";
constexpr std::string_view kEndOfMark = "_>";

bool canBeMarked(const std::string& file) {
    return isMemberName(file) && file.find(kEndOfMark) == std::string::npos &&
           file.find_first_of("\t\r\n") == std::string::npos && isValidUtf8(file);
}

std::string indText(const NewDictionary& book) {
    std::string text;
    for (const IndexLine& line : book.lines)
        text += line.key + (line.note.empty() ? "" : "__DLM__" + line.note) + "\n";
    return text + std::string(kClosingLine);
}

std::string txtText(const NewDictionary& book) {
    std::string text;
    for (const IndexLine& line : book.lines) {
        text += "<@_" + book.pages[line.page].file + "_>";
        for (const std::string& file : line.errata)
            text += "<^_" + file + "_>";
        text += '\n';
    }
    return text + "<@_" + book.pages.back().file + "_>\n";
}

/// The page list: with captions if any page has a printed number.
struct PageListFile {
    std::string name, text;
};

PageListFile pageListOf(const std::vector<BookPage>& pages) {
    const bool captions =
        std::any_of(pages.begin(), pages.end(), [](const auto& page) { return !page.number.empty(); });
    PageListFile file{captions ? "ImageIndex2" : "ImageIndex", std::to_string(pages.size() - 1) + "\n"};
    for (const BookPage& page : pages)
        file.text += page.file + (captions ? "\t" + (page.number.empty() ? page.file : page.number) : "") + "\n";
    return file;
}

/// With the reason in errno. The member is called by the name that it is to get.
Failure notWritten(const fs::path& finalFolder, const fs::path& member) {
    return {FolderItem(member.empty() ? finalFolder : finalFolder / member),
            "it could not be written: " + errorInWords(errno)};
}

class Writer {
  public:
    Writer(const NewDictionary& book, const FolderItem& group, const std::string& name, const Progress& progress)
        : book_(book), group_(group), name_(name), target_(group.path() / name), work_(progress) {}

    Result run() {
        if (Result possible = check(); !possible)
            return possible;
        const FolderLock lock(lockedFolderOf(group_), FolderLock::Kind::Alone, work_);
        // A new group is staged with the dictionary in it.
        const bool newGroup = !group_.occupied();
        const FolderItem home = newGroup ? FolderItem(group_.path().parent_path()) : group_;
        const std::string member = newGroup ? group_.Name() : name_;
        for (const fs::path& folder : {group_.path(), group_.path().parent_path()})
            clearLeftovers(folder, work_);
        if (!newGroup && group_.Child(name_).occupied())
            return Failure{target_, kNameIsTaken};
        auto staged = StagedMembers::in(home.path());
        if (!staged)
            return Failure{home, "nothing can be written there: " + errorInWords(errno)};
        const fs::path place = staged->placeOf(member);
        top_ = newGroup ? place / name_ : place;
        if (newGroup && !makeFolder(place))
            return notWritten(target_.path(), {});
        if (Result written = writeAll(); !written)
            return written;
        if ((newGroup && !flushFolder(place)) || !staged->moveTo(member, home.path() / member) ||
            !flushFolder(home.path()))
            return notWritten(target_.path(), {});
        return {};
    }

  private:
    Result check() const {
        if (!isMemberName(name_))
            return Failure{target_, "a dictionary needs a name"};
        if (book_.pages.empty() || book_.lines.empty())
            return Failure{target_, book_.pages.empty() ? "it has no pages" : "it has no headwords"};
        for (const BookPage& page : book_.pages)
            if (!canBeMarked(page.file))
                return Failure{book_.pageFolder.Child(page.file),
                               "its name cannot be written in a dictionary: rename it"};
        for (const IndexLine& line : book_.lines)
            for (const std::string& file : line.errata)
                if (!canBeMarked(file) || book_.extraPageFolder.isNil())
                    return Failure{target_, "no folder has the extra page \"" + file + '"'};
        return {};
    }

    Result copyPicture(const FolderItem& picture, const fs::path& member) {
        Failures failures;
        const TreePlan plan = planTree(picture.path(), top_, Links::Followed, Purpose::Copy, work_);
        if (!plan.whole())
            return plan.unreadable.empty() ? Failure{picture, "it is not a file that can be copied"}
                                           : plan.unreadable.front();
        if (copyTree(plan, top_ / member, target_.path() / member, work_, failures) != CopyOutcome::Whole)
            return failures.front();
        return {};
    }

    Result writeAll() {
        for (const fs::path& folder : {fs::path(), fs::path("mImg")})
            if (!makeFolder(top_ / folder))
                return notWritten(target_.path(), folder);
        for (const BookPage& page : book_.pages)
            if (Result copied = copyPicture(book_.pageFolder.Child(page.file), fs::path("mImg") / page.file); !copied)
                return copied;
        if (Result extra = writeExtraPages(); !extra)
            return extra;
        if (Result written = writeTextMembers(book_, top_, target_.path(), work_); !written)
            return written;
        return flushFolder(top_ / "mImg") && flushFolder(top_) ? Result() : Result(notWritten(target_.path(), {}));
    }

    Result writeExtraPages() {
        std::set<std::string> files;
        for (const IndexLine& line : book_.lines)
            files.insert(line.errata.begin(), line.errata.end());
        if (files.empty())
            return {};
        if (!makeFolder(top_ / "mPimg"))
            return notWritten(target_.path(), "mPimg");
        for (const std::string& file : files)
            if (Result copied = copyPicture(book_.extraPageFolder.Child(file), fs::path("mPimg") / file); !copied)
                return copied;
        return flushFolder(top_ / "mPimg") ? Result() : Result(notWritten(target_.path(), "mPimg"));
    }

    const NewDictionary& book_;
    const FolderItem& group_;
    const std::string& name_;
    FolderItem target_;
    Work work_;
    fs::path top_; ///< where the dictionary is made
};

} // namespace

Result writeNewDictionary(const NewDictionary& book, const FolderItem& group, const std::string& name,
                          const Progress& progress) {
    return Writer(book, group, name, progress).run();
}

Result writeTextMembers(const NewDictionary& book, const fs::path& folder, const fs::path& finalFolder,
                        const Work& work) {
    const PageListFile list = pageListOf(book.pages);
    std::vector<std::pair<fs::path, std::string>> members{
        {fs::path("mImg") / list.name, list.text}, {"ind", indText(book)}, {"txt", txtText(book)}, {"FW", ""}};
    if (!book.order.FormatFom.empty() || book.independent)
        members.emplace_back("Format", book.order.FormatFom + "\n" + (book.independent ? "true\n" : ""));
    if (book.order.SpanishMode)
        members.emplace_back("Spanish", "");
    if (book.order.IJUVMode)
        members.emplace_back("IJUV", "");
    if (const std::string about = aboutText(book.about); !about.empty())
        members.emplace_back("About", about);
    for (const auto& [member, text] : members) {
        NewFile file(folder / member);
        if (!file.write(text) || !file.flush())
            return notWritten(finalFolder, member);
        work.pass();
    }
    return {};
}

} // namespace velmarin
