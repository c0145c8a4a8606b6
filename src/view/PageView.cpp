#include "view/PageView.h"

#include "files/AtomicFile.h"
#include "store/FileNames.h"
#include "text/LetterCase.h"
#include "text/NilObjectException.h"
#include "text/NumberText.h"
#include "view/Encoders.h"
#include "view/PictureDrawing.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <utility>

namespace velmarin {

PageView::PageView(CanvasPort& port, Decoder decoder)
    : port_(port), decoder_(std::move(decoder)), canvas_(newGraphics()) {}

Graphics PageView::newGraphics() {
    return Graphics([this](const std::string& text, int wrapWidth, const TextStyle& style) {
        return port_.StringHeight(text, wrapWidth, style);
    });
}

void PageView::Event_Open() {
    LensPointerArea = {300, 100};
    LensPointerPower = 2;
    Ratio = 1.0;
    pExtraText_BGColor = kWhite;
    pExtraText_Color = kBlack;
    pExtraText_Width = 400;
    pExtraText_FontName = "System";
    pExtraText_FontSize = 14;
    pExtraText_Step = {5, 5};
    UseMouseWheel = true;
}

const Picture& PageView::image() const {
    if (!Image)
        throw NilObjectException("There is no page.");
    return Image;
}

void PageView::Refresh() {
    canvas_.commands.clear();
    port_.Refresh();
}

void PageView::dropImage() {
    Image = Picture();
    canvas_.commands.clear();
}

void PageView::loadImage(const FolderItem& f) {
    const std::string extension = mFiMod_GetExtensionFromFileName(f.Name());
    const bool jpeg = equalStrings(extension, "jpg") || equalStrings(extension, "jpeg");
    DecodedPicture decoded = decoder_(f);
    loadProblem_ = std::move(decoded.reason);
    Picture source = std::move(decoded.picture);
    if (!jpeg || !pJpegBook) {
        Image = std::move(source);
        return;
    }
    if (!source)
        throw NilObjectException("The picture " + f.Name() + " could not be read.");
    Image = Picture::make(source.Width() * 3, source.Height() * 3, source.depth());
    const int width = Image.Width(), height = Image.Height();
    DrawPicture(Image, source, 0, 0, width, height, 0, 0, source.Width(), source.Height());
}

bool PageView::SetPicture(const FolderItem& f) {
    try {
        if (f.isNil() || !f.Exists()) {
            loadProblem_ = kNoSuchFile;
            return false;
        }
        loadImage(f);
        if (!Image) {
            dropImage();
            return false;
        }
        Image.AntiAlias = !pTiffWithoutAntiAlias;
        ScrollPosition = {0, 0};
        FinalScrollPosition = {0, 0};
        SetPicture(std::exchange(Image, Picture()));
        return true;
    } catch (const NilObjectException& failure) {
        if (loadProblem_.empty())
            loadProblem_ = failure.what();
        port_.MsgBox("SmartCanvas: SetPicture: NilObjectException");
        return false;
    }
}

bool PageView::SetPicture(Picture p) {
    try {
        if (!p)
            return false;
        Image = Picture(); // so that there is no second picture in memory while the page is copied
        Image = std::move(p).withWhiteEdges();
        if (!Image)
            throw NilObjectException("There is not enough memory for the page.");
        Refresh();
        ScrollPosition = {0, 0};
        FinalScrollPosition = {0, 0};
        return true;
    } catch (const NilObjectException&) {
        port_.MsgBox("SmartCanvas: SetPicture: NilObjectException");
        return false;
    }
}

void PageView::Event_Paint(Graphics& g) {
    if (!Image)
        return;
    const int W = port_.Width(), H = port_.Height();
    const int iw = Image.Width(), ih = Image.Height();
    switch (Mode) {
    case 0:
        Ratio = ih < H && iw < W ? 1.0 : std::min(static_cast<double>(H) / ih, static_cast<double>(W) / iw);
        g.DrawPicture(Image, 0, 0, toInt32(iw * Ratio), toInt32(ih * Ratio), 0, 0, iw, ih);
        break;
    case 1:
        g.DrawPicture(Image, 0, 0, iw, ih, ScrollPosition[0], ScrollPosition[1], iw, ih);
        Ratio = 1.0;
        break;
    case 2:
    case 3:
    case 4:
        Ratio = static_cast<double>(W) / iw;
        g.DrawPicture(Image, 0, 0, toInt32(iw * Ratio), toInt32(ih * Ratio), 0, ScrollPosition[1], iw, ih);
        break;
    case 5:
        Ratio = static_cast<double>(H) / ih;
        g.DrawPicture(Image, 0, 0, toInt32(iw * Ratio), toInt32(ih * Ratio), ScrollPosition[0], 0, iw, ih);
        break;
    default:
        break;
    }
    if (SelectionMode) {
        g.ForeColor = kGreen;
        g.PenHeight = 1;
        g.DrawRect(std::min(StartPosition[0], EndPosition[0]), std::min(StartPosition[1], EndPosition[1]),
                   std::abs(EndPosition[0] - StartPosition[0]), std::abs(EndPosition[1] - StartPosition[1]));
        g.ForeColor = kBlack;
    }
    if (pExtraText_Apply) {
        // Commands drawn on the control during a paint become part of that paint.
        const auto before = static_cast<std::ptrdiff_t>(canvas_.commands.size());
        drawExtraTextBox();
        const auto first = canvas_.commands.begin() + before;
        g.commands.insert(g.commands.end(), first, canvas_.commands.end());
        canvas_.commands.erase(first, canvas_.commands.end());
    }
}

void PageView::Event_MouseEnter() {
    if (Mode == 1)
        port_.setMouseCursor(MouseCursor::Hand);
}

void PageView::Event_MouseExit() {
    if (Mode == 1)
        port_.setMouseCursor(MouseCursor::Default);
}

void PageView::Event_MouseMove(int x, int y) {
    const bool shift = port_.AsyncShiftKey();
    if (shift)
        port_.setMouseCursor(MouseCursor::Lens);
    else
        port_.setMouseCursor(Mode != 0 ? MouseCursor::Hand : MouseCursor::ArrowNorthwestSoutheast);
    if (pExtraText_Apply && !shift) {
        pExtraText_x = x;
        pExtraText_y = y;
    }
}

bool PageView::Event_MouseDown(int x, int y) {
    if (!Image)
        return false;
    if (SelectionMode) {
        StartPosition = {x, y};
        return true;
    }
    if (Mode == 0) {
        mLensPointer(x, y);
        return true;
    }
    if (port_.AsyncShiftKey()) {
        mLensPointer(x, y);
        return false;
    }
    StartPosition = {x, y};
    port_.setMouseCursor(MouseCursor::Grip);
    return true;
}

void PageView::Event_MouseDrag(int x, int y) {
    if (SelectionMode) {
        EndPosition = {x, y};
        Refresh();
    } else if (Mode == 0 || port_.AsyncShiftKey()) {
        mLensPointer(x, y);
    } else {
        NormalScroll(x, y);
    }
}

void PageView::Event_MouseUp(int x, int y) {
    if (SelectionMode) {
        mGetSelectedImage();
        return;
    }
    if (Mode != 0 && !port_.AsyncShiftKey()) {
        ScrollPosition = FinalScrollPosition;
        port_.setMouseCursor(MouseCursor::Hand);
    }
    Refresh();
    if (pExtraText_Apply && !port_.AsyncShiftKey()) {
        Refresh();
        port_.setMouseCursor(MouseCursor::IBeam);
        pExtraText_x = x;
        pExtraText_y = y;
        mDrawExtraText();
    }
}

void PageView::mLensPointer(int x, int y) {
    if (Mode == 1)
        Ratio = 1.0;
    const int w = LensPointerArea[0], h = LensPointerArea[1];
    const int sx = toInt32(x / Ratio + FinalScrollPosition[0]);
    const int sy = toInt32(y / Ratio + FinalScrollPosition[1]);
    const int sw = toInt32(w / static_cast<double>(LensPointerPower) / Ratio);
    const int sh = toInt32(h / static_cast<double>(LensPointerPower) / Ratio);
    Refresh();
    canvas_.DrawPicture(image(), x, y, w, h, sx, sy, sw, sh);
    port_.drawnOver();
}

void PageView::mGetSelectedImage() {
    const auto [startX, startY] = StartPosition;
    const auto [endX, endY] = EndPosition;
    const int sx = toInt32(std::min(startX, endX) / Ratio);
    const int sy = toInt32(std::min(startY, endY) / Ratio);
    const int w = toInt32(std::abs(startX - endX) / Ratio);
    const int h = toInt32(std::abs(startY - endY) / Ratio);
    SelectedImage = Picture();
    // The copy needs no more depth than the page has.
    Picture selected = Picture::make(toInt32(w + 20.0), h, image().depth());
    if (selected && DrawPicture(selected, Image, 20, 1, w, h, sx, sy, w, h))
        SelectedImage = std::move(selected);
}

void PageView::SavePicture(const Picture& p, const FolderItem& f) {
    if (!p)
        return;
    const std::string extension = mFiMod_GetExtensionFromFileName(f.Name());
    const std::optional<std::string> bytes = encodePicture(p, extension);
    const bool saved = bytes && writeFileAtomically(f.path(), *bytes);
    auto is = [&](std::string_view name) { return equalStrings(extension, name); };
    if (!saved && (is("tif") || is("tiff") || is("jpg") || is("jpeg") || is("png")))
        port_.MsgBox("Error: Picture is not saved.");
}

void PageView::drawExtraTextBox() {
    if (pExtraText_Text.empty())
        return;
    Graphics& g = canvas_;
    const int x = pExtraText_x, y = pExtraText_y;
    g.text.TextSize = pExtraText_FontSize == 0 ? 14 : pExtraText_FontSize;
    g.text.TextFont = pExtraText_FontName.empty() ? "System" : pExtraText_FontName;
    if (pExtraText_Width == 0)
        pExtraText_Width = 200;
    g.text.Bold = pExtraText_Bold;
    g.text.Italic = pExtraText_Italic;
    const int wrapWidth = pExtraText_Width - 20;
    const int boxHeight = g.StringHeight(pExtraText_Text, wrapWidth) + 10;
    g.ForeColor = pExtraText_BGColor;
    g.FillRect(x, y, pExtraText_Width, boxHeight);
    g.ForeColor = pExtraText_Color;
    g.PenWidth = 1;
    g.DrawRect(x, y, pExtraText_Width, boxHeight);
    g.DrawString(pExtraText_Text, x + 15, y + 5 + g.text.TextSize, wrapWidth);
}

void PageView::mDrawExtraText() {
    const auto before = static_cast<std::ptrdiff_t>(canvas_.commands.size());
    drawExtraTextBox();
    const auto begin = canvas_.commands.begin(), box = begin + before, end = canvas_.commands.end();
    const std::ptrdiff_t size = end - box;
    if (size == 0)
        return;
    // The same box is not drawn twice: repeated failed loads would pile them up.
    if (before >= size && std::equal(box, end, box - size))
        canvas_.commands.erase(box, end);
    port_.drawnOver();
}

void PageView::mExtraTextSettings(const std::string& fontName, int fontSize, bool bold, bool italic, int width,
                                  Color textColor, Color bgColor, bool apply) {
    pExtraText_FontName = fontName;
    pExtraText_FontSize = fontSize;
    pExtraText_Bold = bold;
    pExtraText_Italic = italic;
    pExtraText_Width = width;
    pExtraText_Color = textColor;
    pExtraText_BGColor = bgColor;
    pExtraText_Apply = apply;
}

void PageView::mExtraTextMove(std::string_view key) {
    if (!pExtraText_Apply)
        return;
    Refresh();
    if (key == "\x1e")
        pExtraText_y = std::max(0, pExtraText_y - pExtraText_Step[1]);
    else if (key == "\x1f")
        pExtraText_y = std::min(port_.Height(), pExtraText_y + pExtraText_Step[1]);
    else if (key == "\x1c")
        pExtraText_x = std::max(0, pExtraText_x - pExtraText_Step[0]);
    else if (key == "\x1d")
        pExtraText_x = std::min(port_.Width(), pExtraText_x + pExtraText_Step[0]);
    mDrawExtraText();
}

void PageView::mExtraText_SetWidth(int width) {
    pExtraText_Width = width;
}

void PageView::mExtraText_SetTextColor(Color c) {
    pExtraText_Color = c;
}

} // namespace velmarin
