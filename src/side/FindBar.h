#pragma once

#include "side/SubwindowFile.h"

#include <QColor>
#include <QObject>

#include <functional>
#include <optional>

class QLineEdit;

namespace velmarin {

class AnchoredLayout;
class BevelButton;
class ColorRect;

/// The find bar: a text field with the buttons around it. What its word is used for is decided elsewhere.
class FindBar : public QObject {
    Q_OBJECT
  public:
    /// Asks for a color, starting from the present one; nullopt if the user cancels.
    using SelectColor = std::function<std::optional<QColor>(const QColor& present)>;

    FindBar(SelectColor selectColor, QWidget* parent, AnchoredLayout& layout);

    QLineEdit* FindEF() const { return FindEF_; }
    BevelButton* FindBV() const { return FindBV_; }
    BevelButton* FindClBV() const { return FindClBV_; }
    ColorRect* FindColorRect() const { return FindColorRect_; }

    /// The picture and the tool tip of `FindBV`.
    void showTarget(FindTarget target);
    void showWord(const QString& word);
    /// Black, or gray after a miss.
    void showMiss(bool missed);
    /// Selects the whole word and gives it the focus.
    void selectWord();

  signals:
    /// Return in the entry, or a click on `FindBV`.
    void findRequested();
    void wordChanged(const QString& word);
    /// A click on `FindClBV`.
    void clearRequested();
    /// Tab in the entry: the focus is to go to the main window.
    void leaveRequested();
    void colorSelected(const QColor& color);
    /// The entry has gained the focus, or lost it.
    void focusChanged(bool hasFocus);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void placeControls(AnchoredLayout& layout);
    bool FindEF_KeyDown(int key, Qt::KeyboardModifiers modifiers);
    void FindEF_TextChange(const QString& word);
    void FindColorRect_MouseUp();
    void setCursorOf(QWidget* control, bool entered);

    SelectColor selectColor_;
    QWidget* FindRect_;
    BevelButton* FindBV_;
    QLineEdit* FindEF_;
    BevelButton* FindClBV_;
    ColorRect* FindColorRect_;
};

} // namespace velmarin
