#include "reading/HeadParts.h"

#include "reading/GreekLetters.h"
#include "text/SearchWord.h"
#include "text/StringFields.h"
#include "text/Utf8.h"

#include <algorithm>
#include <array>

namespace velmarin {

namespace {

/// Distances between words, as parts of the height of their line.
constexpr double kPartGap = 1.3;
constexpr double kTornGap = 0.2;
/// Pages with two words in alphabetical order around a hyphen that show that guide words are joined by it.
constexpr std::size_t kLeastPairs = 3;

constexpr std::array<std::string_view, 5> kLongDashes{"–", "—", "―", "−", "‒"};
constexpr std::array<std::string_view, 4> kJointWords{"bis", "to", "à", "until"};
/// What recognizers take digits for, and the digits.
constexpr std::string_view kDigitLike = "OoQlIi|!SsBZzgqA";
constexpr std::string_view kDigitsMeant = "0001111155822994";
/// What else old-style figures are taken for, and which they may be.
constexpr std::array<std::pair<char, std::string_view>, 12> kOldFigures{{{'a', "12"},
                                                                         {'d', "1"},
                                                                         {'e', "6"},
                                                                         {'j', "1"},
                                                                         {'n', "1"},
                                                                         {'r', "1"},
                                                                         {'s', "58"},
                                                                         {'S', "58"},
                                                                         {'t', "1"},
                                                                         {'u', "1"},
                                                                         {'z', "2"},
                                                                         {'$', "58"}}};
constexpr std::size_t kMostFigures = 4;
/// How likely a short part is the number that it looks like.
constexpr double kFigures = 0.4, kLikeFigures = 0.3;

bool isDigit(char32_t c) {
    return c >= '0' && c <= '9';
}

bool isLetter(char32_t c) {
    if (c < 0x80)
        return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
    const bool mark = c < 0xC0 || c == 0xD7 || c == 0xF7 || (c >= 0x2000 && c < 0x2C00) || (c >= 0x3000 && c < 0x3005);
    return !mark && !isGreekMark(c) && c < kInvalidByteUnit;
}

bool isLongDash(std::string_view text) {
    return std::find(kLongDashes.begin(), kLongDashes.end(), text) != kLongDashes.end();
}

bool isDash(std::string_view text) {
    return text == "-" || text == "--" || isLongDash(text);
}

/// The digits that a word may mean: "1O2" is "102". Empty if it has letters that no digit looks like, or no digit.
std::string digitsMeant(std::string_view text) {
    std::string digits;
    bool real = false;
    for (const char c : text) {
        const std::size_t like = kDigitLike.find(c);
        if (isDigit(static_cast<unsigned char>(c)) || like != std::string_view::npos) {
            real = real || like == std::string_view::npos;
            digits += like == std::string_view::npos ? c : kDigitsMeant[like];
        } else if (isLetter(static_cast<unsigned char>(c)) || static_cast<unsigned char>(c) >= 0xC0) {
            return {};
        }
    }
    return real ? digits : std::string();
}

/// Each figure that a letter may be.
std::string figuresLike(char c) {
    if (isDigit(static_cast<unsigned char>(c)))
        return {c};
    for (const auto& [letter, figures] : kOldFigures)
        if (letter == c)
            return std::string(figures);
    const std::size_t like = kDigitLike.find(c);
    return like == std::string_view::npos ? std::string() : std::string{kDigitsMeant[like]};
}

/// The numbers that a word of old-style figures may be: "ao" is "10" or "20". Empty if it has a letter that no figure
/// looks like.
std::vector<std::string> oldNumbersMeant(std::string_view text) {
    std::vector<std::string> numbers{""};
    for (const char c : text) {
        std::vector<std::string> longer;
        for (const std::string& number : numbers)
            for (const char figure : figuresLike(c))
                longer.push_back(number + figure);
        numbers = std::move(longer);
    }
    std::erase_if(numbers, [](const std::string& number) { return number.empty() || number.starts_with('0'); });
    return numbers;
}

bool hasLetter(std::string_view text) {
    for (std::size_t at = 0; at < text.size();) {
        const Utf8Unit unit = decodeUtf8(text, at);
        if (isLetter(unit.value))
            return true;
        at += unit.length;
    }
    return false;
}

/// A word of a line, cut where a dash joins two guide words.
struct Piece {
    TextWord word;
    bool afterJoint = false;
};

/// The place of the dash in "AAR–ABB", and its length; npos if there is none between letters.
std::pair<std::size_t, std::size_t> innerDash(const std::string& text, const GuideJoint& joint) {
    const auto between = [&](std::size_t at, std::size_t length) {
        return at != std::string::npos && hasLetter(text.substr(0, at)) && hasLetter(text.substr(at + length));
    };
    for (const std::string_view dash : kLongDashes)
        if (const std::size_t at = text.find(dash); between(at, dash.size()))
            return {at, dash.size()};
    const std::size_t at = joint.hyphen ? text.find('-') : std::string::npos;
    return between(at, 1) ? std::pair(at, std::size_t{1}) : std::pair(std::string::npos, std::size_t{0});
}

/// Appends a word, or both words that a dash in it joins. Other readings of a word that is cut are cut likewise.
void appendPieces(std::vector<Piece>& pieces, const TextWord& word, bool afterJoint, const GuideJoint& joint) {
    const auto [at, length] = innerDash(word.text, joint);
    if (at == std::string::npos) {
        pieces.push_back({word, afterJoint});
        return;
    }
    TextWord one = word, other = word;
    one.text.resize(at);
    other.text.erase(0, at + length);
    one.others.clear();
    other.others.clear();
    for (const std::string& reading : word.others)
        if (const auto [cut, dash] = innerDash(reading, joint); cut != std::string::npos) {
            one.others.push_back(reading.substr(0, cut));
            other.others.push_back(reading.substr(cut + dash));
        }
    one.box.width = static_cast<int>(word.box.width * at / word.text.size());
    other.box.x = one.box.right();
    other.box.width = word.box.right() - other.box.x;
    pieces.push_back({std::move(one), afterJoint});
    pieces.push_back({std::move(other), true});
}

std::vector<Piece> piecesOf(const TextLine& line, const GuideJoint& joint) {
    std::vector<TextWord> words = line.words;
    std::stable_sort(words.begin(), words.end(),
                     [](const TextWord& a, const TextWord& b) { return a.box.x < b.box.x; });
    std::vector<Piece> pieces;
    bool afterJoint = false;
    for (const TextWord& word : words) {
        const bool jointWord =
            joint.word && std::find(kJointWords.begin(), kJointWords.end(), word.text) != kJointWords.end();
        if (isDash(word.text) || jointWord) {
            afterJoint = !pieces.empty();
            continue;
        }
        if (!hasLetter(word.text) && digitsMeant(word.text).empty())
            continue;
        appendPieces(pieces, word, afterJoint, joint);
        afterJoint = false;
    }
    return pieces;
}

double heightOf(const std::vector<Piece>& pieces) {
    std::vector<int> heights;
    heights.reserve(pieces.size());
    for (const Piece& each : pieces)
        heights.push_back(std::max(each.word.box.height, 1));
    std::sort(heights.begin(), heights.end());
    return heights[heights.size() * 3 / 4];
}

bool isNumber(const TextWord& word) {
    return !digitsMeant(word.text).empty();
}

/// Adds a reading unless it is there, which then counts with the higher confidence.
void addReading(std::vector<Guess>& readings, std::string text, double confidence) {
    if (text.empty())
        return;
    const auto same =
        std::find_if(readings.begin(), readings.end(), [&](const Guess& each) { return each.text == text; });
    if (same == readings.end())
        readings.push_back({std::move(text), confidence});
    else
        same->confidence = std::max(same->confidence, confidence);
}

/// The readings of words that belong together. Other readings share what the best one leaves, each half of the one
/// before.
std::vector<Guess> readingsOf(const std::vector<TextWord>& words, double height, bool number) {
    const auto text = [&](std::size_t changed, const std::string& reading, bool torn) {
        std::string all;
        for (std::size_t i = 0; i < words.size(); ++i) {
            const double gap = i == 0 ? 0 : words[i].box.x - words[i - 1].box.right();
            all += i > 0 && !torn && gap >= kTornGap * height ? " " : "";
            all += i == changed ? reading : words[i].text;
        }
        return number ? digitsMeant(all) : trimmedHeadword(all);
    };
    double confidence = 1;
    for (const TextWord& word : words)
        confidence = std::min(confidence, std::clamp(word.confidence, 0.0, 1.0));
    std::vector<Guess> readings;
    const bool spaced = words.size() > 2 && std::all_of(words.begin(), words.end(), [](const TextWord& word) {
                            return word.text.size() <= 2; // a letter, maybe with an accent: "A B A C U S"
                        });
    addReading(readings, text(0, words[0].text, spaced), confidence);
    if (words.size() > 1 && !number)
        addReading(readings, text(0, words[0].text, !spaced), (1 - confidence) / 2);
    for (std::size_t i = 0; i < words.size(); ++i) {
        double share = (1 - confidence) / 2;
        for (const std::string& other : words[i].others) {
            addReading(readings, text(i, other, spaced), share);
            share /= 2;
        }
    }
    return readings;
}

/// What a word may mean as a number, if it is as short as one.
std::vector<Guess> figuresOf(const TextWord& word) {
    std::vector<Guess> figures;
    if (word.text.size() > kMostFigures)
        return figures;
    std::vector<std::string> texts{word.text};
    texts.insert(texts.end(), word.others.begin(), word.others.end());
    for (const std::string& text : texts)
        addReading(figures, digitsMeant(text), kFigures);
    for (const std::string& text : texts)
        for (std::string& number : text.size() > kMostFigures ? std::vector<std::string>() : oldNumbersMeant(text))
            addReading(figures, std::move(number), kLikeFigures);
    return figures;
}

/// Words of a line that belong together.
struct Group {
    std::vector<TextWord> words;
    bool afterJoint = false;
};

std::vector<Group> groupsOf(const std::vector<Piece>& pieces, double height) {
    std::vector<Group> groups;
    bool afterNumber = false;
    for (const Piece& piece : pieces) {
        const double gap = groups.empty() ? 0 : piece.word.box.x - groups.back().words.back().box.right();
        const bool number = isNumber(piece.word);
        // The digit of a homograph, as in "bow 2".
        if (number && !groups.empty() && !afterNumber && gap < height / 2 && digitsMeant(piece.word.text).size() == 1)
            continue;
        if (groups.empty() || number || afterNumber || piece.afterJoint || gap > kPartGap * height)
            groups.push_back({{}, piece.afterJoint});
        groups.back().words.push_back(piece.word);
        afterNumber = number;
    }
    return groups;
}

/// Whether a hyphen joins two words with the same initial that are in the order of the alphabet, as guide words are and
/// compounds are only by chance.
bool isPair(const std::string& text) {
    const std::size_t at = innerDash(text, {.hyphen = true}).first;
    if (at == std::string::npos)
        return false;
    const std::string one = lettersOf(text.substr(0, at)), other = lettersOf(text.substr(at + 1));
    return !one.empty() && !other.empty() && one < other && decodeUtf8(one, 0).value == decodeUtf8(other, 0).value;
}

void appendParts(const PageText& text, bool foot, const GuideJoint& joint, std::vector<HeadPart>& parts) {
    double width = text.width;
    for (const TextLine& line : text.lines)
        for (const TextWord& word : line.words)
            width = std::max(width, static_cast<double>(word.box.right()));
    for (std::size_t i = 0; i < text.lines.size(); ++i) {
        const std::vector<Piece> pieces = piecesOf(text.lines[i], joint);
        if (pieces.empty())
            continue;
        const double height = heightOf(pieces);
        for (const auto& [group, afterJoint] : groupsOf(pieces, height)) {
            const bool number = isNumber(group.front());
            HeadPart part{.left = group.front().box.x / std::max(width, 1.0),
                          .right = group.back().box.right() / std::max(width, 1.0),
                          .y = (group.front().box.y + group.front().box.height / 2.0) / std::max(text.height, 1),
                          .foot = foot,
                          .line = i,
                          .joined = afterJoint,
                          .number = number,
                          .readings = readingsOf(group, height, number)};
            if (group.size() == 1)
                part.figures = figuresOf(group.front());
            for (const Guess& figure : number ? part.figures : std::vector<Guess>())
                addReading(part.readings, figure.text, kLikeFigures);
            if (!part.readings.empty())
                parts.push_back(std::move(part));
        }
    }
}

} // namespace

GuideJoint guideJointOf(const std::vector<PageReading>& readings) {
    std::size_t pages = 0, hyphens = 0, pairs = 0, words = 0;
    for (const PageReading& reading : readings) {
        bool hyphen = false, pair = false, word = false, any = false;
        for (const PageText* text : {&reading.head, &reading.foot})
            for (const TextLine& line : text->lines)
                for (const TextWord& each : line.words) {
                    any = true;
                    hyphen = hyphen || innerDash(each.text, {.hyphen = true}).first != std::string::npos;
                    pair = pair || isPair(each.text);
                    word = word || (&each != &line.words.front() && &each != &line.words.back() &&
                                    std::find(kJointWords.begin(), kJointWords.end(), each.text) != kJointWords.end());
                }
        pages += any ? 1 : 0;
        hyphens += hyphen ? 1 : 0;
        pairs += pair ? 1 : 0;
        words += word ? 1 : 0;
    }
    const bool manyPairs = pairs >= kLeastPairs && pairs * 2 > hyphens;
    return {.hyphen = manyPairs || hyphens * 2 > pages, .word = words * 2 > pages};
}

std::vector<HeadPart> headPartsOf(const PageReading& reading, const GuideJoint& joint) {
    std::vector<HeadPart> parts;
    appendParts(reading.head, false, joint, parts);
    appendParts(reading.foot, true, joint, parts);
    return parts;
}

std::string trimmedHeadword(std::string_view read) {
    const std::string text = plainGreek(read);
    std::size_t begin = text.size(), end = 0;
    for (std::size_t at = 0; at < text.size();) {
        const Utf8Unit unit = decodeUtf8(text, at);
        if (isLetter(unit.value)) {
            begin = std::min(begin, at);
            end = at + unit.length;
        }
        at += unit.length;
    }
    return begin < end ? text.substr(begin, end - begin) : std::string();
}

std::string lettersOf(std::string_view text) {
    std::string letters;
    const std::string word = mSub_MakeSearchWord(plainGreek(text));
    for (std::size_t at = 0; at < word.size();) {
        const Utf8Unit unit = decodeUtf8(word, at);
        if (isLetter(unit.value))
            letters += word.substr(at, unit.length);
        at += unit.length;
    }
    return letters;
}

bool looksRoman(std::string_view text) {
    const auto only = [&](std::string_view digits) { return text.find_first_not_of(digits) == std::string_view::npos; };
    return !text.empty() && (only("ivxlc") || only("IVXLC"));
}

} // namespace velmarin
