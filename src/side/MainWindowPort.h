#pragma once

#include "files/FolderItem.h"
#include "files/Result.h"

#include <string>
#include <string_view>

class QMainWindow;

namespace velmarin {

/// What a side window needs of its main window, which implements it and outlives the side window.
class MainWindowPort {
  public:
    virtual ~MainWindowPort() = default;

    /// The window itself: the side window belongs to it, hangs at it and follows it.
    virtual QMainWindow* window() = 0;
    /// The folder of the group that is shown, in which the side window keeps its settings.
    virtual FolderItem pDictionaryGroupFolder() = 0;
    /// Takes note of the outcome of writing the settings to `path`, and tells the user of a failure if that is new.
    virtual void noteWritten(const std::string& path, const Result& result) = 0;

    /// The text of `SearchEF`.
    virtual void setSearchText(std::string_view text) = 0;
    /// Brings the main window to the front and gives `SearchEF` the focus, all of its text selected if so wished.
    virtual void focusSearch(bool selectAll) = 0;
    /// Whether `OKBT` is the default button.
    virtual void setOKBTDefault(bool isDefault) = 0;

    /// `mSearch` of `word` for each dictionary of the group, letting events run after each. The caller holds a Busy
    /// guard.
    virtual void searchAll(const std::string& word) = 0;

    // `PB`, the progress bar.
    virtual void showProgress() = 0;
    virtual void setProgressMaximum(int maximum) = 0;
    /// Repaints at once.
    virtual void setProgressValue(int value) = 0;
    /// Leaves the bar up and full, whatever its maximum.
    virtual void showProgressFull() = 0;
    virtual void hideProgress() = 0;
};

} // namespace velmarin
