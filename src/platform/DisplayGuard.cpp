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
    std::cerr << programName << ": the display ";
    if (const char* display = std::getenv("DISPLAY"); display != nullptr)
        std::cerr << display << ' ';
    std::cerr << "could not be reached\n";
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
