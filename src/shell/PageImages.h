#pragma once

#include "shell/Commands.h"
#include "view/PagePort.h"

#include <QObject>
#include <QPointer>

#include <memory>

namespace velmarin {

class FolderItem;
class Host;
class PageImageWindow;
class PreferenceWriter;

/// The page image window of the application; at most one is open.
class PageImages : public QObject {
    Q_OBJECT

  public:
    /// @param preferencesFolder where the window saves its placement; read at each opening
    /// @param commands whose shortcuts the window has
    PageImages(Host& host, PreferenceWriter& preferences, const FolderItem& preferencesFolder, Commands commands)
        : host_(host), preferences_(preferences), preferencesFolder_(preferencesFolder),
          commands_(std::move(commands)) {}

    /// Shows `file`, whose window then steps `pages`. Does nothing if the file does not exist.
    void show(const FolderItem& file, const std::shared_ptr<PagePort>& pages, int tab);
    /// A change of group closes the window.
    void close();
    bool pPageImageShown() const { return pPageImageShown_; }

  private:
    PageImageWindow* instance();

    Host& host_;
    PreferenceWriter& preferences_;
    const FolderItem& preferencesFolder_;
    Commands commands_;
    QPointer<PageImageWindow> window_;
    bool pPageImageShown_ = false;
};

} // namespace velmarin
