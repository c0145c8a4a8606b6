#pragma once

#include "side/FindBar.h"
#include "side/SideAttachment.h"
#include "side/SideDisplay.h"
#include "side/SideModel.h"
#include "side/SwitchControls.h"
#include "side/TextControls.h"

#include <QPointer>
#include <QTimer>
#include <QWidget>

#include <cstddef>
#include <string>

namespace velmarin {

class MainWindowPort;
class WaitNotice;

/// The side window of one main window: it gives text, while the main window gives scanned pages. It shows a SideModel,
/// and knows about focus, size and place. It belongs to the QMainWindow of the main window, and a new one is made at
/// each opening.
class SubWindow : public QWidget, private SideDisplay {
    Q_OBJECT
  public:
    /// The desktop's own color dialog is used if `selectColor` is empty.
    SubWindow(MainWindowPort& mainWindow, SideServices services, Attachment attachment,
              FindBar::SelectColor selectColor = {});
    ~SubWindow() override;

    /// Reads the settings, and shows the window beside its main window, in the same height.
    void open();
    /// Saves the settings, hides the window, and destroys it as soon as no look-up runs any more.
    void shut();

    /// The menu's commands "Dictionary" and "Find": gives `FindEF` the focus and sets the target. Only finding selects
    /// the word.
    void takeTarget(FindTarget target);
    /// A query of the main window.
    void synchronise(const QString& query);

    /// The width of the settings.
    QSize sizeHint() const override { return {widthAtOpening_, height()}; }

    TextArea* EF() const { return text_.EF; }
    FindBar& findBar() { return findBar_; }
    SideModel& model() { return model_; }
    Attachment attachment() const { return attachment_->attachment(); }

  signals:
    /// Emitted after the settings are saved, however the window was closed.
    void closed();

  protected:
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    void connectFindBar();
    void connectControls();
    void Event_Activate();
    void goBackToMainWindow();
    void takeFocusToFindEF();

    void showSettings(const SubwindowSettings& settings) override;
    void applyTextStyle() override;
    void showSource(std::size_t row, bool isOn) override;
    void showTarget(FindTarget target) override;
    void showWord(const std::string& word) override;
    void showMiss(bool missed) override;
    void showHitColor(TextColor color) override;
    void clearUserDictionaries() override;
    void addUserDictionary(const std::string& name) override;
    void chooseUserDictionary(int row) override;
    void showWait(const std::string& program) override;
    void hideWait() override;
    void release() override;

    MainWindowPort& MainWin_;
    AnchoredLayout* layout_;
    TextControls text_;
    FindBar findBar_;
    SwitchControls switches_;
    WaitNotice* notice_;
    SideModel model_;
    QPointer<SideAttachment> attachment_;
    /// Gives the focus back to the main window after the click that brought this one to the front: desktops refuse to
    /// activate a window on behalf of an older event than that click.
    QTimer goBack_{this};
    int widthAtOpening_;
    /// The window has activated itself, and the focus stays where it is.
    bool expectsFocus_ = false;
};

} // namespace velmarin
