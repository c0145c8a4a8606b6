#include "search/GroupOpener.h"

#include "platform/Host.h"
#include "search/HitModel.h"
#include "search/PageTabs.h"
#include "search/SearchModel.h"
#include "text/NilObjectException.h"
#include "text/StringFields.h"

#include <utility>

namespace velmarin {

bool GroupOpener::read(const FolderItem& folder, const OnGroupProgress& onProgress) {
    leave();
    const auto yieldAndReport = [&](std::size_t done, std::size_t of) {
        host_.Yield();
        return !onProgress || onProgress(done, of);
    };
    Group read = readGroup(folder, {.findTxtLines = true, .onProgress = yieldAndReport});
    if (read.stopped)
        return false;
    // Set last: a group that was read in part must not be written back.
    group_.pDictionaryGroupFolder = folder;
    group_.pDicGroupName = read.groupName;
    group_.pDictionaryItem = std::move(read.dictionaries);
    group_.preferencesRead = read.preferencesRead;
    failures_ = std::move(read.failures);
    search_.setSeparately(read.separately);
    return true;
}

void GroupOpener::mInitialize() {
    tabs_.reset();
    if (group_.dictionaryCount() >= kFewestForList)
        showInList();
    else
        showInTabs();
    if (!failures_.empty())
        throw NilObjectException(Join(failures_, "\n"));
}

void GroupOpener::leave() {
    group_.leave();
    hits_.clearHits();
    tabs_.reset();
}

void GroupOpener::showInList() {
    group_.pListMode = true;
    for (const auto& item : group_.pDictionaryItem) {
        hits_.addRow(item->name);
        item->ImageMode = kListModeImageMode;
    }
    tabs_.tab(0).setFitValue(kListModeImageMode);
    hits_.showList();
}

void GroupOpener::showInTabs() {
    for (int i = 0; i < group_.dictionaryCount(); ++i) {
        DictionaryItem& item = *group_.dictionary(i);
        if (i == 0)
            tabs_.setCaption(0, item.name);
        else
            tabs_.mMakeNewTB(item);
        try {
            tabs_.mMakeBVjump(i);
        } catch (const NilObjectException& failure) {
            // A dictionary without pages does not keep the others from their tabs.
            if (item.failure.empty()) {
                item.failure = failure.what();
                failures_.push_back(item.failure);
            }
        }
        tabs_.setFailure(i, item.failure);
        tabs_.tab(i).setFitValue(item.ImageMode);
    }
}

} // namespace velmarin
