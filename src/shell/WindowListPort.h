#pragma once

#include "search/SelectedDic.h"

#include <string>
#include <vector>

class QWidget;

namespace velmarin {

class FolderItem;
class HitModel;

/// What a main window and its parts need to know of all main windows. A window is identified by its position in
/// `MainWinList`.
class WindowListPort {
  public:
    virtual ~WindowListPort() = default;

    /// The group rows in use, as of the last rebuild.
    virtual const SelectedDicRows& SelectedDic() const = 0;
    /// Reads the rows in use from the pop-ups of all windows.
    virtual void rebuildSelectedDic() = 0;
    /// Whether a window shows this very folder, whatever row or link it was picked by.
    virtual bool isShown(const FolderItem& group) const = 0;

    /// The captions of the rows of the menu "Mainwindow".
    virtual const std::vector<std::string>& winItems() const = 0;
    virtual void setWinItemText(int window, const std::string& text) = 0;

    /// The hits of the first window, whose list shows those of all.
    virtual HitModel& defaultHits() const = 0;
    /// Whether no other main window is visible.
    virtual bool isLastVisible(const QWidget& window) const = 0;
    /// The window has come to the front: it is `ActiveMainWin`.
    virtual void activated(int window) = 0;
};

} // namespace velmarin
