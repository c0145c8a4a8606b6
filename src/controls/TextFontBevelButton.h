#pragma once

#include "controls/BevelButton.h"

#include <QPointer>

#include <string>
#include <string_view>
#include <vector>

namespace velmarin {

/// A menu button of the installed fonts. A picked font is given to all registered controls, each in the way of its kind
/// (TextTarget.h).
class TextFontBevelButton : public BevelButton {
    Q_OBJECT
  public:
    using BevelButton::BevelButton;

    /// The targets. One that has been deleted is passed over.
    std::vector<QPointer<QWidget>> ObjObject;
    /// The fonts in the order of the menu.
    std::vector<std::string> FontArray;
    /// An EditField's selection, not its whole text, takes the font.
    bool Styled = false;
    /// The last font that was applied.
    std::string CurrentFontName;
    /// For whoever uses the button.
    int Untitled = 0;

    /// Fills the menu, then emits `Open`. Called once by the window that has the button.
    virtual void Event_Open();
    virtual void Event_Action();
    /// Adds a target; one that is added twice is there twice.
    virtual void SetObjObject(QWidget* target);
    /// The font of a row by its absolute value; "System" beyond the last.
    virtual std::string GetFontName(int row) const;
    /// Gives all targets the font of the current row. Raises std::out_of_range where there are no fonts.
    virtual void ApplySelection();
    /// Picks the last row of that name, case ignored, or row 0 where there is none, and applies it.
    virtual void SelectMenuFromFontName(std::string_view name);

  signals:
    void Open();
    /// A target has been given the font.
    void Action(const std::string& name, QWidget* target);
};

} // namespace velmarin
