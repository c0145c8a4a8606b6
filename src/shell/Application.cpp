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

/// A menu text as the user sees it, without the mark of its letter.
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
        tell(receiver, "There is not enough memory for this.");
    } catch (const std::exception& failure) {
        tell(receiver, failure.what());
    }
    return false;
}

void Application::tell(const QObject* receiver, const std::string& failure) {
    const QString doing = taskOf(receiver);
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
