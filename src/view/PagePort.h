#pragma once

namespace velmarin {

/// The pages of a main window, as the page image window steps them. Held weakly; the owner drops it when its window
/// closes.
class PagePort {
  public:
    virtual ~PagePort() = default;

    /// Whether the window is open and its tab number `tab` shows a dictionary.
    virtual bool hasTab(int tab) const = 0;
    /// Direction 1 is a page forward, any other a page back.
    virtual void mNextBack(int direction, int tab) = 0;
    /// 0 is a screenful up, 1 one down.
    virtual void mUpDown(int direction, int tab) = 0;
};

} // namespace velmarin
