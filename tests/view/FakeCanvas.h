#pragma once

#include "Pictures.h"
#include "view/PageView.h"

#include <deque>
#include <map>

namespace velmarin::test {

/// A canvas without a window: it paints into a list of commands and records the calls to it.
class FakeCanvas : public CanvasPort {
  public:
    explicit FakeCanvas(int width = 800, int height = 700) : width(width), height(height) { view.Event_Open(); }

    int width, height;
    bool shift = false;
    std::deque<bool> shiftReads; ///< answers to come, before `shift`
    int refreshes = 0;
    int drawn = 0;
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
    /// The last thing drawn over the page, as what it should be.
    template <typename Command> const Command& over(std::size_t fromEnd = 0) const {
        const auto& all = view.drawnOver();
        return std::get<Command>(all.at(all.size() - 1 - fromEnd));
    }
    int scrollX() const { return position()[2]; }
    int scrollY() const { return position()[3]; }

    void Refresh() override {
        ++refreshes;
        paint();
    }
    int Width() const override { return width; }
    int Height() const override { return height; }
    bool AsyncShiftKey() override {
        if (shiftReads.empty())
            return shift;
        const bool next = shiftReads.front();
        shiftReads.pop_front();
        return next;
    }
    void setMouseCursor(MouseCursor cursor) override { cursors.push_back(cursor); }
    /// 20 pixels for each line of 10 characters.
    int StringHeight(const std::string& text, int wrapWidth, const TextStyle&) override {
        measuredWidth = wrapWidth;
        return 20 * static_cast<int>((text.size() + 9) / 10);
    }
    void drawnOver() override { ++drawn; }
    void MsgBox(std::string_view text) override { messages.emplace_back(text); }

    int measuredWidth = 0;

  private:
    std::array<int, 4> position() const {
        std::array<int, 4> a{};
        view.GetScrollPosition(a);
        return a;
    }
};

} // namespace velmarin::test
