#include "shell/MenuTree.h"

#include "controls/Artwork.h"

namespace velmarin {

namespace {

constexpr MenuItemPlan kFileItems[] = {
    {"Cons_FileNew", 0, "New", "Ctrl+N"},
    {"UntitledSeparator1", 0, "-", ""},
    {"FileQuit", 0, "Quit", "Ctrl+Q"},
};

constexpr MenuItemPlan kEditItems[] = {
    {"EditUndo", 0, "Undo", "Ctrl+Z"},   {"UntitledMenu1", 0, "-", ""},
    {"EditCut", 0, "Cut", "Ctrl+X"},     {"EditCopy", 0, "Copy", "Ctrl+C"},
    {"EditPaste", 0, "Paste", "Ctrl+V"}, {"EditClear", 0, "削除", ""},
    {"UntitledMenu0", 0, "-", ""},       {"EditSelectAll", 0, "SelectAll", "Ctrl+A"},
};

constexpr MenuItemPlan kTabPanelItems[] = {
    {"TabBackNext", 0, "Back", "Ctrl+Shift+Left"},
    {"TabBackNext", 1, "Next", "Ctrl+Shift+Right"},
    {"TabTopTail", 0, "First panel", "Ctrl+Shift+Up"},
    {"TabTopTail", 1, "Last panel", "Ctrl+Shift+Down"},
};

constexpr MenuItemPlan kImageItems[] = {
    {"ImageBackNext", 0, "Back", "Ctrl+Left"},
    {"ImageBackNext", 1, "Next", "Ctrl+Right"},
    {"ImageUpDown", 0, "Up", "Ctrl+Up"},
    {"ImageUpDown", 1, "Down", "Ctrl+Down"},
    {"UntitledSeparator0", 0, "-", ""},
    {"ImageHistory", 0, "History-Back", "Ctrl+Alt+Left; Alt+Left"},
    {"ImageHistory", 1, "History-Next", "Ctrl+Alt+Right; Alt+Right"},
};

constexpr MenuItemPlan kDictionaryItems[] = {
    {"SpecialInstall", 0, "Install/Up date", ""},
    {"SpecialExport", 0, "Export", ""},
    {"SpecialChangedictionaryorder", 0, "Change dictionaries order", ""},
    {"UntitledSeparator", 0, "-", ""},
    {"SpecialOpenDictionaryFolder", 0, "Open DictionaryFolder", ""},
    {"SpecialCheckDictionaires", 0, "Check Dictionaires", ""},
};

constexpr MenuItemPlan kSubwindowItems[] = {
    {"SubwinDic", 0, "Dictionary", "Ctrl+D", DicApp},
    {"SubwinFind", 0, "Find", "Ctrl+F", Find},
};

constexpr MenuItemPlan kMainWindowItems[] = {
    {"WinItem", 0, kWinItemWithoutGroup, "Ctrl+0"},
};

constexpr MenuPlan kMenus[] = {
    {"FileMenu", "File", kFileItems},
    {"EditMenu", "Edit", kEditItems},
    {"TBpanel", "Tab panel", kTabPanelItems},
    {"Image", "Image", kImageItems},
    {"Special", "Dictionary", kDictionaryItems},
    {"SubWin", "Subwindow", kSubwindowItems},
    {"MainW", "Mainwindow", kMainWindowItems},
};

} // namespace

std::span<const MenuPlan> menuTree() {
    return kMenus;
}

} // namespace velmarin
