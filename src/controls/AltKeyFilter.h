#pragma once

#include <QObject>

namespace velmarin {

/// An event filter for the application: a key pressed with Alt or Meta types nothing into a text field. Without it,
/// Qt's fields insert the character if no menu or shortcut takes the key.
class AltKeyFilter : public QObject {
    Q_OBJECT
  public:
    using QObject::QObject;
    bool eventFilter(QObject* watched, QEvent* event) override;
};

} // namespace velmarin
