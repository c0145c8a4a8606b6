#include "platform/EventLoopPost.h"

#include <QCoreApplication>
#include <QEvent>

#include <memory>
#include <utility>

namespace velmarin {

namespace {

struct ActionEvent : QEvent {
    explicit ActionEvent(BusyState::Action action) : QEvent(QEvent::User), action(std::move(action)) {}
    BusyState::Action action;
};

/// Runs what is posted to it. What it throws passes through the event loop like any handler's exception.
struct ActionRunner : QObject {
    bool event(QEvent* event) override {
        if (event->type() != QEvent::User)
            return QObject::event(event);
        static_cast<ActionEvent*>(event)->action();
        return true;
    }
};

} // namespace

BusyState::Post eventLoopPost() {
    return [runner = std::make_shared<ActionRunner>()](BusyState::Action action) {
        QCoreApplication::postEvent(runner.get(), new ActionEvent(std::move(action)));
    };
}

} // namespace velmarin
