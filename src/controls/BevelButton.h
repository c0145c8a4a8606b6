#pragma once

#include <QAbstractButton>
#include <QPointer>

#include <string>
#include <string_view>
#include <vector>

namespace velmarin {

class MenuPopup;
class RowModel;

/// A small flat button: a plain one (`clicked`), one that stays pressed (`setToggle`, then `isChecked`), or one that
/// opens a menu (`rowChosen`). It takes the focus by Tab only, so a click does not interrupt typing.
///
/// The menu's rows count from 0; `MenuValue` is the current one. Changes made by code emit nothing.
class BevelButton : public QAbstractButton {
    Q_OBJECT
  public:
    explicit BevelButton(QWidget* parent = nullptr);
    explicit BevelButton(std::string_view caption, QWidget* parent = nullptr);
    ~BevelButton() override;

    std::string Caption() const;
    void setCaption(std::string_view caption);

    /// Makes each click check or uncheck the button. `setChecked` does the same from code.
    void setToggle(bool toggle) { setCheckable(toggle); }

    /// Marks it as a menu button even if it has no rows. Adding a row does the same.
    void setHasMenu(bool hasMenu);
    bool hasMenu() const { return hasMenu_; }

    void AddRow(std::string text);
    void AddSeparator();
    /// Replaces all rows.
    void setRows(std::vector<std::string> texts);
    void DeleteAllRows();
    /// Removes a row, if it exists. Later rows move up, and `MenuValue` with them. If the row was the current one,
    /// `MenuValue` is no longer set.
    void RemoveRow(int row);
    int rowCount() const;
    /// The text exactly as it was added; empty for separators and missing rows.
    std::string List(int row) const;

    /// 0 if it was not set since the rows were last deleted.
    int MenuValue() const { return menuValue_; }
    /// Clamps to the existing rows, unless `setKeepsAnyValue`. Does nothing without rows.
    void setMenuValue(int row);
    bool menuValueSet() const { return menuValueSet_; }
    /// Allows a `MenuValue` without a row: the button then shows its caption, and the open menu marks no row.
    void setKeepsAnyValue(bool keeps) { keepsAnyValue_ = keeps; }

    /// Makes the button show its current row, if one is set, instead of its caption.
    void setShowsCurrentRow(bool shows);

    /// The text on the button, in full and as painted.
    QString wholeText() const;
    QString shownText() const;

    /// Opens the menu, as Space does. Does nothing without rows or if the menu is already open.
    void openMenu();
    bool menuIsOpen() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  signals:
    /// Emitted on every pick by the user, even of the current row. `MenuValue` is the picked row.
    void rowChosen(int row);

  protected:
    bool event(QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    void closePopup();
    void choose(int row);
    void rowsChanged();
    void currentRowChanged();
    bool hasCurrentRow() const;
    QRect textRect() const;
    QFont textFont() const;

    RowModel* rows_;
    QPointer<MenuPopup> popup_;
    int menuValue_ = 0;
    bool menuValueSet_ = false;
    bool keepsAnyValue_ = false;
    bool hasMenu_ = false;
    bool showsCurrentRow_ = false;
};

} // namespace velmarin
