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

Job define(CLI::App& command) {
    CLI::Option* spanish =
        addFlag(command, "--spanish", R"(As in a Spanish dictionary: "ch" and "ll" are single letters)");
    CLI::Option* ijuv = addFlag(command, "--ijuv", "As in an IJUV dictionary: i and j are the same, u and v too");
    spanish->excludes(ijuv);
    const CLI::Option* words = addWordOperands(command);
    return [=](Session& session) {
        const IndexOrder order = {.SpanishMode = spanish->count() > 0, .IJUVMode = ijuv->count() > 0, .FormatFom = {}};
        Words input(operands(words), session);
        while (const auto word = input.next())
            session.out().record({indexSearchWord(*word, order)});
        return Status::Done;
    };
}

} // namespace

Command keyCommand() {
    return {.name = "key", .summary = "Show the search words of index lines", .help = kHelp, .define = define};
}

} // namespace velmarin
