#pragma once

#include "platform/Host.h"

#include <QApplication>

namespace velmarin {

/// The Qt application, with the one place that catches what no handler caught: it is shown, and the program stays up.
class Application : public QApplication {
    Q_OBJECT

  public:
    using QApplication::QApplication;
    void setHost(Host* host) { host_ = host; }
    bool notify(QObject* receiver, QEvent* event) override;

  private:
    void tell(const QObject* receiver, const std::string& what);

    Host* host_ = nullptr;
    bool telling_ = false;
};

} // namespace velmarin
