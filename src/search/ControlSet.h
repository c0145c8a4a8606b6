#pragma once

#include "platform/Host.h"

#include <QLabel>
#include <QWidget>

#include <string>

namespace velmarin {

class AnchoredLayout;
class BevelButton;
class SmartCanvas;

/// The page controls of one tab, made on its panel and owned by it. Set n belongs to tab n.
struct ControlSet {
    BevelButton* BVback = nullptr;
    BevelButton* BVnext = nullptr;
    BevelButton* BVup = nullptr;
    BevelButton* BVdown = nullptr;
    BevelButton* BVjump = nullptr;
    BevelButton* BVHistory = nullptr;
    BevelButton* BVErrata = nullptr;
    BevelButton* BVimage = nullptr;
    QLabel* ImageNameST = nullptr;
    SmartCanvas* MainCanvas = nullptr;

    /// Makes the ten controls of set `index` on `panel` at the places of the layout, all disabled but the canvas.
    static ControlSet make(int index, QWidget* panel, Host& host);

    /// As at the first start: nothing shown, nothing listed, nothing to press.
    void reset() const;
    /// Tells which page is shown, in tool tips and to screen readers. `problem` says why it is not shown or what is
    /// damaged in it; it is empty if all is well.
    void describePage(const std::string& dictionary, const std::string& page, const std::string& problem) const;
    /// The three fits, and none chosen.
    void resetImageSize() const;
    /// The row "Delete" and the separator, and no page.
    void resetHistory() const;
    /// The seven controls that need pages; the errata menu goes by the last search.
    void enablePaging(bool enabled) const;
};

} // namespace velmarin
