#pragma once

#include "ImageFiles.h"
#include "view/PageView.h"

#include <map>

namespace velmarin::test {

using Point = std::array<int, 2>;

/// A canvas without a window: it paints into a list of commands and records the calls to it.
class FakeCanvas : public CanvasPort {
  public:
    explicit FakeCanvas(int width = 800, int height = 700) : width(width), height(height) { view.Event_Open(); }

    int width, height;
    bool shift = false;
    int refreshes = 0, drawn = 0, measuredWidth = 0;
    std::vector<MouseCursor> cursors;
    std::vector<std::string> messages;
    std::vector<DrawCommand> painted;     ///< by the last paint
    std::map<std::string, Picture> files; ///< what the decoder makes of a file, by its name; a file without is "torn"

    PageView view{*this, [this](const FolderItem& f) {
                      const Picture made = files[f.Name()];
                      return DecodedPicture{made, made ? "" : "torn"};
                  }};

    void paint() {
        Graphics g = view.newGraphics();
        view.Event_Paint(g);
        painted = g.commands;
    }

    /// Shows a white page and paints it in `mode`.
    void show(int imageWidth, int imageHeight, int mode) {
        view.Mode = mode;
        view.SetPicture(Picture::make(imageWidth, imageHeight, 1));
    }

    const PictureDrawn& page() const { return std::get<PictureDrawn>(painted.at(0)); }
    Point pagePoint() const { return {page().sx, page().sy}; }
    /// The last thing drawn over the page, as what it should be.
    template <typename Command> const Command& over(std::size_t fromEnd = 0) const {
        const auto& all = view.drawnOver();
        return std::get<Command>(all.at(all.size() - 1 - fromEnd));
    }
    Point position() const {
        std::array<int, 4> a{};
        view.GetScrollPosition(a);
        return {a[2], a[3]};
    }

    void Refresh() override {
        ++refreshes;
        paint();
    }
    int Width() const override { return width; }
    int Height() const override { return height; }
    bool AsyncShiftKey() override { return shift; }
    void setMouseCursor(MouseCursor cursor) override { cursors.push_back(cursor); }
    /// 20 pixels for each line of 10 characters.
    int StringHeight(const std::string& text, int wrapWidth, const TextStyle&) override {
        measuredWidth = wrapWidth;
        return 20 * static_cast<int>((text.size() + 9) / 10);
    }
    void drawnOver() override { ++drawn; }
    void MsgBox(std::string_view text) override { messages.emplace_back(text); }
};

} // namespace velmarin::test
