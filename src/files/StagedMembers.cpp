#include "files/StagedMembers.h"

#include "files/FolderItem.h"
#include "files/Leftovers.h"
#include "files/MemberSwap.h"
#include "files/NewFile.h"
#include "files/RemoveTree.h"
#include "files/SystemCalls.h"
#include "files/TemporaryName.h"
#include "files/VerifiedCopy.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <utility>

namespace velmarin {

namespace fs = std::filesystem;

namespace {

/// Inside the hidden folder: an old member that is being copied there.
constexpr const char* kPart = "part";

} // namespace

std::optional<StagedMembers> StagedMembers::in(const fs::path& folder) {
    constexpr int kAttempts = 100;
    for (int attempt = 0; attempt < kAttempts; ++attempt) {
        const fs::path hidden = folder / newTemporaryName();
        if (!makeFolder(hidden)) {
            if (errno == EEXIST)
                continue;
            return std::nullopt;
        }
        Descriptor lock = openFolder(hidden);
        if (!lock && errno != ENOENT) {
            const int error = errno;
            removeEmptyFolder(hidden);
            errno = error;
            return std::nullopt;
        }
        if (!lock || !lockFresh(lock)) // another process has taken it for a leftover
            continue;
        StagedMembers staged(hidden, std::move(lock));
        if (!makeFolder(hidden / kNewMembers) || !makeFolder(hidden / kOldMembers))
            return std::nullopt;
        return staged;
    }
    errno = EEXIST;
    return std::nullopt;
}

StagedMembers::StagedMembers(StagedMembers&& other) noexcept
    : hidden_(std::exchange(other.hidden_, {})), lock_(std::move(other.lock_)), names_(std::move(other.names_)) {}

StagedMembers::~StagedMembers() {
    if (hidden_.empty())
        return;
    const int error = errno;
    Work quiet; // no callback: this may run because one has thrown
    const auto kind = temporaryKind(hidden_.filename().native());
    if (kind == TemporaryKind::Staged || (kind == TemporaryKind::Swap && undoSwap(hidden_, folder(), names_, quiet)))
        drop(quiet);
    errno = error;
}

fs::path StagedMembers::placeOf(std::string_view name) const {
    return hidden_ / kNewMembers / name;
}

CopyOutcome StagedMembers::copy(const TreePlan& plan, const std::string& name, Work& work, Failures& failures) {
    const CopyOutcome outcome = copyTree(plan, placeOf(name), folder() / name, work, failures);
    if (outcome == CopyOutcome::Whole)
        add(name);
    else
        removeTree(placeOf(name), work);
    return outcome;
}

bool StagedMembers::moveTo(std::string_view name, const fs::path& target) {
    if (renameToFreeName(placeOf(name), target))
        return true;
    // The system lets a folder take the place of an empty one, and of nothing else.
    return errno == EEXIST && FolderItem(placeOf(name)).Directory() && renameOver(placeOf(name), target);
}

bool StagedMembers::exchange(std::string_view name) {
    return exchangeNames(placeOf(name), folder() / name);
}

bool StagedMembers::becomes(TemporaryKind kind) {
    const fs::path before = hidden_;
    const fs::path after = folder() / temporaryNameAs(kind, before.filename().native());
    if (!flushFolder(before / kNewMembers) || !flushFolder(before / kOldMembers) || !flushFolder(folder()) ||
        !renameToFreeName(before, after))
        return false;
    hidden_ = after;
    if (flushFolder(folder()))
        return true;
    const int error = errno;
    if (renameToFreeName(after, before))
        hidden_ = before;
    errno = error;
    return false;
}

bool StagedMembers::beginSwap() {
    std::string list;
    for (const std::string& name : names_)
        list += (list.empty() ? "" : "/") + name;
    NewFile file(hidden_ / kMemberList);
    return file.write(list) && file.flush() && becomes(TemporaryKind::Swap);
}

bool StagedMembers::putAside(const fs::path& old, Work& work, Failures& failures) {
    const auto fail = [&] {
        failures.push_back({FolderItem(old), "it could not be moved out of the way: " + errorInWords(errno)});
        return false;
    };
    const fs::path aside = hidden_ / kOldMembers / old.filename();
    if (renameItem(old, aside))
        return true;
    if (errno != EXDEV)
        return fail();
    // As for a folder of a read-only layer, which can be removed but not renamed.
    const fs::path marks = hidden_ / kCopiedMembers;
    if ((!makeFolder(marks) && errno != EEXIST) || !makeFolder(marks / old.filename()) || !flushFolder(marks))
        return fail();
    if (!copyVerified(old, aside, hidden_ / kPart, work, failures)) {
        removeTree(hidden_ / kPart, work);
        return false;
    }
    return removeTree(old, work) || fail();
}

bool StagedMembers::putIn(const std::string& name, Failures& failures) {
    if (renameItem(placeOf(name), folder() / name))
        return true;
    failures.push_back({FolderItem(folder() / name), "it could not be given its name: " + errorInWords(errno)});
    return false;
}

bool StagedMembers::swap(const std::vector<std::string>& names, Work& work, Failures& failures) {
    const auto all = listNames(folder());
    if (!all) {
        failures.push_back({FolderItem(folder()), "it cannot be listed: " + errorInWords(errno)});
        return false;
    }
    bool done = true;
    for (const std::string& name : names) {
        for (const std::string& old : *all) {
            // The other new members count too: an old member belongs to the one whose name it has exactly.
            if (done && replacedBy(old, names_) == name)
                done = putAside(folder() / old, work, failures);
        }
    }
    for (auto name = names.rbegin(); done && name != names.rend(); ++name)
        done = putIn(*name, failures);
    if (!done && !undoSwap(hidden_, folder(), names, work))
        abandon(failures);
    return done;
}

bool StagedMembers::undo(Work& work, Failures& failures) {
    return undoSwap(hidden_, folder(), names_, work) || abandon(failures);
}

bool StagedMembers::abandon(Failures& failures) {
    failures.push_back(
        {FolderItem(folder()), "it is incomplete, because a replacement failed and could not be undone: " +
                                   errorInWords(errno) + ". \"" + hidden_.filename().native() +
                                   "\" in it has the other members. Run the same command again: it "
                                   "first restores them"});
    hidden_.clear();
    return false;
}

bool StagedMembers::forgetOld() {
    return becomes(TemporaryKind::Staged);
}

std::optional<std::vector<fs::path>> StagedMembers::keepOld() {
    // Listed first: a failure to list them later would look as if there were none.
    auto old = oldMembersIn(hidden_);
    if (!old || !becomes(TemporaryKind::Replaced))
        return std::nullopt;
    for (fs::path& each : *old)
        each = hidden_ / kOldMembers / each.filename();
    return old;
}

bool StagedMembers::undoKeepOld() {
    return becomes(TemporaryKind::Swap);
}

bool StagedMembers::drop(Work& work) {
    return hidden_.empty() || removeSaved(std::exchange(hidden_, {}), work);
}

} // namespace velmarin
