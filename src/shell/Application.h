#pragma once

#include "controls/AltKeyFilter.h"
#include "platform/Host.h"

#include <QApplication>
#include <QString>

namespace velmarin {

/// The name of the task that an event for `receiver` starts, for a failure message: the caption of a menu item or a
/// button. Empty for anything else.
QString taskOf(const QObject* receiver);

/// The Qt application. Shows every exception that no handler caught; the program stays up.
class Application : public QApplication {
    Q_OBJECT

  public:
    Application(int& argc, char** argv);
    void setHost(Host* host) { host_ = host; }
    bool notify(QObject* receiver, QEvent* event) override;

  private:
    void report(const QObject* receiver, const std::string& failure);

    AltKeyFilter altKeys_;
    Host* host_ = nullptr;
    bool reporting_ = false;
};

} // namespace velmarin
