#pragma once

#include "view/Picture.h"

#include <functional>
#include <string>
#include <variant>
#include <vector>

namespace velmarin {

struct TextStyle {
    int TextSize = 0; ///< in pixels; 0: the size of the interface font
    std::string TextFont = "System";
    bool Bold = false;
    bool Italic = false;
    friend bool operator==(const TextStyle&, const TextStyle&) = default;
};

// Drawing commands. All geometry is in control pixels.

/// The rectangle sx, sy, sw, sh of a picture, scaled to x, y, w, h. What overruns either rectangle is clipped without
/// changing the scale.
struct PictureDrawn {
    Picture picture;
    int x, y, w, h, sx, sy, sw, sh;
};
struct LineDrawn {
    int x1, y1, x2, y2, penHeight;
    Color color;
};
/// A frame inside x, y, w, h.
struct RectDrawn {
    int x, y, w, h, penWidth, penHeight;
    Color color;
};
struct RectFilled {
    int x, y, w, h;
    Color color;
};
/// Text wrapped at `wrapWidth`; the first baseline starts at x, y.
struct StringDrawn {
    std::string text;
    int x, y, wrapWidth;
    TextStyle style;
    Color color;
};
using DrawCommand = std::variant<PictureDrawn, LineDrawn, RectDrawn, RectFilled, StringDrawn>;

bool operator==(const DrawCommand& a, const DrawCommand& b);

/// A drawing surface that records commands.
class Graphics {
  public:
    /// Returns the height that `text` wrapped at `wrapWidth` will have.
    using Measure = std::function<int(const std::string& text, int wrapWidth, const TextStyle& style)>;
    explicit Graphics(Measure measure) : measure_(std::move(measure)) {}

    Color ForeColor;
    int PenWidth = 1;
    int PenHeight = 1;
    TextStyle text;

    void DrawPicture(const Picture& p, int x, int y, int w, int h, int sx, int sy, int sw, int sh);
    void DrawLine(int x1, int y1, int x2, int y2);
    void DrawRect(int x, int y, int w, int h);
    void FillRect(int x, int y, int w, int h);
    void DrawString(const std::string& s, int x, int y, int wrapWidth);
    int StringHeight(const std::string& s, int wrapWidth) const { return measure_(s, wrapWidth, text); }

    std::vector<DrawCommand> commands;

  private:
    Measure measure_;
};

} // namespace velmarin
