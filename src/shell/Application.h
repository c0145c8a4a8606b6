#pragma once

#include "controls/AltKeyFilter.h"
#include "platform/Host.h"

#include <QApplication>
#include <QString>

namespace velmarin {

/// What a failure message calls the task that an event for `receiver` asked for: a menu item's or a button's caption.
/// Empty for all else: a field or a page is no task.
QString taskOf(const QObject* receiver);

/// The Qt application, with the one place that catches what no handler caught: it is shown, and the program stays up.
class Application : public QApplication {
    Q_OBJECT

  public:
    Application(int& argc, char** argv);
    void setHost(Host* host) { host_ = host; }
    bool notify(QObject* receiver, QEvent* event) override;

  private:
    void tell(const QObject* receiver, const std::string& what);

    AltKeyFilter altKeys_;
    Host* host_ = nullptr;
    bool telling_ = false;
};

} // namespace velmarin
