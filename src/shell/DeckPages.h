#pragma once

#include "view/PagePort.h"

namespace velmarin {

class PageDeck;
struct WindowState;

/// The pages of a main window, as the page image window steps them.
class DeckPages : public PagePort {
  public:
    DeckPages(const WindowState& state, PageDeck& deck) : state_(state), deck_(deck) {}

    bool hasTab(int tab) const override;
    void mNextBack(int direction, int tab) override;
    void mUpDown(int direction, int tab) override;

  private:
    const WindowState& state_;
    PageDeck& deck_;
};

} // namespace velmarin
