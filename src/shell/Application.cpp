#include "shell/Application.h"

#include "platform/QtText.h"

#include <QAbstractButton>
#include <QAction>
#include <QMenu>

#include <exception>
#include <iostream>
#include <new>

namespace velmarin {

namespace {

/// A menu text as the user sees it.
QString withoutMnemonic(QString text) {
    for (qsizetype mark = text.indexOf(u'&'); mark >= 0; mark = text.indexOf(u'&', mark + 1))
        text.remove(mark, 1);
    return text;
}

} // namespace

QString taskOf(const QObject* receiver) {
    if (const auto* action = qobject_cast<const QAction*>(receiver))
        return withoutMnemonic(action->text());
    if (const auto* menu = qobject_cast<const QMenu*>(receiver))
        return withoutMnemonic(menu->activeAction() == nullptr ? menu->title() : menu->activeAction()->text());
    // A row of a button's menu belongs to the button.
    for (const QObject* each = receiver; each != nullptr; each = each->parent())
        if (const auto* button = qobject_cast<const QAbstractButton*>(each))
            return button->text().isEmpty() ? button->accessibleName() : button->text();
    return {};
}

Application::Application(int& argc, char** argv) : QApplication(argc, argv) {
    installEventFilter(&altKeys_);
}

bool Application::notify(QObject* receiver, QEvent* event) {
    try {
        return QApplication::notify(receiver, event);
    } catch (const std::bad_alloc&) {
        report(receiver, "There is not enough memory for this.");
    } catch (const std::exception& failure) {
        report(receiver, failure.what());
    }
    return false;
}

void Application::report(const QObject* receiver, const std::string& failure) {
    const QString task = taskOf(receiver);
    const std::string what = task.isEmpty() ? failure : "\"" + fromQ(task) + "\" could not be finished.\n\n" + failure;
    // The message box runs an event loop: a failure that repeats at every paint must not stack up boxes.
    if (host_ == nullptr || reporting_) {
        std::cerr << "velmarin: " << what << '\n';
        return;
    }
    reporting_ = true;
    host_->MsgBox(what);
    reporting_ = false;
}

} // namespace velmarin
