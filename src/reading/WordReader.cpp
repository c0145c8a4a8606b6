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
    }
}

struct Ballot {
    Words words;
    std::string text;      // of all words
    double confidence = 0; // of the least sure one
};

Ballot ballotOf(Words words) {
    Ballot ballot;
    for (TextWord& word : words) {
        stripMarks(word.text);
        for (std::string& other : word.others)
            stripMarks(other);
        if (word.text.empty())
            continue;
        ballot.confidence = ballot.words.empty() ? word.confidence : std::min(ballot.confidence, word.confidence);
        ballot.text += (ballot.words.empty() ? "" : " ") + word.text;
        ballot.words.push_back(std::move(word));
    }
    return ballot;
}

double votesFor(const std::vector<Ballot>& ballots, const std::string& text) {
    double votes = 0;
    for (const Ballot& ballot : ballots)
        votes += ballot.text == text && !text.empty() ? 0.1 + ballot.confidence : 0;
    return votes;
}

std::size_t countOf(const std::vector<Ballot>& ballots, const std::string& text) {
    return static_cast<std::size_t>(std::ranges::count(ballots, text, &Ballot::text));
}

// How often words are right of which so many readings agree, as measured on degraded pages; less if Tesseract is unsure
// in all of them.
double sureness(std::size_t agreeing, std::size_t readings, double confidence) {
    if (readings == agreeing)
        return 0.8 + 0.17 * std::min(1.0, confidence / 0.75);
    const double share = static_cast<double>(agreeing) / static_cast<double>(readings);
    return std::min(0.9, share * share + 0.15 * confidence);
}

void addOther(TextWord& word, const std::string& other) {
    if (!other.empty() && other != word.text && word.others.size() < kMostOthers &&
        std::ranges::find(word.others, other) == word.others.end())
        word.others.push_back(other);
}

// The winner's words, with what the others read in their places.
Words elected(const std::vector<Ballot>& ballots) {
    const auto winner = std::ranges::max_element(ballots, [&](const Ballot& a, const Ballot& b) {
        return std::pair(votesFor(ballots, a.text), a.confidence) < std::pair(votesFor(ballots, b.text), b.confidence);
    });
    Words words = winner->words;
    for (std::size_t i = 0; i < words.size(); ++i) {
        std::vector<Ballot> alone;
        for (const Ballot& ballot : ballots) {
            if (ballot.words.size() == words.size())
                alone.push_back({{}, ballot.words[i].text, ballot.words[i].confidence});
            else
                alone.emplace_back();
        }
        const std::size_t agreeing = countOf(alone, words[i].text);
        words[i].confidence = sureness(agreeing, ballots.size(), words[i].confidence);
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
        const Ballot ballot = ballotOf(picture ? recognizer.readLine(picture.get(), Alphabet::Digits) : Words{});
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
        ballots.push_back(ballotOf(picture ? recognizer.readLine(picture.get()) : Words{}));
    };
    for (const Rendering rendering : kFirst) {
        if (effort == Effort::Full || ballots.size() < 2)
            read(rendering);
    }
    if (effort == Effort::Full && countOf(ballots, ballots.front().text) < ballots.size()) {
        for (const Rendering rendering : kOnDoubt)
            read(rendering);
    }
    Words words = elected(ballots);
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
                 Effort effort) {
    TextLine line{{}, page.straightening.onPage(row)};
    for (const WordGroup& group : wordGroupsOf(picture, page, row)) {
        for (TextWord& word : readGroup(recognizer, group, effort)) {
            word.box = page.straightening.onPage(word.box);
            line.words.push_back(std::move(word));
        }
    }
    return line;
}

} // namespace velmarin
