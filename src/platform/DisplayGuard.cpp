#include "platform/DisplayGuard.h"

#include <QString>
#include <QtGlobal>

#include <cstdlib>
#include <iostream>

namespace velmarin {

namespace {

constexpr int kFailed = 2;

const char* programName = "";
QtMessageHandler handlerBefore = nullptr;

void onMessage(QtMsgType type, const QMessageLogContext& context, const QString& text) {
    if (type != QtFatalMsg)
        return handlerBefore(type, context, text);
    const char* display = std::getenv("DISPLAY");
    std::cerr << programName << ": the display " << (display == nullptr ? "" : display) << " could not be reached\n";
    std::_Exit(kFailed);
}

} // namespace

DisplayGuard::DisplayGuard(const char* program) {
    programName = program;
    handlerBefore = qInstallMessageHandler(onMessage);
}

DisplayGuard::~DisplayGuard() {
    qInstallMessageHandler(handlerBefore);
}

} // namespace velmarin
