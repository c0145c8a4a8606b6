#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace velmarin {

/// A color of text; each part from 0 to 255.
struct TextColor {
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;
    bool operator==(const TextColor&) const = default;
};

/// A stretch of text in UTF-16 code units: the position of the first, counted from 1, and the length.
struct TextHit {
    int position = 0;
    int length = 0;
};

/// The text into which look-ups are written and in which the find bar searches. Strings are UTF-8; lengths and
/// positions are in UTF-16 code units. Positions count from 0, except in findWord and its TextHit, which count from 1.
/// Styles are set on the selection, or, if nothing is selected, for what is inserted next.
class AnswerText {
  public:
    virtual ~AnswerText() = default;

    virtual int textLength() const = 0;
    virtual void clearText() = 0;
    /// Appends `text` and drops all styles, those of the present text too. The insertion point is at the end.
    virtual void assignWithAppended(std::string_view text) = 0;
    /// The first hit that begins at or after `start` (from 1; below 1: from the top), ignoring case. A hit lies within
    /// one paragraph. Returns nullopt for an empty word.
    virtual std::optional<TextHit> findWord(int start, std::string_view word) const = 0;

    /// Selects a stretch. What lies outside the text is left out.
    virtual void select(int start, int length) = 0;
    /// Replaces the selection by `text`; the insertion point is after it.
    virtual void setSelText(std::string_view text) = 0;
    virtual void setSelTextColor(TextColor color) = 0;
    /// Gives the selection the color of plain text.
    virtual void clearSelTextColor() = 0;
    /// In points.
    virtual double SelTextSize() const = 0;
    virtual void setSelTextSize(double points) = 0;
    virtual void setSelBold(bool bold) = 0;

    /// Makes the line with this position the first visible one, as far as the text can be scrolled.
    virtual void scrollToLineOf(int position) = 0;
};

} // namespace velmarin
