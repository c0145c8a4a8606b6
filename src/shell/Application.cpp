#include "shell/Application.h"

#include "platform/QtText.h"

#include <QAction>
#include <QMenu>

#include <exception>
#include <iostream>
#include <new>

namespace velmarin {

namespace {

/// What a user knows the receiver of an event as; empty where that is nothing.
QString nameOf(const QObject* receiver) {
    if (const auto* action = qobject_cast<const QAction*>(receiver))
        return action->text();
    if (const auto* menu = qobject_cast<const QMenu*>(receiver))
        return menu->activeAction() == nullptr ? menu->title() : menu->activeAction()->text();
    const auto* widget = qobject_cast<const QWidget*>(receiver);
    return widget == nullptr ? QString() : widget->accessibleName();
}

} // namespace

bool Application::notify(QObject* receiver, QEvent* event) {
    try {
        return QApplication::notify(receiver, event);
    } catch (const std::bad_alloc&) {
        tell(receiver, "There is not enough memory for this.");
    } catch (const std::exception& failure) {
        tell(receiver, failure.what());
    }
    return false;
}

void Application::tell(const QObject* receiver, const std::string& failure) {
    const QString doing = nameOf(receiver);
    const std::string what =
        doing.isEmpty() ? failure : "\"" + fromQ(doing) + "\" could not be finished.\n\n" + failure;
    // The message box pumps events itself: a failure that repeats at every paint must not stack up boxes.
    if (host_ == nullptr || telling_) {
        std::cerr << "velmarin: " << what << '\n';
        return;
    }
    telling_ = true;
    host_->MsgBox(what);
    telling_ = false;
}

} // namespace velmarin
