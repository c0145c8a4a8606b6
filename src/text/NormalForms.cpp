#include "text/NormalForms.h"

#include "text/CharacterFolding.h"
#include "text/LetterCase.h"

#include <stdexcept>
#include <string>

namespace velmarin {

namespace {

std::vector<const FoldingTable*> tables() {
    return {&zenToHanAlphTable(),  &zenToHanMarkTable(), &zenToHanNumTable(),
            &zenToHanSpaceTable(), &kataToHiraTable(),   &removeAccentTable()};
}

std::string chain(std::string text) {
    for (const FoldingTable* table : tables())
        text = table->apply(text);
    return text;
}

} // namespace

const NormalForms& NormalForms::table() {
    static const NormalForms forms;
    return forms;
}

NormalForms::NormalForms() : forms_(kPlaneSize) {
    for (char32_t c = 0; c < kPlaneSize; ++c) {
        char bytes[4];
        set(c, std::string_view(bytes, encodeUtf8(capitalOf(c), bytes)));
    }
    for (const FoldingTable* table : tables())
        for (const FoldingRow& row : table->rows)
            set(decodeUtf8(row.find, 0).value, Uppercase(chain(row.find)));
}

void NormalForms::set(char32_t c, std::string_view form) {
    char bytes[4];
    if (form.size() > kRoom - 1 || form.size() > kMostGrowth * encodeUtf8(c, bytes))
        throw std::length_error("a conversion row is longer than a form can hold");
    Form& entry = forms_.at(c);
    std::memcpy(entry.bytes, form.data(), form.size());
    entry.length = static_cast<std::uint8_t>(form.size());
}

std::size_t NormalForms::writeBeyondPlane(char32_t unit, char* out) {
    return encodeUtf8(capitalOf(unit), out);
}

} // namespace velmarin
