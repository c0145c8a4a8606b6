#include "text/SearchWord.h"

#include "text/CharacterFolding.h"
#include "text/FindReplace.h"
#include "text/Grep.h"
#include "text/LetterCase.h"
#include "text/NumberText.h"
#include "text/StringFields.h"
#include "text/Utf8.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <stdexcept>

namespace velmarin {

namespace {

/// The normal form of every character of the Basic Multilingual Plane, computed from the row tables.
class NormalForms {
  public:
    NormalForms() : forms_(kPlaneSize) {
        for (char32_t c = 0; c < kPlaneSize; ++c) {
            char bytes[4];
            set(c, std::string_view(bytes, encodeUtf8(capitalOf(c), bytes)));
        }
        for (const FoldingTable* table : tables())
            for (const FoldingRow& row : table->rows)
                set(decodeUtf8(row.find, 0).value, Uppercase(chain(row.find)));
    }

    /// `unit` must be less than kPlaneSize.
    std::string_view of(char32_t unit) const { return {forms_[unit].bytes, forms_[unit].length}; }

    static constexpr char32_t kPlaneSize = 0x10000;

  private:
    struct Form {
        char bytes[7];
        std::uint8_t length;
    };

    static std::vector<const FoldingTable*> tables() {
        return {&zenToHanAlphTable(),  &zenToHanMarkTable(), &zenToHanNumTable(),
                &zenToHanSpaceTable(), &kataToHiraTable(),   &removeAccentTable()};
    }

    static std::string chain(std::string text) {
        for (const FoldingTable* table : tables())
            text = table->apply(text);
        return text;
    }

    void set(char32_t c, std::string_view form) {
        Form& entry = forms_.at(c);
        if (form.size() > sizeof entry.bytes)
            throw std::length_error("a conversion row is longer than a form can hold");
        std::memcpy(entry.bytes, form.data(), form.size());
        entry.length = static_cast<std::uint8_t>(form.size());
    }

    std::vector<Form> forms_;
};

} // namespace

void appendSearchWord(std::string& words, std::string_view text) {
    static const NormalForms forms;
    for (std::size_t pos = 0; pos < text.size();) {
        const std::size_t from = pos;
        while (pos < text.size() && isAscii(text[pos]))
            ++pos;
        const std::size_t written = words.size();
        words.append(text, from, pos - from);
        std::transform(words.begin() + static_cast<std::ptrdiff_t>(written), words.end(),
                       words.begin() + static_cast<std::ptrdiff_t>(written), asciiCapital);
        if (pos == text.size())
            return;
        const Utf8Unit unit = decodeUtf8(text, pos);
        if (unit.value < NormalForms::kPlaneSize)
            words += forms.of(unit.value);
        else
            appendUtf8(words, capitalOf(unit.value));
        pos += unit.length;
    }
}

std::string mSub_MakeSearchWord(std::string_view text) {
    std::string word;
    word.reserve(text.size());
    appendSearchWord(word, text);
    return word;
}

std::string mSub_Spanish(std::string_view text, int direction) {
    if (direction == 0)
        return ReplaceAll(ReplaceAll(text, "ch", "c\u0283"), "ll", "l\u028E");
    return ReplaceAll(ReplaceAll(text, "c\u0283", "ch"), "l\u028E", "ll");
}

std::string mSub_IJUV(std::string_view text) {
    std::string result(text);
    for (char& c : result) {
        switch (c) {
        case 'j':
            c = 'i';
            break;
        case 'J':
            c = 'I';
            break;
        case 'v':
            c = 'u';
            break;
        case 'V':
            c = 'U';
            break;
        default:
            break;
        }
    }
    return result;
}

std::string mSub_Format(std::string_view text, std::string_view format) {
    mStrMod_GrepMBS_Search(0, format, kFieldSeparatorPattern);
    const std::string delimiter = mStrMod_GrepMBS_FoundStr();
    const std::string query = mStrMod_GrepMBS_ReplaceAll(text, kFieldSeparatorPattern, delimiter);
    if (InStr(0, format, delimiter) == 0)
        return Format(CDbl(text), format);

    const std::vector<std::string> formats = Split(format, delimiter);
    std::vector<std::string> fields = Split(query, delimiter);
    for (std::size_t i = 0; i < std::min(formats.size(), fields.size()); ++i) {
        const double number = CDbl(fields[i]);
        if (fields[i] == "0" || number != 0)
            fields[i] = Format(number, formats[i]);
    }
    return Join(fields, delimiter);
}

std::string indexSearchWord(std::string_view line, const IndexOrder& order) {
    const std::string_view key = NthField(line, "__DLM__", 1);
    if (order.SpanishMode)
        return mSub_MakeSearchWord(mSub_Spanish(key, 0));
    if (order.IJUVMode)
        return mSub_MakeSearchWord(mSub_IJUV(key));
    return mSub_MakeSearchWord(key);
}

std::string querySearchWord(std::string_view query, const IndexOrder& order, bool plain) {
    const bool isNumber = !order.FormatFom.empty() && CDbl(query) != 0;
    std::string word = isNumber ? mSub_Format(query, order.FormatFom) : mSub_MakeSearchWord(query);
    if (plain)
        return word;
    if (order.SpanishMode)
        return mSub_Spanish(word, 0);
    if (order.IJUVMode)
        return mSub_IJUV(word);
    return word;
}

} // namespace velmarin
