#pragma once

#include <QHash>
#include <QMenuBar>

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace velmarin {

/// The menu bar of a main window. It names commands; the router decides who handles them. Alt with the underlined
/// letter opens a menu, F10 the first one.
class MenuBar : public QMenuBar {
    Q_OBJECT

  public:
    using Router = std::function<void(std::string_view name, int index)>;
    /// @param hasHandler whether a command is handled: only those items are enabled
    MenuBar(Router router, const std::function<bool(std::string_view name)>& hasHandler, QWidget* parent);

    void setItemEnabled(std::string_view name, bool enabled);
    /// One row for each main window, in order of making. Ctrl and the digit n chooses row n.
    void setWindowItems(const std::vector<std::string>& captions);

  private:
    QAction* addItem(QMenu* menu, std::string_view name, int index, const QString& text, std::string_view shortcut);

    Router router_;
    QMultiHash<QString, QAction*> actions_;
    QMenu* windowMenu_ = nullptr;
};

} // namespace velmarin
