#pragma once

#include <QObject>
#include <QPointer>

namespace velmarin {

class AnchoredLayout;
class BevelButton;
class MainWindowPort;
class SubWindow;
enum class FindTarget;
struct WindowServices;

/// The button `SubWinBV` of a main window and the side window that it opens. The button stays down while the window is
/// open.
class SideButton : public QObject {
    Q_OBJECT

  public:
    SideButton(MainWindowPort& mainWindow, const WindowServices& services, QWidget* parent, AnchoredLayout& layout);

    BevelButton* SubWinBV() const { return SubWinBV_; }
    bool pSubWinShown() const { return !pMySubWin_.isNull(); }
    SubWindow* pMySubWin() const;

    /// Closes the side window, which writes its settings. Does nothing if none is open.
    void close();
    /// Passes on a query of the main window; the side window ignores it unless it synchronizes.
    void synchronise(const QString& query);
    /// The menu's commands "Dictionary" and "Find".
    void takeTarget(FindTarget target);

  signals:
    void shown(bool isShown);

  private:
    void SubWinBV_Action();
    void showState();

    MainWindowPort& mainWindow_;
    const WindowServices& services_;
    BevelButton* SubWinBV_;
    /// Replaced at each opening; null once the window has closed.
    QPointer<SubWindow> pMySubWin_;
};

} // namespace velmarin
