#include "text/SearchWord.h"

#include "text/FindReplace.h"
#include "text/Grep.h"
#include "text/NormalForms.h"
#include "text/NumberText.h"
#include "text/StringFields.h"
#include "text/Utf8.h"

#include <algorithm>

namespace velmarin {

void appendSearchWord(std::string& words, std::string_view text) {
    const NormalForms& forms = NormalForms::table();
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
        char form[NormalForms::kRoom];
        words.append(form, forms.write(unit.value, form));
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
