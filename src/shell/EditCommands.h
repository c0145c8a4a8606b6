#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>

#include <string_view>

namespace velmarin {

/// The standard items of the menu "Edit". They act on the text field that has the focus; or, if a click on the menu bar
/// has just brought another window to the front, on the field that had it before the click. Needs a QApplication.
class EditCommands : public QObject {
    Q_OBJECT

  public:
    EditCommands();

    static bool handles(std::string_view name);
    /// Nothing happens if no text field has the focus.
    void run(std::string_view name);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void focusChanged(QWidget* old, QWidget* now);

    QPointer<QWidget> lastFocus_;
    /// Set from a click on the menu bar that moved the focus until the next input outside the menus.
    QPointer<QWidget> focusBeforeClick_;
};

} // namespace velmarin
