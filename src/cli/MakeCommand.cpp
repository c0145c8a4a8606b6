#include "cli/Commands.h"
#include "cli/FolderArgument.h"
#include "cli/Operands.h"
#include "files/ReadOnlyFile.h"
#include "scan/PageOrder.h"
#include "store/ImageIndex.h"
#include "text/NumberText.h"
#include "text/Utf8.h"
#include "workshop/NewDictionary.h"

#include <filesystem>
#include <optional>
#include <utility>

namespace velmarin {

namespace {

constexpr const char* kHelp = R"help(Makes a dictionary from the pictures of its pages.)help";

constexpr const char* kTableHelp = R"help(Columns:
  1  "made", "misplaced" or "unused"
  2  the dictionary; of a misplaced headword, its page; of an unused row, its
     number
  3  the number of lines of ind; the headword; what is wrong with the row
  4  of a misplaced headword, the headword before it that keeps the order
  5  the headword after it that does

TABLE is a file of tab- or comma-separated values as spreadsheets save it, in
UTF-8, with a header row. Its columns, in any order:
  page      the file name of a page or the number printed on it
  number    the number printed on the page; later pages count on from it, and
            "-" ends the run
  first     the first headword of the page, as in its guide words
  last      the last headword of the page
  headword  an entry of the page; one row for each entry
  errata    files of further pages of the entry, separated by ";"
One of first and headword is needed. Guide words are enough to find every word.

SOURCE is the folder of the pages, whose names sort in page order (p2 before p10).
The dictionary is the new folder GROUP/NAME; nothing is replaced.

Headwords that break the order are listed. Each opens its own page, and the words
around it are found as if it were not there.

Exit status: 0 success, 1 made, but some rows are unused, 2 not made.

Example:
  velmarin-cli make table --ignore "-' " --alike "ä=ae, ø=o" words.tsv scans \
      DictionaryFolder/English/Birds)help";

struct Request {
    std::string table = {}, source = {}, target = {}, extraPages = {};
    std::string ignore = {}, alike = {};
    NewDictionary book = {};
};

std::optional<SeparatedValues> readTable(const std::string& path, Session& session) {
    const auto text = readWholeFile(FolderItem(path));
    if (!text || !isValidUtf8(*text)) {
        session.couldNot(path + (text ? ": it is not UTF-8" : ": it could not be read"));
        return std::nullopt;
    }
    SeparatedValues table = SeparatedValues::parse(*text);
    if (table.hasColumn("page") && (table.hasColumn("first") || table.hasColumn("headword")))
        return table;
    session.couldNot(path + ": its first row needs the columns \"page\" and \"first\" or \"headword\"");
    return std::nullopt;
}

void reportMisplaced(const BookTable& table, const IndexPlan& plan, Session& session) {
    const auto headword = [&](std::optional<std::size_t> entry) {
        return entry ? table.entries[*entry].headword : std::string();
    };
    for (const Misplaced& each : plan.misplaced)
        session.out().record({"misplaced", table.pages[table.entries[each.entry].page].file, headword(each.entry),
                              headword(each.before), headword(each.after)});
}

Status make(Request request, Session& session) {
    const auto table = readTable(request.table, session);
    const auto source = folderArgument(request.source, session);
    const std::filesystem::path target(request.target);
    const auto group = folderArgument(target.parent_path().empty() ? "." : target.parent_path().string(), session);
    const auto rule = KeyRule::parse(request.ignore, request.alike);
    if (!rule)
        session.couldNot("--alike: each pair is LETTERS=LETTERS");
    if (!table || !source || !group || !rule)
        return Status::CouldNot;

    NewDictionary& book = request.book;
    book.pageFolder = *source;
    if (!request.extraPages.empty())
        book.extraPageFolder = FolderItem(request.extraPages);
    std::vector<std::string> names = pictureNames(*source);
    sortPages(names);
    std::vector<BookPage> pages;
    pages.reserve(names.size());
    for (std::string& name : names)
        pages.push_back({std::move(name)});
    BookTable read = readBookTable(*table, std::move(pages), *rule, book.order);
    IndexPlan plan = planIndex(read.entries, *rule, book.order);
    book.pages = read.pages;
    book.lines = std::move(plan.lines);
    const std::string lines = Str(static_cast<std::int64_t>(book.lines.size()) + 1);
    if (const Result written = writeNewDictionary(book, *group, target.filename().string()); !written) {
        session.couldNot(written.failure().message());
        return Status::CouldNot;
    }
    for (const TableProblem& each : read.problems)
        session.out().record({"unused", Str(static_cast<std::int64_t>(each.row)), each.what});
    reportMisplaced(read, plan, session);
    session.out().record({"made", request.target, lines});
    return read.problems.empty() ? Status::Done : Status::NothingFound;
}

Job defineTable(CLI::App& command) {
    const CLI::Option* ignore =
        addOption(command, "--ignore", "CHARACTERS", "Characters that the book's order ignores");
    const CLI::Option* alike = addOption(command, "--alike", "PAIRS", "Letters that the book sorts as others");
    const CLI::Option* spanish = addFlag(command, "--spanish", "\"ch\" and \"ll\" are letters of their own");
    const CLI::Option* ijuv = addFlag(command, "--ijuv", "i and j are one letter, and so are u and v");
    const CLI::Option* format = addOption(command, "--format", "PICTURE", "How entry numbers are written, such as 000");
    const CLI::Option* independent = addFlag(command, "--independent", "The dictionary is searched on its own");
    const CLI::Option* extra = addOption(command, "--extra-pages", "FOLDER", "The folder of the errata");
    const CLI::Option* table = addOperand(command, "TABLE", "The table of the pages");
    const CLI::Option* source = addOperand(command, "SOURCE", "The folder of the pages");
    const CLI::Option* target = addOperand(command, "GROUP/NAME", "The new dictionary");
    return [=](Session& session) {
        Request request{.table = operand(table), .source = operand(source), .target = operand(target)};
        request.extraPages = extra->count() > 0 ? extra->as<std::string>() : "";
        request.ignore = ignore->count() > 0 ? ignore->as<std::string>() : "";
        request.alike = alike->count() > 0 ? alike->as<std::string>() : "";
        request.book.order.SpanishMode = spanish->count() > 0;
        request.book.order.IJUVMode = ijuv->count() > 0;
        request.book.order.FormatFom = format->count() > 0 ? format->as<std::string>() : "";
        request.book.independent = independent->count() > 0;
        return make(std::move(request), session);
    };
}

} // namespace

Command makeCommand() {
    return {.name = "make",
            .summary = "Make a dictionary",
            .help = kHelp,
            .parts = {{.name = "table",
                       .summary = "Make a dictionary from a table of its pages",
                       .help = kTableHelp,
                       .define = defineTable}}};
}

} // namespace velmarin
