#include "maintenance/Maintenance.h"

#include "maintenance/EditDicDlg.h"
#include "maintenance/ExpDicDlg.h"
#include "maintenance/Install.h"
#include "maintenance/Update.h"
#include "maintenance/WaitDlg.h"
#include "maintenance/WindowsPort.h"
#include "platform/Busy.h"
#include "platform/Host.h"
#include "store/DictionaryMembers.h"

namespace velmarin {

namespace {

constexpr std::string_view kNewDictionary =
    "This dictionary is a new comer.\n\n"
    "The old versio of this ditionary does not exists in the Dictionary Folder. \n"
    "So you have to decide which dictionary group to put this dictionary in. Otherwise you have to make a new "
    "dictionary group.\n"
    "After closing this dialog, a new dialog (to folder selection) will appear: \n"
    "To use a existing group, selet the appropriate folder on the dialog. To make a new group, make a new folder on "
    "the dialog.";
constexpr std::string_view kAskForGroup = "To use a existing group. selet the appropriate folder on the dialog. To "
                                          "make a new group, make a new folder on the dialog.";

} // namespace

Maintenance::Maintenance(WindowsPort& windows, Host& host, BusyState& busy, FolderItem desktop)
    : windows_(windows), host_(host), busy_(busy), desktop_(std::move(desktop)) {}

Maintenance::~Maintenance() {
    delete expDicDlg_;
    delete editDicDlg_;
}

void Maintenance::mUpDateDictionary() {
    const std::filesystem::path chosen = host_.SelectFolder("Select the folder of a dictionary.");
    if (chosen.empty())
        return;
    const FolderItem dictionary(chosen);
    if (!mSub_DicOrNot(dictionary)) {
        host_.MsgBox(kNotADictionary);
        return;
    }
    const Busy guard(busy_);
    MaintenanceResult result;
    {
        WaitDlg wait(windows_.frontWindow());
        wait.show();
        const Progress yield = [this, &wait](const WorkDone& done) {
            wait.showWhatIsWaitedFor(done.waitsFor);
            host_.Yield();
        };
        const auto [copies, unreadable] = installedCopies(windows_.pDictionaryFolder(), dictionary.Name(), yield);
        result = copies.empty() ? mInstallDictionary(dictionary, yield)
                                : updateDictionary(dictionary, copies, desktop_, yield);
        result.failures.insert(result.failures.end(), unreadable.begin(), unreadable.end());
    }
    if (!result.failures.empty())
        host_.MsgBox(failureMessage(result));
}

MaintenanceResult Maintenance::mInstallDictionary(const FolderItem& dictionary, const Progress& progress) {
    host_.MsgBox(kNewDictionary);
    const std::filesystem::path chosen =
        host_.SelectFolder(kAskForGroup, windows_.pDictionaryFolder().path(), Host::FolderChoice::MayBeNew);
    if (chosen.empty())
        return {};
    const FolderItem group(chosen);
    const bool isNew = !group.Exists() && group.CreateAsFolder();
    MaintenanceResult result = installDictionary(dictionary, group, progress);
    if (isNew && !result.failures.empty()) {
        std::error_code notEmpty;
        std::filesystem::remove(chosen, notEmpty);
    }
    for (int window = 0; window < windows_.windowCount(); ++window) {
        windows_.resetToNoGroup(window);
        host_.Yield();
    }
    return result;
}

void Maintenance::mExportDic() {
    if (expDicDlg_ && expDicDlg_->isVisible()) {
        expDicDlg_->raise();
        expDicDlg_->activateWindow();
        return;
    }
    expDicDlg_ = new ExpDicDlg(host_, busy_, windows_.frontWindow());
    expDicDlg_->show();
    expDicDlg_->fill(windows_.pDictionaryFolder());
}

void Maintenance::changeDictionariesOrder(int window, const FolderItem& group) {
    if (!editDicDlg_ || !editDicDlg_->isVisible()) // a closed one is deleted later
        windows_.prepare(editDicDlg_ = new EditDicDlg(windows_, host_, busy_));
    editDicDlg_->MainWin = window;
    editDicDlg_->setWindowState(editDicDlg_->windowState() & ~Qt::WindowMinimized);
    editDicDlg_->show();
    editDicDlg_->raise();
    editDicDlg_->activateWindow();
    editDicDlg_->pObjFol = group;
    editDicDlg_->mSet();
}

} // namespace velmarin
