#pragma once

#include "shell/WindowListPort.h"

#include <memory>
#include <string>
#include <vector>

namespace velmarin {

class MainWindow;

/// All main windows, and what is in use in them.
class WindowList : public WindowListPort {
  public:
    WindowList();
    ~WindowList() override;

    /// In order of making. A closed window remains, and answers as one without a pick.
    const std::vector<std::unique_ptr<MainWindow>>& MainWinList() const { return windows_; }
    MainWindow* ActiveMainWin = nullptr;

    /// Adds a window, and a row for it to the menu "Mainwindow".
    MainWindow& add(std::unique_ptr<MainWindow> window);
    /// Raises NilObjectException if there is no such window.
    MainWindow& window(int index) const;
    int count() const { return static_cast<int>(windows_.size()); }

    const SelectedDicRows& SelectedDic() const override { return selectedDic_; }
    void rebuildSelectedDic() override;
    bool isShown(const FolderItem& group) const override;
    const std::vector<std::string>& winItems() const override { return winItems_; }
    void setWinItemText(int window, const std::string& text) override;
    HitModel& defaultHits() const override;
    bool isLastVisible(const QWidget& window) const override;
    void activated(int window) override;

  private:
    void showWinItems();

    std::vector<std::unique_ptr<MainWindow>> windows_;
    SelectedDicRows selectedDic_;
    std::vector<std::string> winItems_;
};

} // namespace velmarin
