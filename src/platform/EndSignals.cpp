#include "platform/EndSignals.h"

#include <QGuiApplication>
#include <QSocketNotifier>

#include <array>
#include <csignal>

#include <fcntl.h>
#include <unistd.h>

namespace velmarin {

namespace {

constexpr std::array<int, 3> kSignals{SIGTERM, SIGINT, SIGHUP};

// A handler may do little more than write: the event loop reads at the other end.
std::array<int, 2> signalPipe{-1, -1};

void onSignal(int) {
    const char byte = 0;
    [[maybe_unused]] const ssize_t written = ::write(signalPipe[1], &byte, 1);
}

void setHandler(void (*handler)(int)) {
    struct sigaction action {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    for (const int each : kSignals)
        ::sigaction(each, &action, nullptr);
}

} // namespace

EndSignals::EndSignals(std::function<void()> end) {
    session_ = QObject::connect(qGuiApp, &QGuiApplication::commitDataRequest, qGuiApp, [end] { end(); });
    if (::pipe2(signalPipe.data(), O_CLOEXEC | O_NONBLOCK) != 0)
        return;
    notifier_ = std::make_unique<QSocketNotifier>(signalPipe[0], QSocketNotifier::Read);
    QObject::connect(notifier_.get(), &QSocketNotifier::activated, [end = std::move(end)] {
        std::array<char, 16> bytes{};
        while (::read(signalPipe[0], bytes.data(), bytes.size()) > 0) {
        }
        end();
    });
    setHandler(onSignal);
}

EndSignals::~EndSignals() {
    QObject::disconnect(session_);
    if (!notifier_)
        return;
    setHandler(SIG_DFL);
    notifier_.reset();
    for (int& end : signalPipe) {
        ::close(end);
        end = -1;
    }
}

} // namespace velmarin
