#include "controls/AltKeyFilter.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QTextEdit>

namespace velmarin {

namespace {

bool typesByAlt(const QKeyEvent& key) {
    // Some keyboards report AltGr, which does type, as Alt with Ctrl.
    const Qt::KeyboardModifiers modifiers = key.modifiers();
    return (modifiers & (Qt::AltModifier | Qt::MetaModifier)) != 0 && (modifiers & Qt::ControlModifier) == 0 &&
           !key.text().isEmpty() && key.text().front().isPrint();
}

} // namespace

bool AltKeyFilter::eventFilter(QObject* watched, QEvent* event) {
    const bool field = qobject_cast<QLineEdit*>(watched) != nullptr || qobject_cast<QTextEdit*>(watched) != nullptr;
    if (event->type() != QEvent::KeyPress || !field || !typesByAlt(*static_cast<QKeyEvent*>(event)))
        return false;
    event->ignore(); // a parent may use the key
    return true;
}

} // namespace velmarin
