#include "cli/Commands.h"
#include "cli/Operands.h"
#include "cli/Words.h"
#include "text/SearchWord.h"

namespace velmarin {

namespace {

constexpr const char* kHelp = R"help(Columns:
  1  the search word

Each WORD is a line of a dictionary's ind: the text before the first __DLM__ is
the headword. Its search word is the form that the program compares: in capitals,
without accents, with full-width letters made plain and katakana made hiragana.
The lines of ind must be in ascending order of their search words, compared byte
by byte.

Exit status: 0 success, 2 the words could not be read or written.

Examples:
  velmarin-cli key 'Abbé__DLM__noun'       ABBE
  velmarin-cli key --ijuv Julius           IULIUS

Example: sort an index
  velmarin-cli key < ind | paste - ind | LC_ALL=C sort -s -t "$(printf '\t')" -k1,1 | cut -f 2-)help";

Status writeKeys(const IndexOrder& order, std::vector<std::string> given, Session& session) {
    Words words(std::move(given), session.out());
    while (const auto word = words.next())
        session.out().record({indexSearchWord(*word, order)});
    return Status::Done;
}

} // namespace

void addKeyCommand(CLI::App& program, Job& chosen) {
    CLI::App* command = program.add_subcommand("key", "Show the search words of index lines");
    command->footer(kHelp);
    CLI::Option* spanish = command->add_flag("--spanish")
                               ->option_text(" ")
                               ->description(R"(As in a Spanish dictionary: "ch" and "ll" are single letters)");
    CLI::Option* ijuv = command->add_flag("--ijuv")->option_text(" ")->description(
        "As in an IJUV dictionary: i and j are the same, u and v too");
    spanish->excludes(ijuv);
    const CLI::Option* words = addWordOperands(*command);
    command->callback([&chosen, spanish, ijuv, words] {
        chosen = [=](Session& session) {
            const IndexOrder order = {
                .SpanishMode = spanish->count() > 0, .IJUVMode = ijuv->count() > 0, .FormatFom = {}};
            return writeKeys(order, operands(words), session);
        };
    });
}

} // namespace velmarin
