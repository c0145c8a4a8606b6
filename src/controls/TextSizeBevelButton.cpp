#include "controls/TextSizeBevelButton.h"

#include "controls/TextTarget.h"
#include "text/StringRules.h"

#include <cstdlib>

namespace velmarin {

namespace {

constexpr int kSmallestSize = 9;
constexpr int kFirstEvenSize = 10;
constexpr int kLargestSize = 40;
constexpr int kSizeAtOpening = 14;
constexpr int kSizeBeyondTheRows = 10;

} // namespace

void TextSizeBevelButton::Event_Open() {
    setHasMenu(true);
    SizeArray.push_back(kSmallestSize);
    for (int size = kFirstEvenSize; size <= kLargestSize; size += 2)
        SizeArray.push_back(size);
    for (const int size : SizeArray)
        AddRow(Str(size));
    CurrentFontSize = kSizeAtOpening;
    connect(this, &BevelButton::rowChosen, this, &TextSizeBevelButton::Event_Action);
    emit Open();
}

void TextSizeBevelButton::Event_Action() {
    ApplySelection();
}

void TextSizeBevelButton::SetObjObject(QWidget* target) {
    objObject.emplace_back(target);
}

int TextSizeBevelButton::GetFontSize(int row) const {
    const auto at = static_cast<std::size_t>(std::abs(static_cast<long long>(row)));
    return at < SizeArray.size() ? SizeArray[at] : kSizeBeyondTheRows;
}

void TextSizeBevelButton::ApplySelection() {
    const auto row = static_cast<std::size_t>(MenuValue());
    const TextChange change{.family = {}, .points = static_cast<float>(SizeArray.at(row))};
    // By index, since a listener may add targets.
    for (std::size_t i = 0; i < objObject.size(); ++i) {
        if (objObject[i].isNull())
            continue;
        applyTo(objObject[i], change, Styled);
        emit Action(SizeArray.at(row), objObject[i]);
    }
    CurrentFontSize = SizeArray.at(row);
}

void TextSizeBevelButton::SelectMenuFromFontSize(int size) {
    setMenuValue(0);
    for (std::size_t row = 0; row < SizeArray.size(); ++row)
        if (SizeArray[row] == size)
            setMenuValue(static_cast<int>(row));
    ApplySelection();
}

} // namespace velmarin
