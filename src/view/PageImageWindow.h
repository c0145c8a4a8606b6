#pragma once

#include "files/FolderItem.h"
#include "files/Result.h"
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

/// What the owner of a page image window learns of it. Each may be empty.
struct PageImageWindowEvents {
    /// The window is there: sets `pPageImageShown`. Called by the constructor.
    std::function<void()> opened;
    /// The window has closed and destroys itself from the event loop: clears `pPageImageShown`, and drops the instance,
    /// so that the next use makes a new one. Called once.
    std::function<void()> closed;
    /// What came of writing `PageImageW_Pref.txt`, after `closed`: the place for a message.
    std::function<void(const std::string& path, const Result& result)> saved;
};

/// A small viewer beside the main window for the further images of a dictionary, such as its errata: a file, or a
/// folder with a menu of what is in it. It takes its size from the picture and a ratio (view/PageImageSize.h), and its
/// buttons step the pages of the main window that opened it.
///
/// Created hidden, with `new`. Its button, Escape, Ctrl+W or `close()` closes it, which saves its place and ratio and
/// then destroys it. Owners hold a QPointer and clear it in `closed`.
class PageImageWindow : public QWidget {
    Q_OBJECT
  public:
    static constexpr int kWidth = 580, kHeight = 400;

    /// Takes its place and its ratio from `PageImageW_Pref.txt` in `preferencesFolder`, if that file is there.
    PageImageWindow(Host& host, FolderItem preferencesFolder, PageImageWindowEvents events, QWidget* parent = nullptr);
    ~PageImageWindow() override;

    /// Shows a picture, or the first picture of a folder; nothing for a nil item. A folder without visible items closes
    /// the window. For a file that is not a picture, shows a message and keeps the present picture.
    void mSetImage(const FolderItem& f);

    /// The main window that the buttons step, and its tab. Once it is gone, or has no such tab, a press does nothing;
    /// before it is set, a press raises NilObjectException.
    void setMainWin(std::weak_ptr<PagePort> MainWin, int MainWinTab);

    /// The folder that fills `ImagePU`; nil while a single file is shown.
    const FolderItem& pParFol() const { return pParFol_; }
    /// The names in `ImagePU`. Empty after any pick from it, until the next folder.
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
    bool pPuSelected_ = false; ///< a pick from `ImagePU` is being shown, which keeps the menu
    Extent pCurrentImageSize_;
    std::vector<std::string> pImagePUArray_;
    std::weak_ptr<PagePort> MainWin_;
    int MainWinTab_ = 0;
    bool mainWinWasSet_ = false;
    bool closed_ = false;
};

} // namespace velmarin
