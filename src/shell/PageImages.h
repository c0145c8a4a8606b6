#pragma once

#include "view/PagePort.h"

#include <QObject>
#include <QPointer>

#include <memory>

namespace velmarin {

class App;
class FolderItem;
class MainWindow;
class PageImageWindow;

/// The page image window of the application, of which there is at most one at a time.
class PageImages : public QObject {
    Q_OBJECT

  public:
    explicit PageImages(App& app) : app_(app) {}

    /// Shows `file` and lets the window's buttons step `mainWin`. Nothing happens where the file does not exist.
    void show(const FolderItem& file, const std::shared_ptr<PagePort>& mainWin, int tab);
    void close();

  private:
    PageImageWindow* instance();

    App& app_;
    QPointer<PageImageWindow> window_;
};

/// The pages of a main window as the page image window steps them.
class MainWindowStepper : public PagePort {
  public:
    explicit MainWindowStepper(MainWindow& window) : window_(window) {}
    bool hasTab(int tab) const override;
    void mNextBack(int direction, int tab) override;
    void mUpDown(int direction, int tab) override;

  private:
    MainWindow& window_;
};

} // namespace velmarin
