#pragma once

#include "book/DraftRun.h"

#include <QWidget>

class QLabel;
class QPushButton;

namespace velmarin {

class ProgressBar;

/// "41 of 1,702 pages, 4 minutes left"
QString textOf(const ReadingProgress& progress);

/// How far the reading of a book is, with a button that stops it or goes on with it.
class ReadingBar : public QWidget {
    Q_OBJECT
  public:
    explicit ReadingBar(QWidget* parent);

    void showRunning(const ReadingProgress& progress);
    void showStopped();
    void showDone();

  signals:
    void stopWanted();
    void goOnWanted();

  private:
    QLabel* text_;
    ProgressBar* bar_;
    QPushButton* button_;
    bool running_ = false;
};

} // namespace velmarin
