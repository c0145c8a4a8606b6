#include "book/AllPages.h"
#include "book/BookDraft.h"
#include "cli/FolderArgument.h"
#include "cli/MakeOptions.h"
#include "cli/MakeParts.h"
#include "cli/Operands.h"
#include "cli/ReadingReport.h"
#include "cli/StopSignals.h"
#include "files/ReadOnlyFile.h"
#include "files/StagedMembers.h"
#include "files/SystemCalls.h"
#include "making/BookTable.h"
#include "scan/OpenScan.h"
#include "scan/PageOrder.h"
#include "store/ImageIndex.h"
#include "text/NumberText.h"
#include "text/Utf8.h"

#include <cerrno>
#include <optional>
#include <utility>

namespace velmarin {

namespace {

constexpr const char* kHelp = R"help(Columns:
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

SOURCE is the folder of the pages, whose names sort in page order (p2 before p10),
or a TIFF of several pages, a PDF or a DjVu file, whose pages the table calls p0001,
p0002 and so on. The dictionary is the new folder GROUP/NAME; nothing is replaced.
A new group is made.

Headwords that break the order are listed. Each opens its own page, and the words
around it are found as if it were not there.

Exit status: 0 success, 1 made, but some rows are unused, 2 not made.

Example:
  velmarin-cli make table --ignore "-' " --alike "ä=ae, ø=o" words.tsv scans \
      DictionaryFolder/English/Birds)help";

struct Request {
    std::string table = {}, source = {}, target = {}, extraPages = {};
    BookSettings settings = {};
};

/// Why a table cannot be used; empty if it can.
std::string problemOf(std::string_view text, const SeparatedValues& table) {
    if (text.starts_with("\xFF\xFE") || text.starts_with("\xFE\xFF"))
        return "it is UTF-16; save it as UTF-8";
    if (!isValidUtf8(text))
        return "it is not UTF-8";
    if (!table.isWhole())
        return "a field begins with a quote (\") that is never closed";
    if (!table.hasColumn("page") || !(table.hasColumn("first") || table.hasColumn("headword")))
        return "its first row needs the columns \"page\" and \"first\" or \"headword\"";
    return {};
}

std::optional<SeparatedValues> readTable(const std::string& path, Session& session) {
    const FolderItem file(path);
    const auto text = file.isNil() ? std::nullopt : readWholeFile(file);
    if (!text) {
        session.couldNot(path + ": it could not be read: " + errorInWords(file.isNil() ? ENOENT : errno));
        return std::nullopt;
    }
    SeparatedValues table = SeparatedValues::parse(*text);
    const std::string problem = problemOf(*text, table);
    if (problem.empty())
        return table;
    session.couldNot(path + ": " + problem);
    return std::nullopt;
}

/// The pages of the book: a folder of pictures, or what is taken out of a file.
struct Pages {
    FolderItem folder = {};
    std::vector<std::string> names = {};
    std::optional<StagedMembers> staged = {}; ///< keeps the pictures until the dictionary is made
};

/// The pages of a file, taken out beside the new dictionary.
std::optional<Pages> pagesOfFile(const FolderItem& file, const NewPlace& place, Session& session) {
    const OpenedScan opened = openScan(file);
    if (!opened.scan) {
        session.couldNot(opened.result.failure());
        return std::nullopt;
    }
    const FolderItem home(place.group.occupied() ? place.group.path() : place.group.path().parent_path());
    Pages pages{.staged = StagedMembers::in(home.path())};
    if (!pages.staged) {
        session.couldNot(Failure{home, "nothing can be written there: " + errorInWords(errno)});
        return std::nullopt;
    }
    pages.folder = FolderItem(pages.staged->placeOf("pages"));
    const StopSignals signals;
    ReadingReport line;
    AllPages taken = takeAllPages(*opened.scan, pages.folder.path(), signals.asked(),
                                  [&](const ReadingProgress& now) { line.show(now); });
    if (!taken.result) {
        session.couldNot(taken.result.failure());
        return std::nullopt;
    }
    pages.names = std::move(taken.names);
    return pages;
}

std::optional<Pages> pagesOf(const std::string& source, const NewPlace& place, Session& session) {
    if (const FolderItem item(source); !item.isNil() && item.Exists() && !item.Directory())
        return pagesOfFile(item, place, session);
    const auto folder = folderArgument(source, session);
    if (!folder)
        return std::nullopt;
    Pages pages{.folder = *folder, .names = pictureNames(*folder)};
    sortPages(pages.names);
    return pages;
}

Status make(const Request& request, Session& session) {
    const auto table = readTable(request.table, session);
    const auto place = newPlace(request.target, session);
    const auto source = table && place ? pagesOf(request.source, *place, session) : std::nullopt;
    if (!source)
        return Status::CouldNot;

    NewDictionary book{.pageFolder = source->folder,
                       .order = request.settings.order,
                       .independent = request.settings.independent,
                       .about = request.settings.about};
    if (!request.extraPages.empty())
        book.extraPageFolder = FolderItem(request.extraPages);
    for (const std::string& name : source->names)
        book.pages.push_back({name});
    const KeyRule rule = keyRuleOf(request.settings);
    BookTable read = readBookTable(*table, std::move(book.pages), rule, book.order);
    IndexPlan plan = planIndex(read.entries, rule, book.order);
    book.pages = read.pages;
    book.lines = std::move(plan.lines);
    for (const TableProblem& each : read.problems)
        session.out().record({"unused", Str(static_cast<std::int64_t>(each.row)), each.what});
    if (!writeDictionary(book, *place, session))
        return Status::CouldNot;
    reportMisplaced(read.entries, read.pages, plan.misplaced, session);
    reportMade(book, request.target, session);
    return read.problems.empty() ? Status::Done : Status::NothingFound;
}

Job define(CLI::App& command) {
    const SettingsChange order = addOrderOptions(command), dictionary = addDictionaryOptions(command);
    const CLI::Option* extra = addOption(command, "--extra-pages", "FOLDER", "The folder of the errata");
    const CLI::Option* table = addOperand(command, "TABLE", "The table of the pages");
    const CLI::Option* source = addOperand(command, "SOURCE", "The scan");
    const CLI::Option* target = addOperand(command, "GROUP/NAME", "The new dictionary");
    return [=](Session& session) {
        Request request{.table = operand(table), .source = operand(source), .target = operand(target)};
        request.extraPages = operand(extra);
        return order(request.settings, session) && dictionary(request.settings, session) ? make(request, session)
                                                                                         : Status::CouldNot;
    };
}

} // namespace

Command makeTablePart() {
    return {.name = "table", .summary = "Make a dictionary from a table of its pages", .help = kHelp, .define = define};
}

} // namespace velmarin
