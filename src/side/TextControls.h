#pragma once

class QWidget;

namespace velmarin {

class AnchoredLayout;
class TextArea;
class TextFontBevelButton;
class TextSizeBevelButton;

/// The text of a side window with the buttons for its font and size, made and placed.
struct TextControls {
    TextControls(QWidget* window, AnchoredLayout& layout);

    TextArea* EF;
    TextFontBevelButton* BVfonts;
    TextSizeBevelButton* BVsize;
};

} // namespace velmarin
