#include "controls/BevelButtonAccessible.h"

#include "controls/BevelButton.h"
#include "controls/QtText.h"

#include <QAccessible>
#include <QAccessibleWidget>

namespace velmarin {

namespace {

class BevelButtonAccessible : public QAccessibleWidget {
  public:
    explicit BevelButtonAccessible(BevelButton* button) : QAccessibleWidget(button, QAccessible::Button) {}

    QAccessible::Role role() const override {
        if (button()->hasMenu())
            return QAccessible::ButtonMenu;
        return button()->isCheckable() ? QAccessible::CheckBox : QAccessible::Button;
    }

    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.hasPopup = button()->hasMenu();
        state.expanded = button()->menuIsOpen();
        state.checkable = button()->isCheckable();
        state.checked = button()->isChecked();
        state.pressed = button()->isDown();
        return state;
    }

    QString text(QAccessible::Text kind) const override {
        if (kind == QAccessible::Value && button()->hasMenu() && button()->menuValueSet())
            return toQ(button()->List(button()->MenuValue()));
        QString text = QAccessibleWidget::text(kind);
        if (kind != QAccessible::Name)
            return text;
        // The caption comes first also while the button shows its current row in place of it.
        const QString name = text.isEmpty() ? button()->text() : text;
        const QString shown = button()->wholeText();
        return shown == button()->text() ? name : name + QLatin1String(": ") + shown;
    }

    QStringList actionNames() const override {
        if (!button()->isEnabled())
            return {};
        return {button()->hasMenu() ? showMenuAction() : button()->isCheckable() ? toggleAction() : pressAction()};
    }

    void doAction(const QString& action) override {
        if (!actionNames().contains(action))
            return;
        if (action == showMenuAction())
            button()->openMenu();
        else
            button()->click();
    }

  private:
    BevelButton* button() const { return static_cast<BevelButton*>(widget()); }
};

QAccessibleInterface* make(const QString& className, QObject* object) {
    if (className != QLatin1String(BevelButton::staticMetaObject.className()))
        return nullptr;
    auto* button = qobject_cast<BevelButton*>(object);
    return button != nullptr ? new BevelButtonAccessible(button) : nullptr;
}

} // namespace

void installBevelButtonAccessibility() {
    QAccessible::installFactory(make); // which looks for one it has already
}

} // namespace velmarin
