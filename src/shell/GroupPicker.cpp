#include "shell/GroupPicker.h"

#include "controls/AnchoredLayout.h"
#include "controls/PopupMenu.h"
#include "platform/Busy.h"
#include "platform/QtText.h"
#include "shell/WindowListPort.h"
#include "shell/WindowServices.h"
#include "store/GroupList.h"
#include "text/LetterCase.h"

namespace velmarin {

namespace {

std::string whereDictionariesBelong(const FolderItem& dictionaryFolder) {
    const std::string path = dictionaryFolder.path().string();
    if (dictionaryFolder.Exists() && !listNames(dictionaryFolder.path()))
        return "The folder of dictionaries could not be read: " + path;
    return "There are no dictionaries yet. A folder in " + path +
           " is a group, and a folder in a group is a dictionary.";
}

} // namespace

GroupPicker::GroupPicker(GroupPort& window, const WindowServices& services, QWidget* parent, AnchoredLayout& layout)
    : QObject(parent), window_(window), busy_(services.busy), windows_(services.windows),
      pDictionaryFolder_(services.pDictionaryFolder), pSelectedDicTag_(services.pSelectedDicTag),
      SelectDicFolPU_(new PopupMenu(parent)) {
    SelectDicFolPU_->setObjectName(QStringLiteral("SelectDicFolPU"));
    SelectDicFolPU_->setLabel("Dictionary group");
    layout.add(SelectDicFolPU_, QRect(11, 3, 160, 20), Anchor::Left | Anchor::Top);
    connect(SelectDicFolPU_, &PopupMenu::aboutToChoose, this, &GroupPicker::SelectDicFolPU_MouseEnter);
    connect(SelectDicFolPU_, &PopupMenu::MouseDown, this, [this] { window_.SelectDicFolPU_MouseDown(); });
    connect(SelectDicFolPU_, &PopupMenu::Change, this, &GroupPicker::SelectDicFolPU_Change);
}

void GroupPicker::mMakeSelectDicPU() {
    SelectDicFolPU_->DeleteAllRows();
    for (const GroupRow& row : listGroups(pDictionaryFolder_))
        SelectDicFolPU_->AddRow(row.name, std::any(row.folder));
    showHelp();
}

void GroupPicker::pickOnlyRow() {
    if (SelectDicFolPU_->rowCount() == 1)
        SelectDicFolPU_->setListIndex(0);
}

bool GroupPicker::pickNamed(const std::string& name) {
    for (int row = 0; row < SelectDicFolPU_->rowCount(); ++row)
        if (equalStrings(SelectDicFolPU_->List(row), name)) {
            pSelectedDicIndex_ = SelectDicFolPU_->ListIndex();
            SelectDicFolPU_->setListIndex(row);
            return true;
        }
    return false;
}

int GroupPicker::rowCount() const {
    return SelectDicFolPU_->rowCount();
}

WindowPick GroupPicker::pick() const {
    const int row = SelectDicFolPU_->ListIndex();
    return {row, row < 0 ? std::string() : SelectDicFolPU_->List(row)};
}

FolderItem GroupPicker::pickedFolder() const {
    const std::any tag = SelectDicFolPU_->Tag(SelectDicFolPU_->ListIndex());
    const auto* folder = std::any_cast<FolderItem>(&tag);
    return folder == nullptr ? FolderItem() : *folder;
}

void GroupPicker::dropPick() {
    SelectDicFolPU_->setListIndexQuietly(-1);
    pSelectedDicIndex_ = -1;
}

void GroupPicker::showHelp() {
    const bool empty = rowCount() == 0;
    SelectDicFolPU_->setToolTip(toQ(empty ? whereDictionariesBelong(pDictionaryFolder_) : pSelectedDicTag_));
}

void GroupPicker::SelectDicFolPU_MouseEnter() {
    showHelp();
    // A pick that waits for the end of a search is shown already, but must not be restored.
    if (!busy_.busy())
        pSelectedDicIndex_ = SelectDicFolPU_->ListIndex();
}

void GroupPicker::SelectDicFolPU_Change() {
    const int row = SelectDicFolPU_->ListIndex();
    if (row < 0)
        return;
    if (busy_.busy()) {
        busy_.whenFree([this] { SelectDicFolPU_Change(); });
        return;
    }
    // Each window counts the rows of its own pop-up, so the folder is compared as well.
    if (windows_.SelectedDic().contains(row) || windows_.isShown(pickedFolder())) {
        SelectDicFolPU_->setListIndexQuietly(pSelectedDicIndex_);
        return;
    }
    const bool opened = window_.changeGroup(pickedFolder());
    windows_.rebuildSelectedDic();
    pSelectedDicTag_ = takenGroupsHelp(windows_.SelectedDic(), SelectDicFolPU_->rowCount());
    pSelectedDicIndex_ = SelectDicFolPU_->ListIndex();
    showHelp();
    if (opened)
        window_.groupChanged();
}

} // namespace velmarin
