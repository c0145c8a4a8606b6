#pragma once

#include <string>

namespace velmarin {

/// Shows what a HitModel tells it to: the list `LB` and the label `InfoST` of one main window.
class HitDisplay {
  public:
    virtual ~HitDisplay() = default;

    /// Makes the list visible, with the tabs to its right.
    virtual void showList() = 0;
    virtual void clearRows() = 0;
    virtual void addRow(const std::string& text) = 0;
    /// Selects a row and gives the list the keyboard.
    virtual void selectRow(int row) = 0;
    /// Shows a message about the page, with the reason in its tool tip; an empty text removes it.
    virtual void showInfo(const std::string& text, const std::string& reason) = 0;
};

} // namespace velmarin
