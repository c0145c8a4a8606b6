#include "reading/PageGuess.h"

#include "reading/GreekLetters.h"
#include "reading/GuideLayout.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <string_view>

namespace velmarin {

namespace {

/// What remains of the doubt in a guide word that is also read at the beginning of an entry: its broken type may be
/// misread alike there.
constexpr double kDoubtOfTwice = 0.6;
/// An entry's beginning that is almost the guide word, as another reading of it.
constexpr double kAlmostSame = 0.4;
constexpr std::size_t kMostReadings = 6;
/// The most that the first entry is worth in a book without guide words: an entry above it may have been missed, and
/// its end is not sure.
constexpr double kEntryAlone = 0.6;

/// Word classes and genders as dictionaries abbreviate them after a headword. "a" is none: many headwords go on with
/// it.
bool isClass(const std::string& word) {
    constexpr std::array<std::string_view, 36> kClasses{
        "s",   "n",   "m",    "f",    "v",   "adj",  "adv",  "subst", "sf",   "sm",   "nm",   "nf",
        "vt",  "vi",  "va",   "vn",   "vr",  "tr",   "intr", "refl",  "prep", "pron", "conj", "interj",
        "num", "art", "part", "masc", "fem", "neut", "pl",   "sing",  "sb",   "subs", "n.m",  "n.f"};
    return std::find(kClasses.begin(), kClasses.end(), word) != kClasses.end();
}

/// The headword at the beginning of an entry: the bold words, or those before the first mark or word class that ends a
/// headword.
Guess headwordOf(const TextLine& line) {
    Guess found{.text = {}, .confidence = 1};
    const bool bold = !line.words.empty() && line.words.front().bold;
    for (std::size_t i = 0; i < line.words.size() && (bold || i < 4); ++i) {
        const TextWord& word = line.words[i];
        if ((bold && !word.bold) || word.text.starts_with('(') || word.text.starts_with('['))
            break;
        if (i > 0 && isClass(word.text.substr(0, word.text.find_last_not_of(".,;:") + 1)))
            break;
        found.text += (i == 0 ? "" : " ") + word.text;
        found.confidence = std::min(found.confidence, word.confidence);
        if (word.text.find_first_of(",;:.([") != std::string::npos)
            break;
        if (!bold && i == 3) // no end was found
            found.text = line.words.front().text;
    }
    found.text = trimmedHeadword(found.text.substr(0, found.text.find_first_of(",;:([")));
    return found;
}

std::vector<Guess> entriesOn(const PageReading& reading) {
    std::vector<Guess> entries;
    for (const auto& column : reading.entryStarts)
        for (const TextLine& line : column)
            if (Guess entry = headwordOf(line); !entry.text.empty())
                entries.push_back(std::move(entry));
    return entries;
}

/// Whether one text becomes the other by changing, adding or leaving out one letter of several.
bool almostSame(const std::string& one, const std::string& other) {
    if (std::min(one.size(), other.size()) < 4 || one == other)
        return false;
    const auto differ = std::mismatch(one.begin(), one.end(), other.begin(), other.end());
    const auto endsAlike = [&](std::ptrdiff_t skipOne, std::ptrdiff_t skipOther) {
        return one.end() - differ.first >= skipOne && other.end() - differ.second >= skipOther &&
               std::equal(differ.first + skipOne, one.end(), differ.second + skipOther, other.end());
    };
    return endsAlike(1, 1) || endsAlike(1, 0) || endsAlike(0, 1) || endsAlike(2, 1) || endsAlike(1, 2);
}

/// Raises the confidence of the best reading, and leaves the others what remains.
void confirmBest(std::vector<Guess>& readings) {
    double& best = readings.front().confidence;
    best = 1 - kDoubtOfTwice * (1 - best);
    for (std::size_t i = 1; i < readings.size(); ++i)
        readings[i].confidence = std::min(readings[i].confidence, 1 - best);
}

std::ptrdiff_t blanksIn(const std::string& text) {
    return std::count(text.begin(), text.end(), ' ');
}

/// The words of the best reading are joined, or parted, in the entry: a blank counts in the order of a book.
void doubtBlanks(std::vector<Guess>& readings, const Guess& entry) {
    constexpr double kAsLikely = 0.5;
    readings.front().confidence = std::min(readings.front().confidence, kAsLikely);
    readings.push_back({entry.text, kAsLikely});
}

/// Compares the readings of a guide word with the entries of its page.
void testByEntries(std::vector<Guess>& readings, const std::vector<Guess>& entries) {
    if (readings.empty())
        return;
    const std::string best = lettersOf(readings.front().text);
    for (const Guess& entry : entries) {
        const std::string letters = lettersOf(entry.text);
        const auto same = std::find_if(readings.begin(), readings.end(),
                                       [&](const Guess& each) { return lettersOf(each.text) == letters; });
        if (same == readings.begin()) {
            if (blanksIn(entry.text) == blanksIn(same->text))
                confirmBest(readings);
            else
                doubtBlanks(readings, entry);
            break;
        }
        if (same != readings.end())
            same->confidence = std::max(same->confidence, std::min(kAlmostSame, entry.confidence));
        else if (almostSame(letters, best))
            readings.push_back({entry.text, std::min(kAlmostSame, entry.confidence)});
    }
    std::stable_sort(readings.begin(), readings.end(),
                     [](const Guess& a, const Guess& b) { return a.confidence > b.confidence; });
    readings.resize(std::min(readings.size(), kMostReadings));
}

/// Whether the only word in a head is the first entry (+1) or the last (-1) that is known of its page.
int entryInHead(const std::vector<HeadPart>& parts, const std::vector<Guess>& entries) {
    for (const HeadPart& part : parts) {
        if (part.number || entries.size() < 2)
            continue;
        const std::string letters = lettersOf(part.readings.front().text);
        const auto is = [&](const Guess& entry) {
            const std::string other = lettersOf(entry.text);
            return letters == other || almostSame(letters, other);
        };
        if (is(entries.front()))
            return 1;
        if (is(entries.back()))
            return -1;
    }
    return 0;
}

/// Gives the words of a book that is set in type with a kappa like chi their other readings.
void considerKappa(std::vector<std::vector<HeadPart>>& pages, std::vector<std::vector<Guess>>& entries) {
    KappaCount count;
    for (const auto& parts : pages)
        for (const HeadPart& part : parts)
            count.add(part.readings.empty() ? "" : part.readings.front().text);
    if (!count.readAsChi())
        return;
    for (auto& parts : pages)
        for (HeadPart& part : parts)
            part.readings = withKappa(part.readings);
    for (auto& words : entries)
        for (Guess& word : words)
            word = withKappa({word}).front();
}

std::vector<Guess> readingsOf(const std::optional<HeadPart>& part) {
    return part ? part->readings : std::vector<Guess>();
}

} // namespace

std::vector<PageGuess> guessGuideWords(const std::vector<PageReading>& readings) {
    const GuideJoint joint = guideJointOf(readings);
    std::vector<std::vector<HeadPart>> parts;
    std::vector<std::vector<Guess>> entries;
    for (const PageReading& reading : readings) {
        const bool text = reading.look == PageLook::Text;
        parts.push_back(text ? headPartsOf(reading, joint) : std::vector<HeadPart>());
        entries.push_back(text ? entriesOn(reading) : std::vector<Guess>());
    }
    considerKappa(parts, entries);
    claimNumbers(parts);
    removeRunningTitles(parts);
    std::vector<int> firstIsEntry;
    firstIsEntry.reserve(readings.size());
    for (std::size_t i = 0; i < readings.size(); ++i)
        firstIsEntry.push_back(entryInHead(parts[i], entries[i]));
    const GuideLayout layout = guideLayoutOf(parts, firstIsEntry);

    std::vector<PageGuess> guesses;
    for (std::size_t i = 0; i < readings.size(); ++i) {
        const PlacedParts placed = placedParts(parts[i], layout);
        PageGuess guess{.page = readings[i].page,
                        .look = readings[i].look,
                        .first = readingsOf(placed.first),
                        .last = readingsOf(placed.last),
                        .number = readingsOf(placed.number)};
        testByEntries(guess.first, entries[i]);
        testByEntries(guess.last, entries[i]);
        if (guess.first.empty() && guess.last.empty() && !entries[i].empty()) {
            guess.first = {entries[i].front()};
            guess.unheaded = layout.kind != GuideLayout::Kind::None;
            if (!guess.unheaded)
                guess.first.front().confidence = std::min(guess.first.front().confidence, kEntryAlone);
        }
        guesses.push_back(std::move(guess));
    }
    return guesses;
}

} // namespace velmarin
