#pragma once

#include "files/AtomicFile.h"
#include "files/FolderItem.h"

#include <string>
#include <string_view>

class QMainWindow;

namespace velmarin {

/// What a side window needs from its main window, which outlives it.
class MainWindowPort {
  public:
    virtual ~MainWindowPort() = default;

    /// The window that the side window belongs to and is attached to.
    virtual QMainWindow* window() = 0;
    /// The folder of the group that is shown.
    virtual FolderItem pDictionaryGroupFolder() = 0;
    /// Reports whether the settings were written to `path`. A new failure is shown to the user.
    virtual void noteWritten(const std::string& path, const Result& result) = 0;

    /// The text of `SearchEF`.
    virtual void setSearchText(std::string_view text) = 0;
    /// Brings the main window to the front and gives `SearchEF` the focus; `selectAll` also selects its text.
    virtual void focusSearch(bool selectAll) = 0;
    /// Whether `OKBT` is the default button.
    virtual void setOKBTDefault(bool isDefault) = 0;

    /// Calls `mSearch` with `word` for each dictionary of the group, and lets events run after each. The caller holds a
    /// Busy guard.
    virtual void searchAll(const std::string& word) = 0;

    // `PB`, the progress bar.
    virtual void showProgress() = 0;
    virtual void setProgressMaximum(int maximum) = 0;
    /// Repaints at once.
    virtual void setProgressValue(int value) = 0;
    /// Leaves the bar on the screen, full whatever its maximum.
    virtual void showProgressFull() = 0;
    virtual void hideProgress() = 0;
};

} // namespace velmarin
