#include "cli/Commands.h"
#include "cli/Operands.h"
#include "cli/Words.h"
#include "text/SearchWord.h"

namespace velmarin {

namespace {

constexpr const char* kHelp = R"help(Columns:
  1  the search word

A WORD is taken as a line of a dictionary's ind: what stands before the first
__DLM__ is the headword. Its search word is what the dictionary is sorted by and
searched with: capitals, without accents, full-width letters made plain,
katakana made hiragana. In ascending order of these, compared byte by byte, the
lines of ind must stand.

Exit status: 0 all words were written, 2 they could not be read or written.

Examples:
  velmarin-cli key 'Abbé__DLM__noun'       ABBE
  velmarin-cli key --ijuv Julius           IULIUS

Example: an index in its right order
  velmarin-cli key < ind | paste - ind | LC_ALL=C sort -s -t "$(printf '\t')" -k1,1 | cut -f 2-)help";

Status writeKeys(const IndexOrder& order, std::vector<std::string> given, Session& session) {
    Words words(std::move(given), session.out());
    while (const auto word = words.next())
        session.out().record({indexSearchWord(*word, order)});
    return Status::Done;
}

} // namespace

void addKeyCommand(CLI::App& program, Job& chosen) {
    CLI::App* command = program.add_subcommand("key", "Write the search words of index lines");
    command->footer(kHelp);
    CLI::Option* spanish = command->add_flag("--spanish")
                               ->option_text(" ")
                               ->description(R"(As in a Spanish dictionary: "ch" and "ll" are letters)");
    CLI::Option* ijuv = command->add_flag("--ijuv")->option_text(" ")->description(
        "As in an IJUV dictionary: i and j are one, and so are u and v");
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
