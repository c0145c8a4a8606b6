#include "shell/PageImages.h"

#include "controls/ScreenFit.h"
#include "shell/ApplicationShortcuts.h"
#include "shell/PreferenceWriter.h"
#include "view/PageImageWindow.h"

namespace velmarin {

PageImageWindow* PageImages::instance() {
    if (window_.isNull()) {
        PageImageWindowEvents events;
        events.opened = [this] { pPageImageShown_ = true; };
        events.closed = [this] {
            pPageImageShown_ = false;
            window_.clear();
        };
        events.saved = [this](const std::string& path, const Result& result) { preferences_.note(path, result); };
        window_ = new PageImageWindow(host_, preferencesFolder_, std::move(events));
        if (window_->testAttribute(Qt::WA_Moved))
            window_->move(withinReach({window_->pos(), window_->size()}, screenAreas()).topLeft());
        addApplicationShortcuts(commands_, window_);
    }
    return window_;
}

void PageImages::show(const FolderItem& file, const std::shared_ptr<PagePort>& pages, int tab) {
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
    window->setMainWin(pages, tab);
}

void PageImages::close() {
    if (pPageImageShown_)
        window_->close();
}

} // namespace velmarin
