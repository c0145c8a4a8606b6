#pragma once

#include "controls/BevelButton.h"
#include "controls/FontChange.h"

#include <QPointer>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace velmarin {

/// A menu button that applies the chosen font or size to other controls, its targets. Base of the font button and the
/// size button.
class TextStyleBevelButton : public BevelButton {
    Q_OBJECT
  public:
    /// Fills the menu and emits `Open`. The owner calls it after connecting to `Open`. Further calls do nothing.
    void Event_Open();
    /// Runs on a pick in the menu.
    void Event_Action() { ApplySelection(); }
    /// Adds a target. One that is added twice is changed twice; one that was deleted is skipped.
    void SetObjObject(QWidget* object) { targets_.emplace_back(object); }
    /// Applies the value of the current row to all targets. Throws std::out_of_range if there are no rows.
    void ApplySelection();

    /// Whether an edit field is changed in its selection only, not as a whole.
    bool Styled = false;

  signals:
    /// Emitted at the end of `Event_Open`, for the owner to add targets.
    void Open();

  protected:
    TextStyleBevelButton(std::string_view caption, QWidget* parent);

    /// Sets the values and returns the rows of the menu.
    virtual std::vector<std::string> makeMenu() = 0;
    virtual FontChange changeFor(int row) const = 0;
    virtual void emitAction(int row, QWidget* target) = 0;
    virtual void setCurrent(int row) = 0;

  private:
    std::vector<QPointer<QWidget>> targets_;
    bool opened_ = false;
};

/// The font button: a menu of the installed font families.
class TextFontBevelButton : public TextStyleBevelButton {
    Q_OBJECT
  public:
    explicit TextFontBevelButton(QWidget* parent = nullptr);

    /// The font of a row, a negative one by its absolute value; "System" after the last row.
    std::string GetFontName(std::int32_t row) const;
    /// Picks the last row with that name (case ignored), or row 0 if there is none, and applies it.
    void SelectMenuFromFontName(std::string_view name);

    std::vector<std::string> FontArray;
    std::string CurrentFontName; ///< the last font applied
    std::int32_t Untitled = 0;   ///< reserved, unused

  signals:
    /// Emitted when the font has been applied to `target`.
    void Action(const std::string& font, QWidget* target);

  protected:
    std::vector<std::string> makeMenu() override;
    FontChange changeFor(int row) const override;
    void emitAction(int row, QWidget* target) override;
    void setCurrent(int row) override;
};

/// The size button: a menu of the sizes 9, 10, 12 and so on to 40, in points.
class TextSizeBevelButton : public TextStyleBevelButton {
    Q_OBJECT
  public:
    explicit TextSizeBevelButton(QWidget* parent = nullptr);

    /// The size of a row, a negative one by its absolute value; 10 after the last row.
    std::int32_t GetFontSize(std::int32_t row) const;
    /// Picks the row with that size, or row 0 if there is none, and applies it.
    void SelectMenuFromFontSize(std::int32_t size);

    std::vector<std::int32_t> SizeArray;
    std::int32_t CurrentFontSize = 0; ///< the last size applied

  signals:
    /// Emitted when the size has been applied to `target`.
    void Action(std::int32_t size, QWidget* target);

  protected:
    std::vector<std::string> makeMenu() override;
    FontChange changeFor(int row) const override;
    void emitAction(int row, QWidget* target) override;
    void setCurrent(int row) override;
};

} // namespace velmarin
