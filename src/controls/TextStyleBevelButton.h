#pragma once

#include "controls/BevelButton.h"
#include "controls/FontChange.h"

#include <QPointer>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace velmarin {

/// What the font button and the size button have in common: a menu of values, and controls that take the chosen one.
class TextStyleBevelButton : public BevelButton {
    Q_OBJECT
  public:
    /// Makes the menu and emits `Open`. The owner calls it once it has connected to that; it works once.
    void Event_Open();
    /// What a pick in the menu does: `ApplySelection`.
    void Event_Action() { ApplySelection(); }
    /// Adds a control to those that take the value. Added twice, it takes it twice; one that has died is passed over.
    void SetObjObject(QWidget* object) { targets_.emplace_back(object); }
    /// Gives all targets the value of the current row. Without rows there is none: std::out_of_range.
    void ApplySelection();

    /// Edit fields take the value for their selection alone; otherwise for the whole field.
    bool Styled = false;

  signals:
    /// At the end of `Event_Open`: the time to register targets.
    void Open();

  protected:
    TextStyleBevelButton(std::string_view caption, QWidget* parent);

    virtual std::vector<std::string> makeRows() = 0;
    virtual FontChange styleOf(int row) const = 0;
    virtual void tellApplied(int row, QWidget* target) = 0;
    virtual void keepCurrent(int row) = 0;

  private:
    std::vector<QPointer<QWidget>> targets_;
    bool opened_ = false;
};

/// Chooses among the installed fonts.
class TextFontBevelButton : public TextStyleBevelButton {
    Q_OBJECT
  public:
    explicit TextFontBevelButton(QWidget* parent = nullptr);

    /// The row's font, negative rows by their absolute value; "System" beyond the last.
    std::string GetFontName(std::int32_t row) const;
    /// Picks the last row of that name, case ignored, or the first of all where there is none, and applies it.
    void SelectMenuFromFontName(std::string_view name);

    std::vector<std::string> FontArray;
    std::string CurrentFontName; ///< the last font applied
    std::int32_t Untitled = 0;   ///< reserved: nothing reads or writes it

  signals:
    /// `target` has been given the font.
    void Action(const std::string& font, QWidget* target);

  protected:
    std::vector<std::string> makeRows() override;
    FontChange styleOf(int row) const override;
    void tellApplied(int row, QWidget* target) override;
    void keepCurrent(int row) override;
};

/// Chooses among the sizes 9 and 10 to 40 in steps of 2, in points.
class TextSizeBevelButton : public TextStyleBevelButton {
    Q_OBJECT
  public:
    explicit TextSizeBevelButton(QWidget* parent = nullptr);

    /// The row's size, negative rows by their absolute value; 10 beyond the last, which is not the size at start.
    std::int32_t GetFontSize(std::int32_t row) const;
    /// Picks the row of that size, or the first of all where there is none, and applies it.
    void SelectMenuFromFontSize(std::int32_t size);

    std::vector<std::int32_t> SizeArray;
    std::int32_t CurrentFontSize = 0; ///< the last size applied

  signals:
    /// `target` has been given the size.
    void Action(std::int32_t size, QWidget* target);

  protected:
    std::vector<std::string> makeRows() override;
    FontChange styleOf(int row) const override;
    void tellApplied(int row, QWidget* target) override;
    void keepCurrent(int row) override;
};

} // namespace velmarin
