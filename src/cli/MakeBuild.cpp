#include "book/BookBuild.h"
#include "cli/MakeOptions.h"
#include "cli/MakeParts.h"
#include "cli/Operands.h"
#include "draft/DraftOrder.h"

namespace velmarin {

namespace {

constexpr const char* kHelp = R"help(Columns:
  1  "doubtful", "removed", "misplaced" or "made"
  2  the page; of a removed one, a page of the draft that is not in the scan;
     of the last record, the dictionary
  3  why the page is doubtful; the misplaced headword; the number of lines of ind
  4  of a misplaced headword, the headword before it that keeps the order
  5  the headword after it that does

BOOK is a folder that "make draft" has made. Its draft.tsv says which headwords
begin and end a page; any spreadsheet edits it. The dictionary is the new folder
GROUP/NAME; nothing is replaced. A new group is made. All pages are in it, those
without headwords too. Options that are not given are those of "make draft".

Headwords that break the order are listed. Each opens its own page, and the words
around it are found as if it were not there. A page that is doubtful is used as it
is.

Exit status: 0 success, 1 made, but pages are doubtful or removed, 2 not made.

Example:
  velmarin-cli make build --title "Birds of Britain" --year 1893 Birds \
      DictionaryFolder/English/Birds)help";

struct Request {
    std::string book = {}, target = {};
    std::function<bool(BookSettings&, Session&)> change = {};
};

Status build(const Request& request, Session& session) {
    BookFolder book;
    if (const Result opened = book.open(FolderItem(request.book), BookAccess::Read); !opened) {
        session.couldNot(opened.failure());
        return Status::CouldNot;
    }
    BookSettings settings = book.settings();
    const auto place = newPlace(request.target, session);
    if (!request.change(settings, session) || !place)
        return Status::CouldNot;
    BookPlan plan;
    if (const Result planned = planBook(book, settings, plan); !planned) {
        session.couldNot(planned.failure());
        return Status::CouldNot;
    }
    if (!writeDictionary(plan.dictionary, *place, session))
        return Status::CouldNot;
    const KeyRule rule = keyRuleOf(settings);
    for (const std::size_t row : plan.doubtful)
        session.out().record(
            {"doubtful", plan.draft.pages[row].page, doubtReason(plan.draft, row, rule, settings.order)});
    for (const std::string& page : plan.removed)
        session.out().record({"removed", page});
    reportMisplaced(plan.entries, plan.dictionary.pages, plan.misplaced, session);
    reportMade(plan.dictionary, request.target, session);
    return plan.doubtful.empty() && plan.removed.empty() ? Status::Done : Status::NothingFound;
}

Job define(CLI::App& command) {
    const SettingsChange order = addOrderOptions(command), dictionary = addDictionaryOptions(command);
    const CLI::Option* extra =
        addOption(command, "--extra-pages", "FOLDER", "The folder of the files in a column errata of the draft");
    const CLI::Option* book = addOperand(command, "BOOK", "The working folder");
    const CLI::Option* target = addOperand(command, "GROUP/NAME", "The new dictionary");
    return [=](Session& session) {
        return build({.book = operand(book),
                      .target = operand(target),
                      .change =
                          [=](BookSettings& settings, Session& in) {
                              if (extra->count() > 0)
                                  settings.extraPages = operand(extra);
                              return order(settings, in) && dictionary(settings, in);
                          }},
                     session);
    };
}

} // namespace

Command makeBuildPart() {
    return {.name = "build", .summary = "Make a dictionary from a draft", .help = kHelp, .define = define};
}

} // namespace velmarin
