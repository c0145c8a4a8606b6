#include "controls/TextFontBevelButton.h"

#include "controls/QtText.h"
#include "controls/TextTarget.h"
#include "text/StringRules.h"

#include <QFontDatabase>

#include <cstdlib>

namespace velmarin {

namespace {

constexpr std::string_view kSystemFont = "System";

} // namespace

void TextFontBevelButton::Event_Open() {
    setHasMenu(true);
    for (const QString& family : QFontDatabase::families())
        FontArray.push_back(fromQ(family));
    setRows(FontArray);
    CurrentFontName = kSystemFont;
    connect(this, &BevelButton::rowChosen, this, &TextFontBevelButton::Event_Action);
    emit Open();
}

void TextFontBevelButton::Event_Action() {
    ApplySelection();
}

void TextFontBevelButton::SetObjObject(QWidget* target) {
    ObjObject.emplace_back(target);
}

std::string TextFontBevelButton::GetFontName(int row) const {
    const auto at = static_cast<std::size_t>(std::abs(static_cast<long long>(row)));
    return at < FontArray.size() ? FontArray[at] : std::string(kSystemFont);
}

void TextFontBevelButton::ApplySelection() {
    const auto row = static_cast<std::size_t>(MenuValue());
    const TextChange change{.family = toQ(FontArray.at(row)), .points = {}};
    // By index, since a listener may add targets.
    for (std::size_t i = 0; i < ObjObject.size(); ++i) {
        if (ObjObject[i].isNull())
            continue;
        applyTo(ObjObject[i], change, Styled);
        emit Action(FontArray.at(row), ObjObject[i]);
    }
    CurrentFontName = FontArray.at(row);
}

void TextFontBevelButton::SelectMenuFromFontName(std::string_view name) {
    setMenuValue(0);
    for (std::size_t row = 0; row < FontArray.size(); ++row)
        if (equalStrings(FontArray[row], name))
            setMenuValue(static_cast<int>(row));
    ApplySelection();
}

} // namespace velmarin
