#include "shell/PageImages.h"

#include "shell/App.h"
#include "shell/ApplicationShortcuts.h"
#include "shell/MainWindow.h"
#include "shell/ScreenFit.h"
#include "view/PageImageWindow.h"

namespace velmarin {

PageImageWindow* PageImages::instance() {
    if (window_.isNull()) {
        PageImageWindowEvents events;
        events.opened = [this] { app_.module.pPageImageShown = true; };
        events.closed = [this] {
            app_.module.pPageImageShown = false;
            window_.clear();
        };
        events.saved = [this](const std::string& path, const Result& result) { app_.preferences().note(path, result); };
        window_ = new PageImageWindow(app_.host(), app_.module.pThis_PreferencesFolder, std::move(events));
        if (window_->testAttribute(Qt::WA_Moved))
            window_->move(withinReach({window_->pos(), window_->size()}, screenAreas()).topLeft());
        addApplicationShortcuts(app_, window_);
    }
    return window_;
}

void PageImages::show(const FolderItem& file, const std::shared_ptr<PagePort>& mainWin, int tab) {
    if (!file.Exists())
        return;
    const QPointer<PageImageWindow> window = instance();
    window->mSetImage(file);
    // A folder without pictures has closed it again.
    if (window != window_)
        return;
    window->setWindowState(window->windowState() & ~Qt::WindowMinimized);
    window->show();
    window->raise();
    window->activateWindow();
    window->setMainWin(mainWin, tab);
}

void PageImages::close() {
    if (app_.module.pPageImageShown)
        window_->close();
}

bool MainWindowStepper::hasTab(int tab) const {
    return window_.model().tabs.hasTab(tab) && !window_.group().pDictionaryItem.empty();
}

void MainWindowStepper::mNextBack(int direction, int tab) {
    window_.mNextBack(direction, tab);
}

void MainWindowStepper::mUpDown(int direction, int tab) {
    window_.mUpDown(direction, tab);
}

} // namespace velmarin
