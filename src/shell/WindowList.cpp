#include "shell/WindowList.h"

#include "shell/MainWindow.h"
#include "shell/MenuBar.h"
#include "shell/MenuTree.h"
#include "text/NilObjectException.h"

#include <algorithm>

namespace velmarin {

// The menu has the first window's row before the window exists.
WindowList::WindowList() : winItems_{std::string(kWinItemWithoutGroup)} {}

WindowList::~WindowList() = default;

MainWindow& WindowList::add(std::unique_ptr<MainWindow> window) {
    window->pMyIndex = count();
    windows_.push_back(std::move(window));
    if (windows_.size() > winItems_.size()) {
        winItems_.emplace_back(kWinItemWithoutGroup);
        showWinItems();
    }
    return *windows_.back();
}

MainWindow& WindowList::window(int index) const {
    if (index < 0 || index >= count())
        throw NilObjectException("There is no main window number " + std::to_string(index) + ".");
    return *windows_[static_cast<std::size_t>(index)];
}

void WindowList::rebuildSelectedDic() {
    std::vector<WindowPick> picks;
    for (const auto& each : windows_)
        picks.push_back(each->parts().groupPicker->pick());
    selectedDic_ = rowsInUse(picks);
}

bool WindowList::isShown(const FolderItem& group) const {
    return std::any_of(windows_.begin(), windows_.end(), [&group](const auto& each) {
        return each->hasGroup() && each->group().pDictionaryGroupFolder.isSameItem(group);
    });
}

void WindowList::setWinItemText(int window, const std::string& text) {
    winItems_.at(static_cast<std::size_t>(window)) = text;
    showWinItems();
}

void WindowList::showWinItems() {
    for (const auto& each : windows_)
        each->menus().setWindowItems(winItems_);
}

HitModel& WindowList::defaultHits() const {
    return windows_.front()->model().hits;
}

bool WindowList::isLastVisible(const QWidget& window) const {
    return std::none_of(windows_.begin(), windows_.end(),
                        [&window](const auto& each) { return each.get() != &window && each->isVisible(); });
}

void WindowList::activated(int window) {
    ActiveMainWin = &this->window(window);
}

} // namespace velmarin
