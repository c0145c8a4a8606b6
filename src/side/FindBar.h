#pragma once

#include "controls/BevelButton.h"
#include "side/SubwindowFile.h"

#include <QColor>
#include <QLineEdit>
#include <QObject>
#include <QWidget>

#include <functional>
#include <optional>

namespace velmarin {

class AnchoredLayout;

/// The colour well of the find bar: shows its fill, and is pressed like a button.
class ColorRect : public QWidget {
    Q_OBJECT
  public:
    explicit ColorRect(QWidget* parent);

    QColor FillColor() const { return fill_; }
    void setFillColor(const QColor& colour);

  signals:
    /// The mouse was let go after a press here, or the well was pressed by key.
    void pressed();

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    QColor fill_{0xFF, 0x00, 0x00};
};

/// The find bar: one entry with the buttons around it. It knows what its buttons show and when they are enabled; what a
/// word is used for is its owner's business.
class FindBar : public QObject {
    Q_OBJECT
  public:
    /// Asks for a colour, beginning with the present one; nothing where the user cancels.
    using SelectColor = std::function<std::optional<QColor>(const QColor& present)>;

    FindBar(SelectColor selectColor, QWidget* parent, AnchoredLayout& layout);

    QLineEdit* FindEF() const { return FindEF_; }
    BevelButton* FindBV() const { return FindBV_; }
    BevelButton* FindClBV() const { return FindClBV_; }
    ColorRect* FindColorRect() const { return FindColorRect_; }

    /// What the picture of `FindBV` says.
    FindTarget target() const { return target_; }
    void setTarget(FindTarget target);

    /// Black, or grey after a miss.
    void showMiss(bool missed);
    /// Selects the whole word and gives it the focus.
    void selectWord();

  signals:
    /// Return in the entry, or its button.
    void run();
    /// The word is another one.
    void wordChanged();
    /// The word was emptied by its button; `wordChanged` came before.
    void cleared();
    /// Tab in the entry: back to the main window.
    void leave();
    /// The entry has the focus, or has lost it.
    void focused(bool hasFocus);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    bool FindEF_KeyDown(int key, Qt::KeyboardModifiers modifiers);
    void FindEF_TextChange();
    void FindClBV_Action();
    void FindColorRect_MouseUp();
    void setCursorOf(QWidget* control, bool entered);

    SelectColor selectColor_;
    QWidget* FindRect_;
    BevelButton* FindBV_;
    QLineEdit* FindEF_;
    BevelButton* FindClBV_;
    ColorRect* FindColorRect_;
    FindTarget target_ = FindTarget::Find;
};

} // namespace velmarin
