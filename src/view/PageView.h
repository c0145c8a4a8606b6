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

/// What a page view needs from its control.
class CanvasPort {
  public:
    virtual ~CanvasPort() = default;
    /// Repaints at once: when this returns, Event_Paint has run and its page is on the screen. An invisible control
    /// paints nothing.
    virtual void Refresh() = 0;
    /// The size in control pixels.
    virtual int Width() const = 0;
    virtual int Height() const = 0;
    /// The current state of the Shift key.
    virtual bool AsyncShiftKey() = 0;
    virtual void setMouseCursor(MouseCursor cursor) = 0;
    virtual int StringHeight(const std::string& text, int wrapWidth, const TextStyle& style) = 0;
    /// Shows what was drawn over the page outside a paint.
    virtual void drawnOver() = 0;
    virtual void MsgBox(std::string_view text) = 0;
};

/// The logic of the control that shows one page: scaling in six modes, scrolling, lens, selection, text box.
///
/// Scroll positions are in image pixels and give the source point of the paint; x, y, W and H are in control pixels.
/// Every paint computes `Ratio`, the number of control pixels per image pixel, so it lags one paint behind a change of
/// size or mode. Conversions to whole numbers truncate and saturate at 32 bits.
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
    /// False: the press starts no drag, and neither Event_MouseDrag nor Event_MouseUp follows.
    bool Event_MouseDown(int x, int y);
    void Event_MouseDrag(int x, int y);
    void Event_MouseUp(int x, int y);
    bool Event_MouseWheel(int x, int y, int deltaX, int deltaY);
    /// Draws the page and what belongs to it on `g`. Draws nothing without an image.
    void Event_Paint(Graphics& g);

    /// Loads and shows a page. Returns false if `f` is missing (nothing changes), if it cannot be decoded (the image
    /// becomes nil), or, with a message, if a picture that is needed on the way is nil.
    bool SetPicture(const FolderItem& f);
    /// Why the last `SetPicture(f)` showed no page, or what is damaged in the page, in words for the user and without
    /// the file's name. Empty if all is well.
    const std::string& loadProblem() const { return loadProblem_; }
    /// Shows `p` with its first row and column white. A picture that no other shares is not copied.
    bool SetPicture(Picture p);

    /// Drops what was drawn over the page and repaints at once.
    void Refresh();
    /// To be called when the control has another size. Drops what was drawn over the page.
    void resized() { canvas_.commands.clear(); }
    /// Drops the page, and a lens that shows it. Repaints nothing.
    void dropImage();
    /// What was drawn over the page since the last Refresh; to be painted after the page.
    const std::vector<DrawCommand>& drawnOver() const { return canvas_.commands; }
    /// A surface for Event_Paint.
    Graphics newGraphics();

    void NormalScroll(int x, int y);
    void SmartScroll(int x, int y);
    void mJumpScroll_vertical(int direction);
    void mCompleteScroll_vertical(int direction);
    /// Sets `a` to the greatest x and y, then the current x and y.
    void GetScrollPosition(std::array<int, 4>& a) const;
    void SetScrollPosition(int x, int y);

    /// Copies the selected rectangle of the page, at the page's own size and as if it were not scrolled, into
    /// SelectedImage, 20 pixels from its left and 1 from its top.
    void mGetSelectedImage();
    /// Writes `p` in the format of `f`'s extension. Reports a failure only for the extensions of TIFF, JPEG and PNG.
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
    Graphics canvas_; ///< draws directly on the control
    std::array<int, 2> ScrollPosition{};
    std::array<int, 2> StartPosition{}; ///< where the last drag began, in control pixels; never cleared
    std::array<int, 2> FinalScrollPosition{};
    int pExtraText_Width = 0;
    int pExtraText_FontSize = 0;
    std::string pExtraText_FontName;
    bool pExtraText_Bold = false;
    bool pExtraText_Italic = false;
    Color pExtraText_BGColor;
    Color pExtraText_Color;
    [[maybe_unused]] int pRef = 0; ///< reserved, unused
};

} // namespace velmarin
