#pragma once

#include <QHash>
#include <QMenuBar>

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace velmarin {

/// The menu bar as one main window carries it. Commands are only named here; who handles one is the router's matter.
/// Alt with the underlined letter opens a menu, F10 the first one.
class MenuBar : public QMenuBar {
    Q_OBJECT

  public:
    using Router = std::function<void(std::string_view name, int index)>;
    /// @param hasHandler whether the front window or the application handles a name: such items are enabled
    MenuBar(Router router, const std::function<bool(std::string_view name)>& hasHandler, QWidget* parent);

    void setItemEnabled(std::string_view name, bool enabled);
    /// One row for each main window, in order of making; row n is reached by Ctrl and the digit n.
    void setWindowItems(const std::vector<std::string>& captions);

  private:
    QAction* addItem(QMenu* menu, std::string_view name, int index, const QString& text, std::string_view shortcut);

    Router router_;
    QMultiHash<QString, QAction*> actions_;
    QMenu* windowMenu_ = nullptr;
};

} // namespace velmarin
