#include "controls/TextStyleBevelButton.h"

#include "controls/QtText.h"
#include "text/LetterCase.h"

#include <QFont>
#include <QFontDatabase>

#include <cstdlib>
#include <utility>

namespace velmarin {

namespace {

/// The value at a row or its absolute value, `beyond` where there is none.
template <typename Value> Value valueAt(const std::vector<Value>& values, std::int32_t row, Value beyond) {
    const auto place = static_cast<std::size_t>(std::llabs(row));
    return place < values.size() ? values[place] : beyond;
}

} // namespace

TextStyleBevelButton::TextStyleBevelButton(std::string_view caption, QWidget* parent) : BevelButton(caption, parent) {
    setHasMenu(true);
    setShowsCurrentRow(true);
    connect(this, &BevelButton::rowChosen, this, &TextStyleBevelButton::Event_Action);
}

void TextStyleBevelButton::Event_Open() {
    if (std::exchange(opened_, true))
        return;
    setRows(makeRows());
    emit Open();
}

void TextStyleBevelButton::ApplySelection() {
    const int row = MenuValue();
    // By number, since a handler may register more.
    for (std::size_t i = 0; i < targets_.size(); ++i) {
        const QPointer<QWidget> target = targets_[i];
        if (target.isNull())
            continue;
        applyFontChange(target, styleOf(row), Styled);
        tellApplied(row, target);
    }
    keepCurrent(row);
}

TextFontBevelButton::TextFontBevelButton(QWidget* parent) : TextStyleBevelButton("Font", parent) {}

std::vector<std::string> TextFontBevelButton::makeRows() {
    for (const QString& family : QFontDatabase::families())
        FontArray.push_back(fromQ(family));
    CurrentFontName = "System";
    return FontArray;
}

FontChange TextFontBevelButton::styleOf(int row) const {
    const QString family = toQ(FontArray.at(static_cast<std::size_t>(row)));
    FontChange style;
    style.base = [family](QFont& font) { font.setFamily(family); };
    style.selection.setFontFamilies({family});
    return style;
}

void TextFontBevelButton::tellApplied(int row, QWidget* target) {
    emit Action(FontArray.at(static_cast<std::size_t>(row)), target);
}

void TextFontBevelButton::keepCurrent(int row) {
    CurrentFontName = FontArray.at(static_cast<std::size_t>(row));
}

std::string TextFontBevelButton::GetFontName(std::int32_t row) const {
    return valueAt(FontArray, row, std::string("System"));
}

void TextFontBevelButton::SelectMenuFromFontName(std::string_view name) {
    setMenuValue(0);
    for (std::size_t row = 0; row < FontArray.size(); ++row)
        if (equalStrings(FontArray[row], name))
            setMenuValue(static_cast<int>(row));
    ApplySelection();
}

TextSizeBevelButton::TextSizeBevelButton(QWidget* parent) : TextStyleBevelButton("Size", parent) {}

std::vector<std::string> TextSizeBevelButton::makeRows() {
    SizeArray = {9};
    for (std::int32_t half = 5; half <= 20; ++half)
        SizeArray.push_back(2 * half);
    CurrentFontSize = 14;
    std::vector<std::string> rows;
    for (const std::int32_t size : SizeArray)
        rows.push_back(std::to_string(size));
    return rows;
}

FontChange TextSizeBevelButton::styleOf(int row) const {
    const auto size = static_cast<float>(SizeArray.at(static_cast<std::size_t>(row)));
    FontChange style;
    style.base = [size](QFont& font) { font.setPointSizeF(size); };
    style.selection.setFontPointSize(size);
    return style;
}

void TextSizeBevelButton::tellApplied(int row, QWidget* target) {
    emit Action(SizeArray.at(static_cast<std::size_t>(row)), target);
}

void TextSizeBevelButton::keepCurrent(int row) {
    CurrentFontSize = SizeArray.at(static_cast<std::size_t>(row));
}

std::int32_t TextSizeBevelButton::GetFontSize(std::int32_t row) const {
    return valueAt(SizeArray, row, 10);
}

void TextSizeBevelButton::SelectMenuFromFontSize(std::int32_t size) {
    setMenuValue(0);
    for (std::size_t row = 0; row < SizeArray.size(); ++row)
        if (SizeArray[row] == size)
            setMenuValue(static_cast<int>(row));
    ApplySelection();
}

} // namespace velmarin
