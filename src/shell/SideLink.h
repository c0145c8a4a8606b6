#pragma once

#include "side/MainWindowPort.h"

#include <QObject>
#include <QPointer>

namespace velmarin {

class AnchoredLayout;
class App;
class BevelButton;
class MainWindow;
class SubWindow;
enum class FindTarget;

/// What stands between a main window and its side window: the button `SubWinBV`, which is pressed in exactly while the
/// side window is open, and the side window's way back.
class SideLink : public QObject, public MainWindowPort {
    Q_OBJECT

  public:
    SideLink(App& app, MainWindow& mainWindow, QWidget* parent, AnchoredLayout& layout);

    BevelButton* SubWinBV() const { return SubWinBV_; }
    bool pSubWinShown() const;
    SubWindow* pMySubWin() const;

    /// Closes the side window, which writes its settings. Nothing happens where none is open.
    void close();
    /// Hands a query of the main window on, if the side window wants it.
    void synchronise(const QString& query);
    /// The menu's commands "Dictionary" and "Find".
    void takeTarget(FindTarget target);

    QMainWindow* window() override;
    FolderItem pDictionaryGroupFolder() override;
    void noteWritten(const std::string& path, const Result& result) override;
    void setSearchText(std::string_view text) override;
    void focusSearch(bool selectAll) override;
    void setOKBTDefault(bool isDefault) override;
    void searchAll(const std::string& word) override;
    void showProgress() override;
    void setProgressMaximum(int maximum) override;
    void setProgressValue(int value) override;
    void showProgressFull() override;
    void hideProgress() override;

  private:
    void SubWinBV_Action();
    void showState();

    App& app_;
    MainWindow& mainWindow_;
    BevelButton* SubWinBV_;
    /// Replaced at each opening; null once the window has closed.
    QPointer<SubWindow> pMySubWin_;
};

} // namespace velmarin
