#pragma once

#include "files/FolderItem.h"
#include "view/Decoders.h"
#include "view/Graphics.h"
#include "view/Picture.h"

#include <array>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace velmarin {

enum class MouseCursor { Default, Hand, Grip, Lens, ArrowNorthwestSoutheast, IBeam };

/// What a page view asks of the control that it lives in.
class CanvasPort {
  public:
    virtual ~CanvasPort() = default;
    /// Repaints at once: Event_Paint has run, and its page is to be seen, when this returns (a control that is not to
    /// be seen paints nothing).
    virtual void Refresh() = 0;
    /// The size in control pixels.
    virtual int Width() const = 0;
    virtual int Height() const = 0;
    /// The Shift key as it is at this moment.
    virtual bool AsyncShiftKey() = 0;
    virtual void setMouseCursor(MouseCursor cursor) = 0;
    virtual int StringHeight(const std::string& text, int wrapWidth, const TextStyle& style) = 0;
    /// Something was drawn over the page outside a paint, and is to be shown.
    virtual void drawnOver() = 0;
    virtual void MsgBox(std::string_view text) = 0;
};

/// The control that shows one page, without the control: scaling in one of six modes, scrolling, lens, selection,
/// overlay.
///
/// Positions are in pixels of the image and name the source point of the paint; x, y, W and H are in control pixels.
/// `Ratio`, from image to control pixels, is computed by every paint and so lags one paint behind a change of size or
/// mode. Conversions to whole numbers truncate and are held to 32 bits.
class PageView {
  public:
    using Decoder = std::function<DecodedPicture(const FolderItem&)>;
    explicit PageView(CanvasPort& port, Decoder decoder = decodePicture);

    std::array<int, 2> LensPointerArea{}; ///< width and height in control pixels
    int LensPointerPower = 0;
    Picture Image; ///< as shown; nil until the first load
    double Ratio = 0;
    /// 0: the whole page, never enlarged. 1: original size. 2, 3, 4: the control's width. 5: the control's height.
    /// Any other paints no page.
    int Mode = 0;
    bool pTiffWithoutAntiAlias = false;
    std::string pExtraText_Text;
    bool pExtraText_Apply = false;
    int pExtraText_x = 0;
    int pExtraText_y = 0;
    std::array<int, 2> pExtraText_Step{};
    Picture SelectedImage;
    bool SelectionMode = false;
    std::array<int, 2> EndPosition{};
    bool pJpegBook = false;
    bool UseMouseWheel = false;

    void Event_Open();
    void Event_MouseEnter();
    void Event_MouseExit();
    void Event_MouseMove(int x, int y);
    /// False: the press claims no drag, and neither Event_MouseDrag nor Event_MouseUp follow it.
    bool Event_MouseDown(int x, int y);
    void Event_MouseDrag(int x, int y);
    void Event_MouseUp(int x, int y);
    bool Event_MouseWheel(int x, int y, int deltaX, int deltaY);
    /// Draws the page and what belongs to it on `g`; nothing at all without an image.
    void Event_Paint(Graphics& g);

    /// Loads and shows a page. False, and nothing changed, where `f` is missing; false and no image where it cannot be
    /// decoded; false with a message where a picture had to be there and was not.
    bool SetPicture(const FolderItem& f);
    /// Why the last `SetPicture(f)` gave no page, or what is damaged in the page that it gave: in plain words, without
    /// the file's name. Empty if all is well.
    const std::string& loadProblem() const { return loadProblem_; }
    /// Shows `p` with its first row and column white. A picture that is moved in is not copied.
    bool SetPicture(Picture p);

    /// Drops what was drawn over the page and repaints at once.
    void Refresh();
    /// The control has another size: what was drawn over the page is dropped.
    void resized() { canvas_.commands.clear(); }
    /// Lets go of the page, and of a lens that shows it. Repaints nothing.
    void dropImage();
    /// What was drawn over the page since the last Refresh; it is painted after the page.
    const std::vector<DrawCommand>& drawnOver() const { return canvas_.commands; }
    /// A surface for Event_Paint.
    Graphics newGraphics();

    void NormalScroll(int x, int y);
    void SmartScroll(int x, int y);
    void mJumpScroll_vertical(int direction);
    void mCompleteScroll_vertical(int direction);
    /// The greatest x and y, then the present ones.
    void GetScrollPosition(std::array<int, 4>& a) const;
    void SetScrollPosition(int x, int y);

    /// Copies the selected rectangle of the page, at the page's own size and as if it were not scrolled, into
    /// SelectedImage: 20 pixels from its left and 1 from its top.
    void mGetSelectedImage();
    /// Writes `p` in the format of `f`'s extension; tells of a failure, but not for an extension that is none of
    /// TIFF's, JPEG's and PNG's.
    void SavePicture(const Picture& p, const FolderItem& f);

    void mDrawExtraText();
    void mExtraTextSettings(const std::string& fontName, int fontSize, bool bold, bool italic, int width,
                            Color textColor, Color bgColor, bool apply);
    void mExtraTextMove(std::string_view key);
    void mExtraText_SetWidth(int width);
    void mExtraText_SetTextColor(Color c);

  private:
    void mLensPointer(int x, int y);
    void jumpDown();
    void jumpUp();
    void drawMarker(int y, const std::string& text);
    void drawExtraTextBox();
    void loadImage(const FolderItem& f);
    const Picture& image() const;
    int maxX() const;
    int maxY() const;
    std::string positionText() const;

    CanvasPort& port_;
    Decoder decoder_;
    std::string loadProblem_;
    Graphics canvas_; ///< draws straight onto the control
    std::array<int, 2> ScrollPosition{};
    std::array<int, 2> StartPosition{}; ///< control pixels; where the last drag began, never cleared
    std::array<int, 2> FinalScrollPosition{};
    int pExtraText_Width = 0;
    int pExtraText_FontSize = 0;
    std::string pExtraText_FontName;
    bool pExtraText_Bold = false;
    bool pExtraText_Italic = false;
    Color pExtraText_BGColor;
    Color pExtraText_Color;
    [[maybe_unused]] int pRef = 0; ///< reserved: nothing reads or writes it
};

} // namespace velmarin
