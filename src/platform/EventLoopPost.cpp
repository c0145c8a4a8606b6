#include "platform/EventLoopPost.h"

#include <QCoreApplication>

#include <utility>

namespace velmarin {

BusyState::Post eventLoopPost() {
    return [](BusyState::Action action) {
        QMetaObject::invokeMethod(QCoreApplication::instance(), std::move(action), Qt::QueuedConnection);
    };
}

} // namespace velmarin
