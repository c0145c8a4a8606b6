#pragma once

namespace velmarin {

/// Shows what a SearchModel tells it to: the check box and the progress bar of one main window.
class SearchDisplay {
  public:
    virtual ~SearchDisplay() = default;

    virtual void showSeparately(bool separately) = 0;
    /// Shows the bar at 0.
    virtual void showProgress(int maximum) = 0;
    /// Repaints at once.
    virtual void setProgress(int value) = 0;
    /// Fills the bar and hides it.
    virtual void hideProgress() = 0;
};

} // namespace velmarin
