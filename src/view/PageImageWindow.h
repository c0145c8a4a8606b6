#pragma once

#include "files/AtomicFile.h"
#include "files/FolderItem.h"
#include "platform/Host.h"
#include "view/PageImageSize.h"
#include "view/PagePort.h"
#include "view/Picture.h"

#include <QWidget>

#include <functional>
#include <memory>
#include <string>
#include <vector>

class QLabel;
class QLineEdit;

namespace velmarin {

class AnchoredLayout;
class BevelButton;
class SmartCanvas;

/// Callbacks to the owner of a page image window. Each may be empty.
struct PageImageWindowEvents {
    /// Sets `pPageImageShown`. Called by the constructor.
    std::function<void()> opened;
    /// Clears `pPageImageShown` and drops the instance, so that the next use makes a new one. Called once, when the
    /// window has closed; the event loop then destroys it.
    std::function<void()> closed;
    /// Gets the result of writing `PageImageW_Pref.txt`, and may show a message. Called after `closed`.
    std::function<void(const std::string& path, const Result& result)> saved;
};

/// A small viewer beside the main window for further images of a dictionary, such as its errata. It shows a file, or a
/// folder with a menu of its items. It takes its size from the picture and a ratio (view/PageImageSize.h). Its buttons
/// step the pages of the main window that opened it.
///
/// Created hidden, with `new`. Its button, Escape, Ctrl+W or `close()` closes it: it saves its position and ratio and
/// is destroyed. Owners hold a QPointer and clear it in `closed`.
class PageImageWindow : public QWidget {
    Q_OBJECT
  public:
    static constexpr int kWidth = 580, kHeight = 400;

    /// Takes position and ratio from `PageImageW_Pref.txt` in `preferencesFolder`, if that file exists.
    PageImageWindow(Host& host, FolderItem preferencesFolder, PageImageWindowEvents events, QWidget* parent = nullptr);
    ~PageImageWindow() override;

    /// Shows a picture, or the first item of a folder. Does nothing for a nil item. A folder without visible items
    /// closes the window. A file that is not a picture is reported, and the current picture stays.
    void mSetImage(const FolderItem& f);

    /// Sets the main window and tab that the buttons step. A press does nothing after that window or tab is gone, and
    /// raises NilObjectException before this is called.
    void setMainWin(std::weak_ptr<PagePort> MainWin, int MainWinTab);

    /// The folder that fills `ImagePU`; nil while a single file is shown.
    const FolderItem& pParFol() const { return pParFol_; }
    /// The names in `ImagePU`. Empty from a pick in it until the next folder.
    const std::vector<std::string>& pImagePUArray() const { return pImagePUArray_; }
    /// The size of the picture shown, in its own pixels.
    const Extent& pCurrentImageSize() const { return pCurrentImageSize_; }

  protected:
    void closeEvent(QCloseEvent* event) override;

  private:
    void makeControls();
    BevelButton* addBevelButton(const char* name, const QRect& rect, const char* caption);
    void makeStepButtons();
    void connectControls();

    void Event_Open();
    void Event_Close();
    void showFolder(const FolderItem& f);
    void showFile(const FolderItem& f);
    bool mOpenAsPicture(const FolderItem& f);
    void ImagePU_Action();
    void RatioPU_Action();
    void MainWinPage_Action(int index);
    void UpDown_Action(int index);

    void showAtRatio(double ratio);
    void takeSize(const Extent& wanted);
    void setTitle(const std::string& title);
    std::shared_ptr<PagePort> steppedPages() const;

    Host& host_;
    FolderItem preferencesFolder_;
    PageImageWindowEvents events_;
    AnchoredLayout* layout_;
    BevelButton* ImagePU_ = nullptr;
    QLineEdit* RatioEF_ = nullptr;
    BevelButton* RatioPU_ = nullptr;
    QLabel* InfoST_ = nullptr;
    SmartCanvas* MainCanvas_ = nullptr;

    FolderItem pParFol_;
    bool pPuSelected_ = false; ///< a pick in `ImagePU` is being shown; the menu stays
    Extent pCurrentImageSize_;
    std::vector<std::string> pImagePUArray_;
    std::weak_ptr<PagePort> MainWin_;
    int MainWinTab_ = 0;
    bool mainWinWasSet_ = false;
    bool closed_ = false;
};

} // namespace velmarin
