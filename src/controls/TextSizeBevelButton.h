#pragma once

#include "controls/BevelButton.h"

#include <QPointer>

#include <vector>

namespace velmarin {

/// A menu button of text sizes in points, the twin of TextFontBevelButton.
class TextSizeBevelButton : public BevelButton {
    Q_OBJECT
  public:
    using BevelButton::BevelButton;

    /// The sizes in the order of the menu: 9, then the even ones from 10 to 40.
    std::vector<int> SizeArray;
    /// The targets. One that has been deleted is passed over.
    std::vector<QPointer<QWidget>> objObject;
    /// An EditField's selection, not its whole text, takes the size.
    bool Styled = false;
    /// The last size that was applied.
    int CurrentFontSize = 0;

    /// Fills the menu, then emits `Open`. Called once by the window that has the button.
    virtual void Event_Open();
    virtual void Event_Action();
    /// Adds a target; one that is added twice is there twice.
    virtual void SetObjObject(QWidget* target);
    /// The size of a row by its absolute value; 10 beyond the last.
    virtual int GetFontSize(int row) const;
    /// Gives all targets the size of the current row. Raises std::out_of_range before `Event_Open`.
    virtual void ApplySelection();
    /// Picks the row of that size, or row 0 where there is none, and applies it.
    virtual void SelectMenuFromFontSize(int size);

  signals:
    void Open();
    /// A target has been given the size.
    void Action(int size, QWidget* target);
};

} // namespace velmarin
