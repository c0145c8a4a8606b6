#include "cli/Commands.h"
#include "cli/FolderArgument.h"
#include "cli/Operands.h"
#include "cli/SearchRecord.h"
#include "cli/Words.h"
#include "search/DictionarySearch.h"

#include <optional>

namespace velmarin {

namespace {

constexpr const char* kHelp = R"help(Columns, one record for each word and dictionary:
  1   the word
  2   the dictionary
  3   the outcome:
        hit      a line was read, that of the last entry not after the word (an
                 empty page: it names none, or txt ends before it)
        before   the word sorts before the first entry: there is no page
        after    no entry sorts after the word, or the dictionary did not load:
                 there is no page (the last entry is never shown)
        skipped  the dictionary took no part: an independent one does only while
                 its tab is in front, and then no other does
  4   the name of the page; empty where the line names none, or none was read
  5.. the names of the extra pages (errata), a column each

With --json each record is an object on a line of its own:
  word, dictionary, outcome    as above
  page                         the name of the page, or null
  path                         the page's file, or null where there is none
  errata                       the names of the extra pages
  line                         the number of the line read, in ind and in txt,
                               or null
  headword_before              the headword that the word stands after or equals,
  headword_after               and the one that it stands before, both as ind has
                               them; null at either end
Here nothing is replaced but bytes that are not UTF-8.

A search is what a window would make of it: over all tabs or, with --list, as a
group of 22 or more dictionaries is searched, where no dictionary is
independent and the marks Spanish and IJUV do nothing to the word.

Exit status: 0 there was a hit, 1 there was none, 2 the group, or a
dictionary in it, cannot be read.

Examples:
  velmarin-cli search DictionaryFolder/English palimpsest vellum
  velmarin-cli search --json English < words.txt | jq -r 'select(.path).path'

Example: the words for which some dictionary has no page
  velmarin-cli search English < words.txt | awk -F '\t' '$4 == "" {print $1, $2, $3}')help";

struct SearchRequest {
    std::string group;
    std::vector<std::string> words;
    SearchForm form = SearchForm::Tab;
    /// The tab in front as it was given.
    std::optional<int> front;
    bool json = false;
};

/// What is wrong with the value of --front; empty where nothing is.
std::string tabNumber(const std::string& text) {
    constexpr std::size_t kMostDigits = 9;
    const bool digits = !text.empty() && text.find_first_not_of("0123456789") == std::string::npos;
    return digits && text.size() <= kMostDigits ? "" : "\"" + text + "\" is no number of a tab";
}

/// --front beyond the last tab is a slip; without the option, an empty group has no tab either and needs none.
void checkFront(std::optional<int> front, std::size_t dictionaries) {
    if (front && static_cast<std::size_t>(*front) >= dictionaries)
        throw CannotDo("--front " + std::to_string(*front) + ": the group has " + std::to_string(dictionaries) +
                       " dictionaries, counted from 0");
}

Status search(const SearchRequest& request, Session& session) {
    const ReadGroup group = groupArgument(request.group, session);
    checkFront(request.front, group.dictionaries.size());
    const int front = request.front.value_or(0);
    SearchRecordWriter writer(session.out(), group.dictionaries, request.json);
    bool anyHit = false;
    Words words(request.words, session.out());
    while (const auto word = words.next()) {
        for (std::size_t i = 0; i < group.dictionaries.size(); ++i) {
            DictionaryItem& item = *group.dictionaries[i];
            session.setSubject(item.DictionaryFolderitem.path().native());
            SearchResult result;
            if (request.form == SearchForm::List || takesPart(group.dictionaries, static_cast<int>(i), front))
                result = searchDictionary(*word, item, request.form);
            else
                result.outcome = SearchOutcome::Skipped;
            anyHit = anyHit || result.outcome == SearchOutcome::Hit;
            writer.write(*word, i, result);
        }
    }
    return anyHit ? Status::Done : Status::NothingFound;
}

} // namespace

void addSearchCommand(CLI::App& program, Job& chosen) {
    CLI::App* command = program.add_subcommand("search", "Look words up in the dictionaries of a group");
    command->footer(kHelp);
    CLI::Option* list =
        command->add_flag("--list")->option_text(" ")->description("Search as in a group that is shown as a list");
    static const std::string frontHelp = "The number of the tab in front, counted from 0 (0 if not given)";
    CLI::Option* front = command->add_option("--front", frontHelp)->option_text("N")->expected(1)->check(tabNumber);
    CLI::Option* json = command->add_flag("--json")->description("Write objects in JSON, one a line");
    const CLI::Option* group = addGroupOperand(*command);
    const CLI::Option* words = addWordOperands(*command);
    command->callback([=, &chosen] {
        SearchRequest request = {.group = operand(group),
                                 .words = operands(words),
                                 .form = list->count() > 0 ? SearchForm::List : SearchForm::Tab,
                                 .front = std::nullopt,
                                 .json = json->count() > 0};
        if (front->count() > 0)
            request.front = front->as<int>();
        chosen = [request = std::move(request)](Session& session) { return search(request, session); };
    });
}

} // namespace velmarin
