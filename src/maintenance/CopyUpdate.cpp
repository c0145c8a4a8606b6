#include "maintenance/CopyUpdate.h"

#include "files/MemberSwap.h"
#include "files/Moves.h"
#include "files/SystemCalls.h"
#include "text/LetterCase.h"
#include "text/UnicodeForms.h"
#include "text/Utf8.h"

#include <algorithm>
#include <array>
#include <cerrno>

namespace velmarin {

namespace fs = std::filesystem;

namespace {

/// Members that are replaced only together: entry n of `ind` belongs to line n of `txt`, which names pages in `mImg`.
constexpr std::array<std::string_view, 3> kLinkedMembers{"ind", "txt", "mImg"};

bool isLinkedMember(std::string_view name) {
    return std::any_of(kLinkedMembers.begin(), kLinkedMembers.end(),
                       [&](std::string_view each) { return foldedFileName(each) == foldedFileName(name); });
}

std::string quotedList(const std::vector<std::string>& names) {
    std::string text;
    for (const std::string& name : names)
        text += (text.empty() ? "\"" : ", \"") + toValidUtf8(name) + "\"";
    return text;
}

} // namespace

void CopyUpdate::run(const std::map<std::string, TreePlan>& members, std::vector<std::string> unreadable,
                     const std::function<bool()>& sourceChanged) {
    kept_ = std::move(unreadable);
    auto staged = StagedMembers::in(copy_.path());
    if (!staged)
        return result_.fail(copy_, "nothing can be written there: " + errorInWords(errno));
    if (!stage(*staged, members) || sourceChanged())
        return;
    if (!staged->beginSwap())
        return result_.fail(copy_, "nothing can be written there: " + errorInWords(errno));
    for (const std::vector<std::string>& names : unitsToSwap()) {
        if (staged->swap(names, work_, result_.failures))
            swapped_.insert(swapped_.end(), names.begin(), names.end());
        else
            kept_.insert(kept_.end(), names.begin(), names.end());
        if (staged->abandoned())
            return;
    }
    if (!swapped_.empty() && backUpOld(*staged))
        report();
}

bool CopyUpdate::stage(StagedMembers& staged, const std::map<std::string, TreePlan>& members) {
    for (const auto& [name, plan] : members) {
        switch (staged.copy(plan, name, work_, result_.failures)) {
        case CopyOutcome::Whole:
            new_.push_back(name);
            break;
        case CopyOutcome::SourceFailed:
            kept_.push_back(name);
            break;
        case CopyOutcome::TargetFailed:
            return false;
        }
        work_.pass();
    }
    return true;
}

std::vector<std::vector<std::string>> CopyUpdate::unitsToSwap() {
    std::vector<std::vector<std::string>> units;
    std::vector<std::string> together;
    for (const std::string& name : new_) {
        if (isLinkedMember(name))
            together.push_back(name);
        else
            units.push_back({name});
    }
    if (std::any_of(kept_.begin(), kept_.end(), isLinkedMember)) {
        for (const std::string& name : together)
            result_.fail(FolderItem(copy_.path() / name),
                         "it was not replaced, because \"ind\", \"txt\" and \"mImg\" are replaced only together");
        kept_.insert(kept_.end(), together.begin(), together.end());
    } else if (!together.empty()) {
        units.push_back(std::move(together));
    }
    return units;
}

bool CopyUpdate::backUpOld(StagedMembers& staged) {
    const auto old = staged.keepOld();
    if (!old) {
        const std::string reason = errorInWords(errno);
        if (staged.undo(work_, result_.failures))
            result_.fail(copy_, "it could not be written and was not updated: " + reason);
        return false;
    }
    Moves moves;
    for (const fs::path& each : *old) {
        if (moves.move(each, backup_, backup_.parent_path(), work_, result_.failures))
            continue;
        if (!moves.undo(work_, result_.failures) || !staged.undoKeepOld())
            result_.fail(copy_, "it is updated, but not all replaced members could be saved. The next run tries again");
        else if (staged.undo(work_, result_.failures))
            result_.fail(copy_, "it was not updated, because the members to be replaced could not be saved");
        return false;
    }
    saved_ = moves.moved();
    if (!staged.drop(work_))
        result_.fail(copy_,
                     "the replaced members are saved, but could not be removed completely: " + errorInWords(errno));
    return true;
}

void CopyUpdate::report() {
    std::sort(swapped_.begin(), swapped_.end(), ListingOrder());
    for (const std::string& name : swapped_) {
        bool replaced = false;
        for (const fs::path& old : saved_) {
            if (replacedBy(old.filename().native(), new_) != name)
                continue;
            result_.add(ItemOutcome::BackedUp, FolderItem(old));
            replaced = true;
        }
        result_.add(replaced ? ItemOutcome::Replaced : ItemOutcome::Added, FolderItem(copy_.path() / name));
    }
    std::erase_if(kept_, [&](const std::string& name) { return !copy_.Child(name).occupied(); });
    if (!kept_.empty())
        result_.fail(copy_, "it now holds members of two versions: not replaced were " + quotedList(kept_));
}

} // namespace velmarin
