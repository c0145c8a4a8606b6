#pragma once

#include <QObject>

namespace velmarin {

/// An event filter for the application: a key pressed with Alt or Meta types nothing into a text field. Toolkit fields
/// insert its character where no menu or shortcut takes it.
class AltKeyFilter : public QObject {
    Q_OBJECT
  public:
    using QObject::QObject;
    bool eventFilter(QObject* watched, QEvent* event) override;
};

} // namespace velmarin
