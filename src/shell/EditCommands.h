#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>

#include <functional>

class QLineEdit;
class QTextEdit;

namespace velmarin {

/// The standard items of the menu "Edit". They act on the text field that has the focus; or, if a click on the menu bar
/// has just brought another window to the front, on the field that had it before the click. Without a field they do
/// nothing. Needs a QApplication.
class EditCommands : public QObject {
    Q_OBJECT

  public:
    EditCommands();

  public slots:
    void EditUndo_Action(int index);
    void EditCut_Action(int index);
    void EditCopy_Action(int index);
    void EditPaste_Action(int index);
    void EditClear_Action(int index);
    void EditSelectAll_Action(int index);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void apply(const std::function<void(QLineEdit&)>& toField, const std::function<void(QTextEdit&)>& toText);
    void focusChanged(QWidget* old, QWidget* now);

    QPointer<QWidget> lastFocus_;
    /// Set from a click on the menu bar that moved the focus until the next input outside the menus.
    QPointer<QWidget> focusBeforeClick_;
};

} // namespace velmarin
