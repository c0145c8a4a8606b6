#include "store/IndexWords.h"

#include "files/LineReader.h"
#include "text/LetterCase.h"
#include "text/NormalForms.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <memory>

namespace velmarin {

namespace {

constexpr std::string_view kKeyEnd = "__DLM__";
/// How much of the index is read between two moves of the words to their buffer.
constexpr std::size_t kPiece = std::size_t{1} << 15;

unsigned char byteAt(const char* at) {
    return static_cast<unsigned char>(*at);
}

/// What an order makes of each byte; 0 for one that needs a closer look, with what follows it.
std::array<char, 256> byteTable(const IndexOrder& order) {
    std::array<char, 256> table{};
    for (int c = 1; c < 0x80; ++c)
        table[static_cast<std::size_t>(c)] = asciiCapital(static_cast<char>(c));
    for (const char c : {'\n', '\r', '_'})
        table[byteAt(&c)] = 0;
    if (order.SpanishMode)
        for (const char c : {'c', 'C', 'l', 'L'})
            table[byteAt(&c)] = 0;
    else if (order.IJUVMode)
        for (const auto& [from, to] : {std::pair{'j', 'I'}, {'J', 'I'}, {'v', 'U'}, {'V', 'U'}})
            table[byteAt(&from)] = to;
    return table;
}

/// Where the reading is, and where the next byte of a word is written.
struct Place {
    const char* at;
    char* out;
};

/// Reads up to `stop` or to a byte that needs a closer look. `end` is that of the index.
Place ordinaryRun(Place place, const char* stop, const char* end, const std::array<char, 256>& table,
                  const NormalForms& forms) {
    const char* at = place.at;
    char* out = place.out;
    while (at < stop) {
        for (char plain; at < stop && (plain = table[byteAt(at)]) != 0; ++at)
            *out++ = plain;
        if (at == stop || isAscii(*at))
            break;
        do {
            const Utf8Unit unit = decodeUtf8({at, static_cast<std::size_t>(end - at)}, 0);
            at += unit.length;
            out += forms.write(unit.value, out);
        } while (at < stop && !isAscii(*at));
    }
    return {at, out};
}

class IndexReading {
  public:
    IndexReading(std::string_view ind, const IndexOrder& order)
        : table_(byteTable(order)), end_(ind.data() + ind.size()),
          piece_(std::make_unique_for_overwrite<char[]>(kPieceRoom)) {
        words_.text.reserve(ind.size());
        words_.ends.reserve(static_cast<std::size_t>(std::count(ind.begin(), ind.end(), '\n')) + 1);
        lineBegin_ = ind.data() + (ind.starts_with(kByteOrderMark) ? kByteOrderMark.size() : 0);
    }

    IndexWords words() {
        for (const char* at = lineBegin_; at < end_;)
            at = readPiece(at);
        if (lineBegin_ < end_)
            words_.ends.push_back(static_cast<std::uint32_t>(words_.text.size()));
        return std::move(words_);
    }

  private:
    /// A character at the end of the piece may reach beyond it.
    static constexpr std::size_t kPieceRoom = NormalForms::kMostGrowth * kPiece + 2 * NormalForms::kRoom;

    const char* readPiece(const char* at) {
        const char* const stop = at + std::min<std::ptrdiff_t>(kPiece, end_ - at);
        Place place{at, piece_.get()};
        while (place.at < stop) {
            place = ordinaryRun(place, stop, end_, table_, forms_);
            if (place.at < stop)
                place = closerLook(place);
        }
        words_.text.append(piece_.get(), place.out);
        return place.at;
    }

    Place closerLook(Place place) {
        switch (*place.at) {
        case '\n':
        case '\r':
            return endLine(place);
        case '_':
            if (rest(place.at).starts_with(kKeyEnd))
                return {lineEnd(place.at + kKeyEnd.size()), place.out};
            *place.out = '_';
            return {place.at + 1, place.out + 1};
        case 'c':
        case 'C':
            return digraph(place, 'H', U'\u0283');
        case 'l':
        case 'L':
            return digraph(place, 'L', U'\u028E');
        default: // NUL
            *place.out = *place.at;
            return {place.at + 1, place.out + 1};
        }
    }

    Place endLine(Place place) {
        const auto end = words_.text.size() + static_cast<std::size_t>(place.out - piece_.get());
        words_.ends.push_back(static_cast<std::uint32_t>(end));
        lineBegin_ = place.at + (rest(place.at).starts_with("\r\n") ? 2 : 1);
        return {lineBegin_, place.out};
    }

    /// A letter that is encoded if `second` follows it, in either case.
    Place digraph(Place place, char second, char32_t code) {
        *place.out++ = asciiCapital(*place.at++);
        if (place.at == end_ || asciiCapital(*place.at) != second)
            return place;
        return {place.at + 1, place.out + forms_.write(code, place.out)};
    }

    const char* lineEnd(const char* at) const {
        return std::find_if(at, end_, [](char c) { return c == '\n' || c == '\r'; });
    }

    std::string_view rest(const char* at) const { return {at, static_cast<std::size_t>(end_ - at)}; }

    const std::array<char, 256> table_;
    const NormalForms& forms_ = NormalForms::table();
    const char* lineBegin_;
    const char* const end_;
    std::unique_ptr<char[]> piece_;
    IndexWords words_;
};

} // namespace

IndexWords readIndexWords(std::string_view ind, const IndexOrder& order) {
    return IndexReading(ind, order).words();
}

} // namespace velmarin
