#pragma once

#include <QWidget>

namespace velmarin {

/// What the window shows while no book is open: what it is for, and what can be opened.
class WelcomePane : public QWidget {
    Q_OBJECT
  public:
    explicit WelcomePane(QWidget* parent);

  signals:
    void bookWanted();
    void dictionaryWanted();
    void scanWanted();
    void folderWanted();
};

} // namespace velmarin
