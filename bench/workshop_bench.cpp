// How well the workshop reads scans whose guide words are known.
//
//     workshop_bench [options] SCAN BOOK
//
// SCAN is what velmarin-make-scans makes: scan/, truth.tsv, headwords.tsv. BOOK is a working folder: pages that were
// read there before are not read again, so that guessing and mending can be measured alone.

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <ctime>
#include <fstream>
#include <map>
#include <stdexcept>
#include <string>
#include <thread>
#include <utility>

#include <CLI/CLI.hpp>

#include "MeasuredScan.h"
#include "book/BookFolder.h"
#include "book/DraftRun.h"
#include "draft/DraftEntries.h"
#include "draft/DraftMending.h"
#include "making/IndexPlan.h"
#include "reading/PageGuess.h"
#include "store/HeadwordIndex.h"
#include "text/LetterCase.h"
#include "text/StringFields.h"
#include "text/Utf8.h"

namespace {

using namespace velmarin;
using namespace velmarin::bench;
namespace fs = std::filesystem;

struct Options {
    std::string scan, book, source = "scan", languages = "eng", ignore, alike, words;
    bool ijuv = false, spread = false, details = false;
};

/// Counts by how many letters two words differ.
std::size_t distance(const std::string& one, const std::string& other) {
    std::vector<char32_t> a, b;
    for (std::size_t at = 0; at < one.size(); at += decodeUtf8(one, at).length)
        a.push_back(decodeUtf8(one, at).value);
    for (std::size_t at = 0; at < other.size(); at += decodeUtf8(other, at).length)
        b.push_back(decodeUtf8(other, at).value);
    std::vector<std::size_t> row(b.size() + 1);
    for (std::size_t j = 0; j < row.size(); ++j)
        row[j] = j;
    for (std::size_t i = 0; i < a.size(); ++i) {
        std::size_t diagonal = std::exchange(row[0], i + 1);
        for (std::size_t j = 0; j < b.size(); ++j)
            diagonal =
                std::exchange(row[j + 1], std::min({row[j + 1] + 1, row[j] + 1, diagonal + (a[i] == b[j] ? 0U : 1U)}));
    }
    return row.back();
}

/// How words came out.
struct Score {
    std::size_t printed = 0, exact = 0, nearly = 0, missing = 0, added = 0;

    void count(const std::string& truth, const std::string& read) {
        printed += truth.empty() ? 0 : 1;
        if (truth.empty())
            added += read.empty() ? 0 : 1;
        else if (read == truth)
            ++exact;
        else if (read.empty())
            ++missing;
        else if (distance(read, truth) <= std::max<std::size_t>(1, truth.size() / 6))
            ++nearly;
    }
    void print(const char* what) const {
        const double all = std::max<double>(1, static_cast<double>(printed)) / 100;
        const auto percent = [&](std::size_t n) { return static_cast<double>(n) / all; };
        std::printf("%-24s %5zu printed  %5.1f %% right  %5.1f %% right or nearly  %4.1f %% missing  %zu invented\n",
                    what, printed, percent(exact), percent(exact + nearly), percent(missing), added);
    }
};

/// The words of a page, by the guesses or by a draft, against the truth.
struct Scores {
    Score first, last, number;

    void count(const Measured& book, const TruePage& page, const std::string& f, const std::string& l,
               const std::string& n) {
        first.count(book.wordOf(page.asSet().first), book.wordOf(f));
        last.count(book.wordOf(page.last), book.wordOf(l));
        number.count(page.number, n);
    }
    void print(const std::string& when) const {
        first.print(("first, " + when).c_str());
        last.print(("last, " + when).c_str());
        number.print(("number, " + when).c_str());
    }
};

std::string best(const std::vector<Guess>& guesses) {
    return guesses.empty() ? "" : guesses.front().text;
}

/// Whether a draft's row says of its page what is true.
struct Verdict {
    bool first = true, last = true;
    bool right() const { return first && last; }
};

Verdict verdictOf(const Measured& book, const TruePage& truth, const DraftPage& row) {
    // Without a printed word the first headword may be given or not.
    const std::string first = book.wordOf(row.first);
    const bool free = truth.first.empty() && first.empty();
    return {.first = free || first == book.wordOf(truth.asSet().first),
            .last = book.wordOf(row.last) == book.wordOf(truth.last)};
}

struct Trust {
    std::size_t pages = 0, trusted = 0, certain = 0, mended = 0, doubtful = 0;
    std::size_t falsePages = 0, falseCertain = 0, falseWords = 0, trustedWords = 0;
};

Trust trustOf(const Measured& book, const Draft& draft) {
    Trust trust{.pages = draft.pages.size()};
    for (std::size_t i = 0; i < draft.pages.size(); ++i) {
        const DraftPage& row = draft.pages[i];
        trust.certain += row.state == PageState::Certain ? 1 : 0;
        trust.mended += row.state == PageState::Mended ? 1 : 0;
        trust.doubtful += row.state == PageState::Doubtful ? 1 : 0;
        if (row.state != PageState::Certain && row.state != PageState::Mended)
            continue;
        ++trust.trusted;
        trust.trustedWords += (row.first.empty() ? 0U : 1U) + (row.last.empty() ? 0U : 1U);
        const Verdict verdict = verdictOf(book, book.pages[i], row);
        trust.falseWords += (verdict.first ? 0U : 1U) + (verdict.last ? 0U : 1U);
        trust.falsePages += verdict.right() ? 0 : 1;
        trust.falseCertain += !verdict.right() && row.state == PageState::Certain ? 1 : 0;
    }
    return trust;
}

void printTrust(const Trust& trust) {
    const auto per = [](double unit, std::size_t n, std::size_t of) {
        return unit * static_cast<double>(n) / std::max<double>(1, static_cast<double>(of));
    };
    std::printf("certain %zu, mended %zu, doubtful %zu of %zu pages: %.1f doubtful a hundred\n", trust.certain,
                trust.mended, trust.doubtful, trust.pages, per(100, trust.doubtful, trust.pages));
    std::printf("false trust: %zu pages (%zu of them certain), %.1f a thousand pages; %zu words, %.1f a thousand\n",
                trust.falsePages, trust.falseCertain, per(1000, trust.falsePages, trust.pages), trust.falseWords,
                per(1000, trust.falseWords, trust.trustedWords));
}

/// Opens words as the finished dictionary would.
class Finder {
  public:
    Finder(const Measured& book, const Draft& draft) : book_(book) {
        plan_ = planIndex(entriesOf(draft, book.rule, book.order), book.rule, book.order);
        for (const IndexLine& line : plan_.lines)
            index_.append(Uppercase(indexSearchWord(line.key, book.order)));
        index_.finish();
    }

    std::size_t misplaced() const { return plan_.misplaced.size(); }
    std::size_t pageOf(const std::string& headword) const {
        if (plan_.lines.empty())
            return 0;
        const std::size_t greater = index_.firstGreater(Uppercase(querySearchWord(headword, book_.order)));
        return plan_.lines[greater == 0 ? 0 : greater - 1].page;
    }

  private:
    const Measured& book_;
    IndexPlan plan_;
    HeadwordIndex index_;
};

/// How many of a thousand headwords, evenly taken, open their page, and why others do not.
void printOpened(const char* what, const Measured& book, const Draft& draft, bool details) {
    std::vector<std::pair<std::string, std::size_t>> all;
    for (std::size_t i = 0; i < book.pages.size(); ++i)
        for (const std::string& headword : book.pages[i].headwords)
            all.emplace_back(headword, i);
    Draft truth;
    for (const TruePage& page : book.pages)
        truth.pages.push_back(page.asSet());
    const Finder finder(book, draft);
    const Finder ideal(book, truth);
    const std::size_t count = std::min<std::size_t>(1000, all.size());
    std::size_t opened = 0, next = 0;
    std::map<std::string, std::size_t> causes;
    for (std::size_t k = 0; k < count; ++k) {
        const auto& [headword, page] = all[k * all.size() / count];
        const std::size_t found = finder.pageOf(headword);
        if (found == page) {
            ++opened;
            continue;
        }
        next += found + 1 == page || found == page + 1 ? 1 : 0;
        const auto wrong = [&](std::size_t i) {
            return i < draft.pages.size() && !verdictOf(book, book.pages[i], draft.pages[i]).right();
        };
        const char* cause = finder.pageOf(book.rule.keyOf(headword)) == page
                                ? "typed as printed; opens when typed as the book sorts it"
                            : ideal.pageOf(headword) != page ? "the true guide words lead elsewhere too"
                            : wrong(page) || wrong(found)    ? "a wrong row: of its page or of the one that opens"
                                                             : "a wrong row elsewhere";
        ++causes[cause];
        if (details)
            std::printf("    %s: opens %s, is on %s (%s)\n", headword.c_str(), book.pages[found].page.c_str(),
                        book.pages[page].page.c_str(), cause);
    }
    std::printf("%s: %zu of %zu headwords open their page, %zu one beside it; %zu misplaced\n", what, opened, count,
                next, finder.misplaced());
    for (const auto& [cause, times] : causes)
        std::printf("    %zu: %s\n", times, cause.c_str());
}

double processorSeconds() {
    return static_cast<double>(std::clock()) / CLOCKS_PER_SEC;
}

/// Throws std::runtime_error for what failed.
void require(const Result& result) {
    if (!result)
        throw std::runtime_error(result.failure().item.path().string() + ": " + result.failure().reason);
}

/// Reads what is not read yet, as `make draft` does.
std::vector<PageReading> readPages(const Options& options) {
    BookFolder book;
    const fs::path source = fs::path(options.scan) / options.source;
    require(book.openFor(FolderItem(source), FolderItem(fs::path(options.book))));
    BookSettings settings = book.settings();
    settings.languages = Split(options.languages, "+");
    settings.pages.spread = options.spread;
    require(book.saveSettings(settings));
    const double before = processorSeconds();
    const auto began = std::chrono::steady_clock::now();
    const BookReadingResult outcome = readBook(book, std::atomic<bool>(false));
    require(outcome.result);
    if (outcome.read > 0) {
        const auto count = static_cast<double>(outcome.read);
        const std::chrono::duration<double> wall = std::chrono::steady_clock::now() - began;
        std::printf("read %zu pictures: %.2f s of processor time each, %.2f s of wall time on %u cores\n", outcome.read,
                    (processorSeconds() - before) / count, wall.count() / count, std::thread::hardware_concurrency());
    }
    const Readings known = book.readings();
    std::vector<PageReading> readings;
    for (const auto& page : book.pages()) {
        const auto found = known.find(page.name);
        readings.push_back(found == known.end() ? PageReading{.page = page.name} : found->second.reading);
    }
    return readings;
}

/// Every guide word with its readings and what the draft has, for a look at what the confidences are worth.
void writeWords(const std::string& file, const Measured& book, const std::vector<PageGuess>& guesses,
                const Draft& draft) {
    std::ofstream table(file);
    table << "page\tplace\tprinted\tdraft\tright\tstate\treadings\n";
    for (std::size_t i = 0; i < book.pages.size(); ++i) {
        const DraftPage& row = draft.pages[i];
        const auto write = [&](const char* place, const std::string& printed, const std::string& drafted,
                               const std::vector<Guess>& readings) {
            table << row.page << '\t' << place << '\t' << printed << '\t' << drafted << '\t'
                  << (book.wordOf(printed) == book.wordOf(drafted)) << '\t' << nameOf(row.state) << '\t';
            for (const Guess& reading : readings)
                table << reading.text << ' ' << reading.confidence << "; ";
            table << '\n';
        };
        write("first", book.pages[i].first, row.first, guesses[i].first);
        write("last", book.pages[i].last, row.last, guesses[i].last);
    }
}

void printDetails(const Measured& book, const std::vector<PageGuess>& guesses, const Draft& draft) {
    for (std::size_t i = 0; i < book.pages.size(); ++i) {
        const TruePage& truth = book.pages[i];
        const Verdict verdict = verdictOf(book, truth, draft.pages[i]);
        const bool doubtful = draft.pages[i].state == PageState::Doubtful;
        if (verdict.right() && !doubtful && truth.number == draft.pages[i].number)
            continue;
        std::printf("  %s %s%s %3d: %s \"%s\" \"%s\", draft \"%s\" \"%s\"; guesses", truth.page.c_str(),
                    std::string(nameOf(draft.pages[i].state)).c_str(), verdict.right() ? "" : " WRONG",
                    draft.pages[i].confidence, truth.first.empty() ? "not printed" : "printed",
                    truth.asSet().first.c_str(), truth.last.c_str(), draft.pages[i].first.c_str(),
                    draft.pages[i].last.c_str());
        for (const auto& list : {guesses[i].first, guesses[i].last}) {
            for (std::size_t k = 0; k < std::min<std::size_t>(3, list.size()); ++k)
                std::printf(" %s %.2f", list[k].text.c_str(), list[k].confidence);
            std::printf(" /");
        }
        std::printf("%s; number \"%s\", draft \"%s\"\n", guesses[i].unheaded ? " unheaded" : "", truth.number.c_str(),
                    draft.pages[i].number.c_str());
    }
}

/// A person decides what is doubtful; what becomes doubtful by that, too.
Draft corrected(const Measured& book, const std::vector<PageGuess>& guesses, const Draft& draft, std::size_t& looks) {
    Draft now = draft;
    std::vector<DraftPage> set;
    for (bool again = true; again;) {
        again = false;
        for (std::size_t i = 0; i < now.pages.size(); ++i)
            if (now.pages[i].state == PageState::Doubtful) {
                set.push_back(book.pages[i].asSet());
                again = true;
            }
        if (again)
            now = mendedDraft(guesses, set, book.rule, book.order);
    }
    looks = set.size();
    return now;
}

void measure(const Options& options) {
    Measured book = measuredScan(options.scan, KeyRule::parse(options.ignore, options.alike).value_or(KeyRule()),
                                 {.SpanishMode = false, .IJUVMode = options.ijuv, .FormatFom = {}});
    const std::vector<PageReading> readings = readPages(options);
    if (readings.size() != book.pages.size())
        throw std::runtime_error(std::to_string(readings.size()) + " pages, not " + std::to_string(book.pages.size()));
    for (std::size_t i = 0; i < readings.size(); ++i)
        book.pages[i].page = readings[i].page; // the halves of a spread have names of their own
    const double before = processorSeconds();
    const std::vector<PageGuess> guesses = guessGuideWords(readings);
    const Draft draft = mendedDraft(guesses, {}, book.rule, book.order);
    const double seconds = processorSeconds() - before;
    Scores guessed, mended;
    for (std::size_t i = 0; i < book.pages.size(); ++i) {
        guessed.count(book, book.pages[i], best(guesses[i].first), best(guesses[i].last), best(guesses[i].number));
        const DraftPage& row = draft.pages[i];
        mended.count(book, book.pages[i], row.first, row.last, row.number);
    }
    guessed.print("as read");
    mended.print("mended");
    printTrust(trustOf(book, draft));
    std::printf("guessing and mending: %.2f s\n", seconds);
    printOpened("without a person", book, draft, false);
    std::size_t looks = 0;
    const Draft after = corrected(book, guesses, draft, looks);
    std::printf("a person set %zu pages\n", looks);
    printOpened("with the doubtful set", book, after, options.details);
    if (!options.words.empty())
        writeWords(options.words, book, guesses, draft);
    if (options.details)
        printDetails(book, guesses, draft);
}

} // namespace

int main(int argc, char** argv) {
    CLI::App app("Measures how well the workshop reads a scan whose guide words are known.");
    Options options;
    app.add_option("SCAN", options.scan, "A folder made by velmarin-make-scans")->required();
    app.add_option("BOOK", options.book, "The working folder")->required();
    app.add_option("--lang", options.languages, "Languages, joined by +")->capture_default_str();
    app.add_option("--ignore", options.ignore);
    app.add_option("--alike", options.alike);
    app.add_flag("--ijuv", options.ijuv);
    app.add_flag("--spread", options.spread, "Two pages a picture");
    app.add_option("--source", options.source, "What to read in SCAN: scan, or a file that was bound");
    app.add_option("--words", options.words, "Write a table of all guide words with their readings to this file");
    app.add_flag("--details", options.details, "Also list the pages and headwords that are wrong or doubtful");
    CLI11_PARSE(app, argc, argv);
    try {
        measure(options);
        return 0;
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "workshop_bench: %s\n", failure.what());
        return 2;
    }
}
