#include "controls/TextStyleBevelButton.h"

#include "platform/QtText.h"
#include "text/LetterCase.h"

#include <QFont>
#include <QFontDatabase>

#include <cstdlib>
#include <utility>

namespace velmarin {

namespace {

/// The value at the absolute value of `row`; `beyond` after the last.
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
    setRows(makeMenu());
    emit Open();
}

void TextStyleBevelButton::ApplySelection() {
    const int row = MenuValue();
    // By index, because a handler may add targets.
    for (std::size_t i = 0; i < targets_.size(); ++i) {
        const QPointer<QWidget> target = targets_[i];
        if (target.isNull())
            continue;
        applyFontChange(target, changeFor(row), Styled);
        emitAction(row, target);
    }
    setCurrent(row);
}

TextFontBevelButton::TextFontBevelButton(QWidget* parent) : TextStyleBevelButton("Font", parent) {}

std::vector<std::string> TextFontBevelButton::makeMenu() {
    for (const QString& family : QFontDatabase::families())
        FontArray.push_back(fromQ(family));
    CurrentFontName = "System";
    return FontArray;
}

FontChange TextFontBevelButton::changeFor(int row) const {
    const QString family = toQ(FontArray.at(static_cast<std::size_t>(row)));
    FontChange change;
    change.applyTo = [family](QFont& font) { font.setFamily(family); };
    change.format.setFontFamilies({family});
    return change;
}

void TextFontBevelButton::emitAction(int row, QWidget* target) {
    emit Action(FontArray.at(static_cast<std::size_t>(row)), target);
}

void TextFontBevelButton::setCurrent(int row) {
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

std::vector<std::string> TextSizeBevelButton::makeMenu() {
    SizeArray = {9};
    for (std::int32_t size = 10; size <= 40; size += 2)
        SizeArray.push_back(size);
    CurrentFontSize = 14;
    std::vector<std::string> rows;
    for (const std::int32_t size : SizeArray)
        rows.push_back(std::to_string(size));
    return rows;
}

FontChange TextSizeBevelButton::changeFor(int row) const {
    const auto size = static_cast<float>(SizeArray.at(static_cast<std::size_t>(row)));
    FontChange change;
    change.applyTo = [size](QFont& font) { font.setPointSizeF(size); };
    change.format.setFontPointSize(size);
    return change;
}

void TextSizeBevelButton::emitAction(int row, QWidget* target) {
    emit Action(SizeArray.at(static_cast<std::size_t>(row)), target);
}

void TextSizeBevelButton::setCurrent(int row) {
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
