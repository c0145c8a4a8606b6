#include "reading/WordReader.h"

#include <algorithm>
#include <array>
#include <functional>
#include <string_view>
#include <utility>

namespace velmarin {

namespace {

// The height of capitals that Tesseract reads best, and the pictures that are made of a group.
constexpr double kCapitals = 34;
enum class Rendering { Plain, Ink, Thin, Sharp, Wide };
constexpr std::array kFirst{Rendering::Plain, Rendering::Ink, Rendering::Thin};
constexpr std::array kOnDoubt{Rendering::Sharp, Rendering::Wide};

constexpr std::size_t kMostOthers = 6;

using Words = std::vector<TextWord>;

PixPtr scaled(const WordGroup& group, double capitals, double stretch = 1) {
    const double scale = capitals / group.capitalHeight;
    return PixPtr(pixScale(group.grey.get(), static_cast<l_float32>(scale * stretch), static_cast<l_float32>(scale)));
}

// Black and white at twice the size, then smooth again: no shade of the paper is left.
PixPtr inkPicture(const WordGroup& group) {
    const PixPtr large = scaled(group, 2 * kCapitals);
    const PixPtr ink = large ? inkOf(large.get(), static_cast<int>(2 * kCapitals)) : nullptr;
    const PixPtr grey(ink ? pixConvert1To8(nullptr, ink.get(), 255, 0) : nullptr);
    return PixPtr(grey ? pixScale(grey.get(), 0.5F, 0.5F) : nullptr);
}

PixPtr thinPicture(const WordGroup& group) {
    PixPtr plain = scaled(group, kCapitals);
    const PixPtr thin(plain ? pixDilateGray(plain.get(), 3, 3) : nullptr);
    return PixPtr(thin ? pixBlendGray(nullptr, plain.get(), thin.get(), 0, 0, 0.5F, 0, 0, 0) : nullptr);
}

PixPtr sharpPicture(const WordGroup& group) {
    const PixPtr plain = scaled(group, kCapitals);
    return PixPtr(plain ? pixUnsharpMaskingGray(plain.get(), 2, 0.7F) : nullptr);
}

PixPtr pictureOf(const WordGroup& group, Rendering rendering) {
    switch (rendering) {
    case Rendering::Ink:
        return inkPicture(group);
    case Rendering::Thin:
        return thinPicture(group);
    case Rendering::Sharp:
        return sharpPicture(group);
    case Rendering::Wide:
        return scaled(group, kCapitals, 1.12);
    case Rendering::Plain:
        break;
    }
    return scaled(group, kCapitals);
}

constexpr std::array<std::string_view, 4> kDashes{"-", "–", "—", "―"};

// The dust after two joined words is often taken for a dash.
bool endsInSecondDash(const std::string& text) {
    return std::ranges::any_of(kDashes, [&](std::string_view dash) {
        return text.ends_with(dash) && std::ranges::any_of(kDashes, [&](std::string_view other) {
                   const std::size_t at = text.find(other);
                   return at != 0 && at != std::string::npos && at + other.size() < text.size();
               });
    });
}

// Points and marks around a word: most are dirt, and none orders words.
void stripMarks(std::string& text) {
    constexpr std::array<std::string_view, 26> kMarks{".",  ",", ";", ":",  "|", "_", "~", "*", "°",
                                                      "\"", "'", "‘", "’",  "“", "”", "„", "«", "»",
                                                      "=",  "·", "•", "\\", "/", "`", "^", "‚"};
    for (bool again = true; again && !text.empty();) {
        again = false;
        for (const std::string_view mark : kMarks) {
            if (text.ends_with(mark))
                text.erase(text.size() - mark.size()), again = true;
            else if (text.starts_with(mark))
                text.erase(0, mark.size()), again = true;
        }
        for (const std::string_view dash : kDashes)
            if (text.ends_with(dash) && endsInSecondDash(text))
                text.erase(text.size() - dash.size()), again = true;
    }
}

struct Ballot {
    Words words;
    std::string text;      // of all words
    double confidence = 0; // of the least sure one
    bool known = false;    // all are in the word list of the language
};

// A word of fewer letters is in the list by chance.
constexpr std::size_t kLeastKnown = 4; // bytes

// Words that are joined are known if all of them are.
bool isKnown(const Recognizer& recognizer, const std::string& text) {
    std::size_t at = 0;
    while (at < text.size()) {
        std::size_t end = text.size(), next = end;
        for (const std::string_view dash : kDashes)
            if (const std::size_t found = text.find(dash, at); found < end)
                end = found, next = found + dash.size();
        if (end - at < kLeastKnown || !recognizer.knows(text.substr(at, end - at)))
            return false;
        at = next;
    }
    return !text.empty();
}

Ballot ballotOf(const Recognizer& recognizer, Words words) {
    Ballot ballot;
    ballot.known = true;
    for (TextWord& word : words) {
        stripMarks(word.text);
        for (std::string& other : word.others)
            stripMarks(other);
        if (word.text.empty())
            continue;
        ballot.confidence = ballot.words.empty() ? word.confidence : std::min(ballot.confidence, word.confidence);
        ballot.text += (ballot.words.empty() ? "" : " ") + word.text;
        ballot.known = ballot.known && isKnown(recognizer, word.text);
        ballot.words.push_back(std::move(word));
    }
    return ballot;
}

// A known word is read for an unknown one less often than the other way round.
constexpr double kVotesOfKnown = 3, kWeightOfUnknown = 0.3;
constexpr double kConfidenceIfSure = 0.75; // of Tesseract
// A known word that differs from the readings in a letter that Tesseract thinks possible.
constexpr double kTrustOfKnownChoice = 0.65;

double votesFor(const std::vector<Ballot>& ballots, const std::string& text) {
    double votes = 0;
    for (const Ballot& ballot : ballots)
        if (ballot.text == text && !text.empty())
            votes += (0.1 + ballot.confidence) * (ballot.known ? kVotesOfKnown : 1);
    return votes;
}

// How often words are right of which so many readings agree, as measured on degraded pages; less if Tesseract is unsure
// in all of them, and if the word list lacks the word. A reading that it lacks says little against one that it has.
double sureness(const std::vector<Ballot>& ballots, const Ballot& winner) {
    double agreeing = 0, others = 0, most = 0;
    for (const Ballot& ballot : ballots) {
        (ballot.text == winner.text ? agreeing : others) += winner.known && !ballot.known ? kWeightOfUnknown : 1;
        most = std::max(most, ballot.text == winner.text ? ballot.confidence : 0);
    }
    const double sure = std::min(1.0, most / kConfidenceIfSure);
    if (others == 0)
        return winner.known ? 0.96 + 0.03 * sure : 0.8 + 0.17 * sure;
    const double share = agreeing / (agreeing + others);
    return std::min(winner.known ? 0.95 : 0.9, share * share + 0.15 * sure);
}

void addOther(TextWord& word, const std::string& other) {
    if (!other.empty() && other != word.text && word.others.size() < kMostOthers &&
        std::ranges::find(word.others, other) == word.others.end())
        word.others.push_back(other);
}

// The known words that a text becomes by one of the letters that are usually taken for each other in worn type.
std::vector<std::string> knownLookalikes(const Recognizer& recognizer, const std::string& text) {
    constexpr std::array<std::string_view, 14> kAlike{"ceo", "hkb", "vy", "ftl",  "ilt",  "au",  "nu",
                                                      "rv",  "sz",  "gq", "IJTL", "CGOQ", "EFB", "ao"};
    std::vector<std::string> known;
    for (std::size_t i = 0; i < text.size(); ++i)
        for (const std::string_view letters : kAlike) {
            if (letters.find(text[i]) == std::string_view::npos)
                continue;
            for (const char letter : letters) {
                std::string other = text;
                other[i] = letter;
                if (letter != text[i] && isKnown(recognizer, other))
                    known.push_back(std::move(other));
            }
        }
    return known;
}

void preferKnown(const Recognizer& recognizer, TextWord& word) {
    if (isKnown(recognizer, word.text))
        return;
    for (const std::string& other : knownLookalikes(recognizer, word.text))
        addOther(word, other);
    const auto known =
        std::ranges::find_if(word.others, [&](const std::string& other) { return isKnown(recognizer, other); });
    if (known == word.others.end())
        return;
    std::swap(word.text, *known);
    std::rotate(word.others.begin(), known, known + 1);
    word.confidence = std::min(word.confidence, kTrustOfKnownChoice);
}

// Worn type is read for another letter in one direction: a closed c as e, a broken k as h, y as v, f as t. Of unknown
// words with another reading in which one of these is right, two of three are wrong.
bool wornFrom(const std::string& text, const std::string& other) {
    constexpr std::array<std::pair<char, char>, 4> kWorn{{{'e', 'c'}, {'h', 'k'}, {'v', 'y'}, {'t', 'f'}}};
    if (text.size() != other.size())
        return false;
    const auto [read, meant] = std::ranges::mismatch(text, other);
    return read != text.end() && std::ranges::find(kWorn, std::pair(*read, *meant)) != kWorn.end() &&
           std::equal(read + 1, text.end(), meant + 1);
}

void doubtWornLetters(const Recognizer& recognizer, TextWord& word) {
    constexpr double kTrustOfWorn = 0.3;
    const bool known = isKnown(recognizer, word.text);
    if (std::ranges::any_of(word.others, [&](const std::string& other) {
            return wornFrom(word.text, other) && (!known || isKnown(recognizer, other));
        }))
        word.confidence = std::min(word.confidence, kTrustOfWorn);
}

// Of two known words that Tesseract cannot tell apart for sure, either may be printed.
void doubtKnownPairs(const Recognizer& recognizer, TextWord& word) {
    constexpr double kTrustOfPair = 0.9;
    if (word.confidence > kTrustOfPair && isKnown(recognizer, word.text) &&
        std::ranges::any_of(word.others, [&](const std::string& other) {
            return other.size() == word.text.size() && isKnown(recognizer, other);
        }))
        word.confidence = kTrustOfPair;
}

// The winner's words, with what the others read in their places.
Words elected(const Recognizer& recognizer, const std::vector<Ballot>& ballots) {
    const auto winner = std::ranges::max_element(ballots, [&](const Ballot& a, const Ballot& b) {
        return std::pair(votesFor(ballots, a.text), a.confidence) < std::pair(votesFor(ballots, b.text), b.confidence);
    });
    Words words = winner->words;
    for (std::size_t i = 0; i < words.size(); ++i) {
        std::vector<Ballot> alone;
        for (const Ballot& ballot : ballots) {
            if (ballot.words.size() == words.size())
                alone.push_back(
                    {{}, ballot.words[i].text, ballot.words[i].confidence, isKnown(recognizer, ballot.words[i].text)});
            else
                alone.emplace_back();
        }
        const Ballot one{{}, words[i].text, words[i].confidence, isKnown(recognizer, words[i].text)};
        words[i].confidence = sureness(alone, one);
        const std::vector<std::string> choices = std::exchange(words[i].others, {});
        std::ranges::stable_sort(alone, std::greater(),
                                 [&](const Ballot& ballot) { return votesFor(alone, ballot.text); });
        for (const Ballot& ballot : alone)
            addOther(words[i], ballot.text);
        if (words.size() == 1) {
            for (const Ballot& ballot : ballots)
                addOther(words[i], ballot.text);
        }
        for (const std::string& choice : choices)
            addOther(words[i], choice);
        preferKnown(recognizer, words[i]);
        doubtWornLetters(recognizer, words[i]);
        doubtKnownPairs(recognizer, words[i]);
    }
    return words;
}

// A short group may be a number that was taken for letters: few figures have little around them that tells.
void considerNumber(Recognizer& recognizer, const WordGroup& group, Words& words) {
    const bool sure = words.size() == 1 && isNumber(words.front().text) && words.front().confidence > 0.9;
    if (words.size() > 1 || sure || group.box.width > 4.5 * group.box.height)
        return;
    std::string number;
    for (const Rendering rendering : {Rendering::Plain, Rendering::Ink}) {
        const PixPtr picture = pictureOf(group, rendering);
        const Ballot ballot =
            ballotOf(recognizer, picture ? recognizer.readLine(picture.get(), Alphabet::Digits) : Words{});
        if (!isNumber(ballot.text) || (!number.empty() && ballot.text != number))
            return;
        number = ballot.text;
    }
    constexpr double kAsLikely = 0.5;
    if (words.empty()) {
        words.push_back({number, {}, kAsLikely, {}, false});
    } else if (TextWord& word = words.front(); word.text != number) {
        std::erase(word.others, number);
        const bool instead = word.confidence < 0.8 && !isNumber(word.text);
        word.others.insert(word.others.begin(), instead ? std::exchange(word.text, number) : number);
        if (instead)
            word.confidence = kAsLikely;
    }
}

Words readGroup(Recognizer& recognizer, const WordGroup& group, Effort effort) {
    std::vector<Ballot> ballots;
    const auto read = [&](Rendering rendering) {
        const PixPtr picture = pictureOf(group, rendering);
        ballots.push_back(ballotOf(recognizer, picture ? recognizer.readLine(picture.get()) : Words{}));
    };
    for (const Rendering rendering : kFirst) {
        if (effort == Effort::Full || ballots.size() < 2)
            read(rendering);
    }
    const auto agrees = [&](const Ballot& ballot) { return ballot.text == ballots.front().text; };
    if (effort == Effort::Full && !std::ranges::all_of(ballots, agrees)) {
        for (const Rendering rendering : kOnDoubt)
            read(rendering);
    }
    Words words = elected(recognizer, ballots);
    const double width = group.grey ? pixGetWidth(group.grey.get()) * kCapitals / group.capitalHeight : 0;
    for (TextWord& word : words) {
        // Tesseract's boxes are in pixels of one of the pictures; the group's is exact.
        const double left = std::clamp(word.box.x / width, 0.0, 1.0),
                     right = std::clamp(word.box.right() / width, left, 1.0);
        word.box = {group.box.x + static_cast<int>(group.box.width * left), group.box.y,
                    static_cast<int>(group.box.width * (right - left)), group.box.height};
    }
    if (effort == Effort::Full)
        considerNumber(recognizer, group, words);
    if (words.size() == 1)
        words.front().box = group.box;
    return words;
}

} // namespace

bool isNumber(const std::string& text) {
    return !text.empty() && std::ranges::all_of(text, [](char c) { return c >= '0' && c <= '9'; });
}

TextLine readRow(Recognizer& recognizer, const Picture& picture, const StraightPage& page, const PageBox& row,
                 Effort effort, RowEnd end) {
    TextLine line{{}, page.straightening.onPage(row)};
    for (const WordGroup& group : wordGroupsOf(picture, page, row, end)) {
        for (TextWord& word : readGroup(recognizer, group, effort)) {
            word.box = page.straightening.onPage(word.box);
            line.words.push_back(std::move(word));
        }
    }
    return line;
}

} // namespace velmarin
