#include "book/BookDraft.h"
#include "book/DraftRun.h"
#include "cli/MakeOptions.h"
#include "cli/MakeParts.h"
#include "cli/Operands.h"
#include "cli/ReadingReport.h"
#include "cli/StopSignals.h"
#include "draft/DraftOrder.h"
#include "files/ReadOnlyFile.h"
#include "scan/OpenScan.h"
#include "text/NumberText.h"
#include "text/StringFields.h"
#include "text/Utf8.h"

#include <algorithm>
#include <filesystem>
#include <optional>

namespace velmarin {

namespace {

constexpr const char* kHelp = R"help(Columns:
  1  "added", "removed", "unreadable", "doubtful", "stopped" or "draft"
  2  the page; of the last record, BOOK
  3  why the page is doubtful or cannot be read; of the last record, the number of
     pages
  4  of the last record, how many of them are certain
  5  mended: the likeliest reading breaks the order, another one keeps it
  6  doubtful
  7  set by a person
  If the command was stopped, columns 3 and 4 of its only record are the pages that
  are read and all pages.

Reads the guide words of a scanned book. Nothing is written to SOURCE. BOOK is a
new or empty folder, or one that the command has made before: then it reads the
pages that are not read yet, and with another --lang, --words or --turn those that
it changes. Options are kept in BOOK; --no-spread, --words "" and the like take them
back. Pages are counted from 1 in the order of SOURCE.

The result is BOOK/draft.tsv, a table with the columns page, number, first, last,
confidence and state (certain, mended, doubtful, set). Any spreadsheet edits it.
Rows with the state "set" stay when the command runs again. "make build" makes the
dictionary.

The text of a PDF or DjVu file is used first, or that of files beside a folder or a
TIFF: hOCR or ALTO, of single pages or of the whole book. The rest is read by
Tesseract, whose languages are installed as packages such as tesseract-ocr-lat. What
is read is compared with the word lists of the system (packages such as
wamerican-insane or wfrench) and those of --words, such as the file "ind" of another
dictionary.

An interrupt (Ctrl-C) stops the command; it goes on with the next call.

Exit status: 0 all pages read, 1 stopped, 2 failure, at least in part.

Example:
  velmarin-cli make draft --lang lat+eng --leave-out 1-8 --number 9=1 lewis.pdf Lewis)help";

struct Request {
    std::string source = {}, book = {};
    SettingsChange change = {};
};

/// Reads an option of pages into a setting. False, with a failure of the session, if it cannot be understood.
template <typename Setting, typename Parse>
bool takePages(const CLI::Option* option, Parse parse, const char* form, Setting& setting, Session& session) {
    if (option->count() == 0)
        return true;
    auto value = parse(operand(option));
    if (value)
        setting = std::move(*value);
    else
        session.couldNot("--" + option->get_lnames().front() + ": " + form);
    return static_cast<bool>(value);
}

bool takeNumbers(const CLI::Option* option, BookSettings& settings, Session& session) {
    std::vector<GivenNumber> numbers;
    for (const std::string& each : operands(option)) {
        const auto number = parseGivenNumber(each);
        if (!number) {
            session.couldNot("--number: it is PAGE=NUMBER, such as 9=1");
            return false;
        }
        numbers.push_back(*number);
    }
    if (!numbers.empty())
        settings.numbers = std::move(numbers);
    return true;
}

bool takeWordLists(const CLI::Option* option, BookSettings& settings, Session& session) {
    std::vector<std::string> lists;
    for (const std::string& each : operands(option)) {
        if (each.empty())
            continue; // takes back the lists that the book has
        lists.push_back(std::filesystem::absolute(each));
        const bool hasName = isValidUtf8(lists.back()); // the settings are JSON
        if (!hasName || !ReadOnlyFile::open(FolderItem(each))) {
            session.couldNot("--words: " + each + (hasName ? " cannot be read" : ": its path is not UTF-8"));
            return false;
        }
    }
    if (option->count() > 0)
        settings.wordLists = std::move(lists);
    return true;
}

std::optional<int> parseDpi(const std::string& text) {
    constexpr int kLeast = 50, kMost = 1200;
    const int dpi = toInt32(CDbl(text));
    return dpi >= kLeast && dpi <= kMost ? std::optional(dpi) : std::nullopt;
}

SettingsChange addScanOptions(CLI::App& command) {
    const CLI::Option* languages = addOption(command, "--lang", "LANGUAGES", "What is printed, such as lat+eng");
    const CLI::Option* words =
        addOption(command, "--words", "FILE", "A list of words that the book may have, one a line, or an index file")
            ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
    const CLI::Option* spread = addSwitch(command, "spread", "Each picture has two pages, side by side");
    const CLI::Option* rightToLeft = addSwitch(command, "right-to-left", "Of the two, the right one comes first");
    const CLI::Option* dpi = addOption(command, "--dpi", "NUMBER", "The resolution of rendered pages (300)");
    const CLI::Option* turn = addOption(command, "--turn", "DEGREES", "Turn clockwise: 90, or 5-9:180 for some pages");
    const CLI::Option* leaveOut = addOption(command, "--leave-out", "PAGES", "Pages that are no part of it: 1-8,1690-");
    const CLI::Option* number =
        addOption(command, "--number", "PAGE=NUMBER", "The printed number of a page; later ones count on")
            ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
    return [=](BookSettings& settings, Session& session) {
        if (languages->count() > 0)
            settings.languages = Split(operand(languages), "+");
        if (!takeWordLists(words, settings, session))
            return false;
        takeSwitch(spread, settings.pages.spread);
        takeSwitch(rightToLeft, settings.pages.rightToLeft);
        return takePages(dpi, parseDpi, "it is a number from 50 to 1200", settings.pages.dpi, session) &&
               takePages(turn, parseTurnedPages, "it is 90, 180 or 270, or PAGES:DEGREES", settings.pages.turned,
                         session) &&
               takePages(leaveOut, parsePageSpans, "each part is PAGE, PAGE-PAGE or PAGE-", settings.leftOut,
                         session) &&
               takeNumbers(number, settings, session);
    };
}

std::string countOf(const Draft& draft, PageState state) {
    return Str(std::count_if(draft.pages.begin(), draft.pages.end(),
                             [state](const DraftPage& page) { return page.state == state; }));
}

void reportPages(const BookFolder& book, const Draft& draft, Session& session) {
    const KeyRule rule = keyRuleOf(book.settings());
    const Readings readings = book.readings();
    for (std::size_t row = 0; row < draft.pages.size(); ++row) {
        const DraftPage& page = draft.pages[row];
        const auto read = readings.find(page.page);
        if (read != readings.end() && !read->second.failure.empty())
            session.out().record({"unreadable", page.page, read->second.failure});
        else if (page.state == PageState::Doubtful)
            session.out().record({"doubtful", page.page, doubtReason(draft, row, rule, book.settings().order)});
    }
}

bool report(const Result& result, Session& session) {
    if (!result)
        session.couldNot(result.failure());
    return static_cast<bool>(result);
}

Status draft(const Request& request, Session& session) {
    BookFolder book;
    Draft before;
    BookSettings settings;
    if (!request.change(settings, session)) // before a folder is made
        return Status::CouldNot;
    if (!report(book.openFor(FolderItem(request.source), FolderItem(request.book)), session) ||
        !report(book.loadDraft(before), session))
        return Status::CouldNot;
    settings = book.settings();
    if (!request.change(settings, session))
        return Status::CouldNot;
    const bool changed = formatBookSettings(settings) != formatBookSettings(book.settings());
    if (changed && !report(book.saveSettings(settings), session))
        return Status::CouldNot;

    const StopSignals signals;
    ReadingProgress progress;
    BookReadingResult read;
    {
        ReadingReport line;
        read = readBook(book, signals.asked(), [&](const ReadingProgress& now) { line.show(progress = now); });
    }
    report(read.result, session);
    for (const Failure& each : read.failures)
        session.couldNot(each);
    const BookChange change = read.stopped || !read.result ? BookChange::Unfinished
                              : changed || read.read > 0   ? BookChange::Readings
                                                           : BookChange::None;
    DraftUpdate update;
    if (!report(updateDraft(book, before, change, update), session) || !read.result)
        return Status::CouldNot;
    if (read.stopped) {
        session.out().record({"stopped", request.book, Str(static_cast<std::int64_t>(progress.done)),
                              Str(static_cast<std::int64_t>(progress.of))});
        return Status::NothingFound;
    }
    for (const std::string& page : update.added)
        session.out().record({"added", page});
    for (const std::string& page : update.removed)
        session.out().record({"removed", page});
    reportPages(book, update.draft, session);
    session.out().record({"draft", request.book, Str(std::ssize(update.draft.pages)),
                          countOf(update.draft, PageState::Certain), countOf(update.draft, PageState::Mended),
                          countOf(update.draft, PageState::Doubtful), countOf(update.draft, PageState::Set)});
    return Status::Done;
}

Job define(CLI::App& command) {
    const SettingsChange scan = addScanOptions(command), order = addOrderOptions(command);
    const CLI::Option* source = addOperand(command, "SOURCE", "The scan: a folder of page images, " + kScanFileKinds);
    const CLI::Option* book = addOperand(command, "BOOK", "The working folder");
    return [=](Session& session) {
        return draft(
            {.source = operand(source),
             .book = operand(book),
             .change = [=](BookSettings& settings, Session& in) { return scan(settings, in) && order(settings, in); }},
            session);
    };
}

} // namespace

Command makeDraftPart() {
    return {.name = "draft", .summary = "Read the guide words of a scanned book", .help = kHelp, .define = define};
}

} // namespace velmarin
