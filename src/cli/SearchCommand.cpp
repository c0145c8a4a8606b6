#include "cli/Commands.h"
#include "cli/FolderArgument.h"
#include "cli/Operands.h"
#include "cli/SearchRecordWriter.h"
#include "cli/Words.h"
#include "search/DictionarySearch.h"

#include <optional>

namespace velmarin {

namespace {

constexpr const char* kHelp = R"help(Columns, one record for each word and dictionary:
  1   the word
  2   the dictionary
  3   the outcome:
        hit      the line of the last entry that does not sort after the word was
                 read (the page is empty if the line names none, or is missing)
        before   no page: the word sorts before the first entry
        after    no page: no entry sorts after the word (the last entry is never
                 shown), or the dictionary did not load
        skipped  not searched: an independent dictionary is searched only while
                 its tab is in front, and then no other one is
  4   the name of the page; empty if there is none
  5.. the names of the extra pages (errata), one per column

With --json each record is an object on one line:
  word, dictionary, outcome    as above
  page                         the name of the page, or null
  path                         the file of the page, or null if it is missing
  errata                       the names of the extra pages
  line                         the number of the line in ind and txt, or null
  headword_before              the last headword that does not sort after the
                               word, as ind has it; null before the first entry
  headword_after               the next headword; null after the last entry
Only bytes that are not UTF-8 are replaced in this format.

The result is that of a window: a search of all tabs or, with --list, a search in
a group of 22 or more dictionaries, where no dictionary is independent and the
marks Spanish and IJUV do not change the word.

Exit status: 0 a hit, 1 no hit, 2 the group or one of its dictionaries cannot be
read.

Examples:
  velmarin-cli search DictionaryFolder/English palimpsest vellum
  velmarin-cli search --json English < words.txt | jq -r 'select(.path).path'

Example: words for which some dictionary has no page
  velmarin-cli search English < words.txt | awk -F '\t' '$4 == "" {print $1, $2, $3}')help";

struct SearchRequest {
    std::string group;
    std::vector<std::string> words;
    SearchForm form = SearchForm::Tab;
    /// The tab in front, if given.
    std::optional<int> front;
    bool json = false;
};

/// Validates the value of --front: an error message, or empty.
std::string tabNumber(const std::string& text) {
    constexpr std::size_t kMostDigits = 9;
    const bool digits = !text.empty() && text.find_first_not_of("0123456789") == std::string::npos;
    return digits && text.size() <= kMostDigits ? "" : "\"" + text + "\" is not a tab number";
}

Status search(const SearchRequest& request, Session& session) {
    const auto group = groupArgument(request.group, session);
    if (!group)
        return Status::CouldNot;
    const DictionaryList& dictionaries = group->dictionaries;
    // Without the option, a group without tabs is fine.
    if (request.front && static_cast<std::size_t>(*request.front) >= dictionaries.size()) {
        session.couldNot("--front " + std::to_string(*request.front) + ": the group has " +
                         std::to_string(dictionaries.size()) + " dictionaries, counted from 0");
        return Status::CouldNot;
    }
    const int front = request.front.value_or(0);
    SearchRecordWriter writer(session.out(), dictionaries, request.json);
    bool anyHit = false;
    Words words(request.words, session);
    while (const auto word = words.next()) {
        for (std::size_t i = 0; i < dictionaries.size(); ++i) {
            DictionaryItem& item = *dictionaries[i];
            session.setSubject(item.DictionaryFolderitem.path().native());
            SearchResult result;
            if (request.form == SearchForm::List || takesPart(dictionaries, static_cast<int>(i), front))
                result = searchDictionary(*word, item, request.form);
            else
                result.outcome = SearchOutcome::Skipped;
            anyHit = anyHit || result.outcome == SearchOutcome::Hit;
            writer.write(*word, i, result);
        }
    }
    return anyHit ? Status::Done : Status::NothingFound;
}

Job define(CLI::App& command) {
    const CLI::Option* list = addFlag(command, "--list", "Search as in a group shown as a list");
    const CLI::Option* front =
        addOption(command, "--front", "N", "The tab in front, counted from 0 (default: 0)")->check(tabNumber);
    const CLI::Option* json = addFlag(command, "--json", "Write JSON objects, one per line");
    const CLI::Option* group = addOperand(command, "GROUP", "The folder of a group");
    const CLI::Option* words = addWordOperands(command);
    return [=](Session& session) {
        return search({.group = operand(group),
                       .words = operands(words),
                       .form = list->count() > 0 ? SearchForm::List : SearchForm::Tab,
                       .front = front->count() > 0 ? std::optional(front->as<int>()) : std::nullopt,
                       .json = json->count() > 0},
                      session);
    };
}

} // namespace

Command searchCommand() {
    return {
        .name = "search", .summary = "Look up words in the dictionaries of a group", .help = kHelp, .define = define};
}

} // namespace velmarin
