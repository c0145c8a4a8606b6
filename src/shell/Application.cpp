#include "shell/Application.h"

#include <exception>
#include <iostream>
#include <new>

namespace velmarin {

bool Application::notify(QObject* receiver, QEvent* event) {
    try {
        return QApplication::notify(receiver, event);
    } catch (const std::bad_alloc&) {
        tell("There is not enough memory for this.");
    } catch (const std::exception& failure) {
        tell(failure.what());
    }
    return false;
}

void Application::tell(const std::string& what) {
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
