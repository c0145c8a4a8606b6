#include "SimulatedBook.h"

#include "draft/DraftEntries.h"
#include "draft/DraftMending.h"
#include "text/LetterCase.h"

#include <algorithm>
#include <array>
#include <set>
#include <utility>

namespace velmarin::test {

namespace {

double part(std::mt19937& random) {
    return static_cast<double>(random() % 100000) / 100000;
}

/// Exchanges letters that look alike at one or two places, or any letter.
std::string misread(const std::string& word, std::mt19937& random) {
    constexpr std::array<std::pair<const char*, const char*>, 12> kConfusions{{{"rn", "m"},
                                                                               {"m", "rn"},
                                                                               {"e", "c"},
                                                                               {"c", "e"},
                                                                               {"li", "h"},
                                                                               {"h", "li"},
                                                                               {"b", "h"},
                                                                               {"h", "b"},
                                                                               {"n", "u"},
                                                                               {"u", "n"},
                                                                               {"l", "i"},
                                                                               {"t", "f"}}};
    std::string read = word;
    for (unsigned changes = 1 + (random() % 4 == 0); changes > 0; --changes) {
        const auto& [from, to] = kConfusions[random() % kConfusions.size()];
        const std::size_t at = read.find(from, random() % read.size());
        if (at != std::string::npos)
            read.replace(at, std::string(from).size(), to);
        else
            read[random() % read.size()] = static_cast<char>('a' + random() % 26);
    }
    return read;
}

std::vector<Guess> readingsOf(const std::string& word, const ReadingFaults& faults, std::mt19937& random) {
    if (part(random) < faults.lost)
        return {};
    const double luck = part(random);
    if (part(random) >= faults.wrong) {
        const bool confirmed = part(random) < faults.confirmed;
        std::vector<Guess> readings{{word, confirmed ? 0.99 : 0.97 - 0.3 * luck * luck}};
        if (part(random) < 0.2)
            readings.push_back({misread(word, random), 0.1});
        return readings;
    }
    std::vector<Guess> readings{{misread(word, random), 0.9 - 0.7 * luck}};
    if (part(random) < 0.5)
        readings.push_back({word, (1 - readings[0].confidence) / 2});
    return readings;
}

void addPage(SimulatedBook& book, std::vector<std::string> words, const ReadingFaults& faults, std::mt19937& random) {
    const std::string name = "p" + std::to_string(book.truth.size());
    PageGuess guess{.page = name};
    if (words.empty())
        guess.look = PageLook::Plate;
    else
        guess = {.page = name,
                 .first = readingsOf(words.front(), faults, random),
                 .last = readingsOf(words.back(), faults, random)};
    book.truth.push_back({.page = name,
                          .first = words.empty() ? "" : words.front(),
                          .last = words.empty() ? "" : words.back(),
                          .state = PageState::Set});
    book.guesses.push_back(std::move(guess));
    book.headwords.push_back(std::move(words));
}

std::size_t opened(const SimulatedBook& book, const Draft& draft) {
    const IndexPlan plan = planIndex(entriesOf(draft, {}, {}), {}, {});
    std::vector<std::string> keys;
    for (const IndexLine& line : plan.lines)
        keys.push_back(indexSearchWord(line.key, {}));
    std::size_t count = 0;
    std::set<std::string> seen; // a headword on two pages is found on the first
    for (std::size_t page = 0; page < book.headwords.size(); ++page)
        for (const std::string& headword : book.headwords[page]) {
            const std::string word = Uppercase(querySearchWord(headword, {}));
            const auto after = std::upper_bound(keys.begin(), keys.end(), word);
            const bool again = !seen.insert(word).second;
            const std::size_t at = static_cast<std::size_t>(after - keys.begin());
            count += again || (at > 0 && plan.lines[at - 1].page == page) ? 1 : 0;
        }
    return count;
}

} // namespace

std::vector<std::string> inventedHeadwords(std::size_t count, std::mt19937& random) {
    const std::string consonants = "bcdfghlmnprstv", vowels = "aeiou";
    std::set<std::string> words;
    while (words.size() < count) {
        std::string word = random() % 5 == 0 ? std::string(1, vowels[random() % vowels.size()]) : "";
        for (unsigned syllables = 2 + random() % 3; syllables > 0; --syllables) {
            word += consonants[random() % consonants.size()];
            word += vowels[random() % vowels.size()];
            if (random() % 3 == 0)
                word += consonants[random() % consonants.size()];
        }
        words.insert(word);
    }
    return {words.begin(), words.end()};
}

SimulatedBook simulatedBook(const std::vector<std::string>& headwords, std::size_t perPage, const ReadingFaults& faults,
                            std::mt19937& random) {
    SimulatedBook book;
    for (std::size_t i = 0; i < faults.frontMatter; ++i) {
        addPage(book, {}, faults, random);
        book.guesses.back().look = PageLook::Text;
        book.guesses.back().first = {{i % 2 == 0 ? "preface" : "abbreviations", 0.95}};
    }
    std::vector<std::vector<std::string>> pages;
    for (std::size_t begin = 0; begin < headwords.size(); begin += perPage)
        pages.emplace_back(headwords.begin() + static_cast<std::ptrdiff_t>(begin),
                           headwords.begin() +
                               static_cast<std::ptrdiff_t>(std::min(begin + perPage, headwords.size())));
    for (std::size_t i = 0; faults.swappedEvery > 0 && i + 3 < pages.size(); i += 1)
        if (i % faults.swappedEvery == faults.swappedEvery / 2) {
            std::swap(pages[i], pages[i + 2]);
            std::swap(pages[i + 1], pages[i + 3]);
        }
    for (std::size_t i = 0; i < pages.size(); ++i) {
        addPage(book, pages[i], faults, random);
        if (faults.plateEvery > 0 && i % faults.plateEvery == faults.plateEvery / 3)
            addPage(book, {}, faults, random);
    }
    return book;
}

DraftFigures figuresOf(const SimulatedBook& book) {
    const DraftMender mender(book.guesses, {}, {});
    DraftFigures figures{.pages = book.truth.size()};
    const auto right = [&](std::size_t i, const std::string& first, const std::string& last) {
        return first == book.truth[i].first && last == book.truth[i].last;
    };
    const auto best = [](const std::vector<Guess>& guesses) {
        return guesses.empty() ? std::string() : guesses[0].text;
    };
    Draft draft = mender.mended({});
    for (std::size_t i = 0; i < figures.pages; ++i) {
        const DraftPage& row = draft.pages[i];
        const bool isRight = right(i, row.first, row.last);
        figures.rightBefore += right(i, best(book.guesses[i].first), best(book.guesses[i].last)) ? 1 : 0;
        figures.rightAfter += isRight ? 1 : 0;
        figures.doubtful += row.state == PageState::Doubtful ? 1 : 0;
        figures.falselyTrusted += row.state != PageState::Doubtful && !isRight ? 1 : 0;
        figures.headwords += book.headwords[i].size();
    }
    figures.opened = opened(book, draft);
    std::vector<DraftPage> set;
    // The person goes from doubtful row to doubtful row; what was set mends others.
    for (std::size_t i = 0; i < figures.pages; ++i)
        if (draft.pages[i].state == PageState::Doubtful) {
            set.push_back(book.truth[i]);
            if (set.size() % 8 == 0)
                draft = mender.mended(set);
        }
    draft = mender.mended(set);
    figures.asked = set.size();
    figures.openedAfterSetting = opened(book, draft);
    return figures;
}

} // namespace velmarin::test
