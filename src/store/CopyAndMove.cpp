#include "store/CopyAndMove.h"

#include "files/Moves.h"
#include "files/StagedMembers.h"
#include "text/Message.h"

#include <optional>
#include <string>

namespace velmarin {

namespace {

FolderItem copyInto(const FolderItem& given, const FolderItem& destFolder, const std::string& newName, Links links) {
    const FolderItem source = links == Links::Followed ? given.resolved() : given;
    FolderItem target = isMemberName(newName) ? FolderItem(destFolder.path() / newName) : FolderItem();
    if (target.isNil() || liesIn(destFolder.path(), source.path()))
        return destFolder.Child(newName);
    const auto isFolder = [](const FolderItem& item) { return item.Directory() && !item.Alias(); };
    if (isFolder(target) && isFolder(source)) {
        for (const FolderItem& item : source.items())
            copyInto(item, target, item.Name(), links);
        return target;
    }
    Work quiet;
    Failures ignored;
    TreePlan plan = planTree(source.path(), destFolder.path(), links, Purpose::Copy, quiet);
    plan.unreadable.clear(); // what cannot be read is left out
    auto staged = plan.whole() && !target.occupied() ? StagedMembers::in(destFolder.path()) : std::nullopt;
    if (staged && staged->copy(plan, newName, quiet, ignored) == CopyOutcome::Whole)
        staged->moveTo(newName, target.path());
    return destFolder.Child(newName);
}

} // namespace

FolderItem mFiMod_CopyFileOrFolderTo(const FolderItem& source, const FolderItem& destFolder) {
    return copyInto(source, destFolder, source.Name(), Links::Kept);
}

FolderItem mFiMod_CopyFileOrFolderTo_Complete(const FolderItem& source, const FolderItem& destFolder) {
    return copyInto(source, destFolder, source.Name(), Links::Followed);
}

FolderItem mFiMod_CopyFiToFolderWIthNewName(const FolderItem& source, const FolderItem& destFolder,
                                            std::string_view newName) {
    return copyInto(source, destFolder, std::string(newName), Links::Followed);
}

FolderItem mFiMod_MoveFileOrFolderTo(const FolderItem& source, const FolderItem& destFolder) {
    const std::string name = source.Name();
    if (destFolder.Child(name).occupied()) {
        MsgBox("The item which has the same name exists already.\n" + destFolder.AbsolutePath() + "\n" + name);
        return {};
    }
    Work quiet;
    Failures failures;
    Moves moves;
    if (!moves.move(source.path(), destFolder.path(), destFolder.path(), quiet, failures)) {
        moves.undo(quiet, failures);
        return {};
    }
    return moves.finish(quiet, failures) ? destFolder.Child(name) : FolderItem();
}

} // namespace velmarin
