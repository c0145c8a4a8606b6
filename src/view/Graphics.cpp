#include "view/Graphics.h"

#include <tuple>

namespace velmarin {
namespace {

auto fields(const PictureDrawn& c) {
    return std::tuple(c.picture.id(), c.x, c.y, c.w, c.h, c.sx, c.sy, c.sw, c.sh);
}
auto fields(const LineDrawn& c) {
    return std::tie(c.x1, c.y1, c.x2, c.y2, c.penHeight, c.color);
}
auto fields(const RectDrawn& c) {
    return std::tie(c.x, c.y, c.w, c.h, c.penWidth, c.penHeight, c.color);
}
auto fields(const RectFilled& c) {
    return std::tie(c.x, c.y, c.w, c.h, c.color);
}
auto fields(const StringDrawn& c) {
    return std::tie(c.text, c.x, c.y, c.wrapWidth, c.style, c.color);
}

} // namespace

bool operator==(const DrawCommand& a, const DrawCommand& b) {
    if (a.index() != b.index())
        return false;
    return std::visit(
        [&](const auto& command) { return fields(command) == fields(std::get<std::decay_t<decltype(command)>>(b)); },
        a);
}

void Graphics::DrawPicture(const Picture& p, int x, int y, int w, int h, int sx, int sy, int sw, int sh) {
    commands.emplace_back(PictureDrawn{p, x, y, w, h, sx, sy, sw, sh});
}

void Graphics::DrawLine(int x1, int y1, int x2, int y2) {
    commands.emplace_back(LineDrawn{x1, y1, x2, y2, PenHeight, ForeColor});
}

void Graphics::DrawRect(int x, int y, int w, int h) {
    commands.emplace_back(RectDrawn{x, y, w, h, PenWidth, PenHeight, ForeColor});
}

void Graphics::FillRect(int x, int y, int w, int h) {
    commands.emplace_back(RectFilled{x, y, w, h, ForeColor});
}

void Graphics::DrawString(const std::string& s, int x, int y, int wrapWidth) {
    commands.emplace_back(StringDrawn{s, x, y, wrapWidth, text, ForeColor});
}

} // namespace velmarin
