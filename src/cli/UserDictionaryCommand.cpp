#include "cli/Commands.h"
#include "cli/FolderArgument.h"
#include "cli/Operands.h"
#include "cli/Words.h"
#include "side/DictionaryModule.h"
#include "side/UserDictionary.h"
#include "text/NumberText.h"
#include "text/StringFields.h"

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <system_error>

namespace velmarin {

namespace {

constexpr const char* kHelp = R"help(A user dictionary is made from a text file with one entry per line: the headword,
a TAB, the meaning. It is a folder of two files: Text.txt has the entries,
Index.txt their search words.)help";

constexpr const char* kBuildHelp = R"help(Columns:
  1  the number of entries
  2  the number of entries that are not UTF-8; they are copied byte for byte

SOURCE has one entry per line: the headword, a TAB, the meaning. __NUM__1 to
__NUM__9 after a headword number homographs and are shown as raised digits;
__BR__ is shown as a line break.

FOLDER is created if it is missing. If it already holds a user dictionary,
nothing is built unless --replace is given: then Text.txt and Index.txt are
replaced together, once both new files are complete.

Exit status: 0 success, 2 failure.

Examples:
  velmarin-cli user-dictionary build words.txt UserDictionaries/Mine
  velmarin-cli user-dictionary build --replace words.txt UserDictionaries/Mine)help";

constexpr const char* kSearchHelp = R"help(Columns, one line for each entry found, as in Text.txt:
  1  the headword
  2  the meaning, with __BR__ for a line break

Words and headwords are compared by their search words: ignoring accents, case and
width, with katakana as hiragana, and only up to the first __NUM__.

With --mode N, a headword matches if it
  0  begins with the word
  1  ends with the word
  2  equals the word
  3  contains the word
  4  matches the word as a regular expression

Exit status: 0 found, 1 nothing found, 2 the dictionary cannot be read.

Example:
  velmarin-cli user-dictionary search --mode 0 UserDictionaries/Mine amo)help";

Status build(const std::string& source, const std::string& folder, EarlierPair earlier, Session& session) {
    if (source.empty()) {
        session.couldNot("an empty name is not a file");
        return Status::CouldNot;
    }
    std::error_code error;
    const bool made = !folder.empty() && std::filesystem::create_directory(folder, error);
    if (error) {
        session.couldNot(folder + ": the folder could not be made: " + error.message());
        return Status::CouldNot;
    }
    const auto dictionary = folderArgument(folder, session);
    if (!dictionary)
        return Status::CouldNot;
    SilentProgress progress;
    const BuildResult result = buildUserDictionary(FolderItem(source), *dictionary, progress, earlier);
    if (!result.ok) {
        if (made)
            std::filesystem::remove(folder, error);
        session.couldNot(result.earlierRefused ? result.reason + " Use --replace to replace it." : result.reason);
        return Status::CouldNot;
    }
    session.out().record({Str(result.lines), Str(result.linesNotUtf8)});
    return Status::Done;
}

Status search(const std::string& folder, int mode, std::vector<std::string> given, Session& session) {
    const auto dictionary = folderArgument(folder, session);
    if (!dictionary)
        return Status::CouldNot;
    session.setSubject(folder);
    DictionaryModule module;
    bool found = false;
    Words words(std::move(given), session);
    while (const auto word = words.next()) {
        found = module.mSearch(*dictionary, *word, mode, false) || found;
        for (const std::string& hit : module.pResult) {
            const std::vector<std::string> fields = Split(hit, "\t");
            const std::vector<std::string_view> columns(fields.begin(), fields.end());
            session.out().record(columns);
        }
    }
    return found ? Status::Done : Status::NothingFound;
}

Job defineBuild(CLI::App& command) {
    const CLI::Option* replace = addFlag(command, "--replace", "Replace a user dictionary that FOLDER holds");
    const CLI::Option* source = addOperand(command, "SOURCE", "The text file");
    const CLI::Option* folder = addOperand(command, "FOLDER", "The folder of the user dictionary");
    return [=](Session& session) {
        const EarlierPair earlier = replace->count() > 0 ? EarlierPair::Removed : EarlierPair::Refused;
        return build(operand(source), operand(folder), earlier, session);
    };
}

Job defineSearch(CLI::App& command) {
    const CLI::Option* mode =
        addOption(command, "--mode", "N", "How headwords match, 0 to 4 (default: 2)")->check(CLI::Range(0, 4));
    const CLI::Option* folder = addOperand(command, "FOLDER", "The folder of the user dictionary");
    const CLI::Option* words = addWordOperands(command);
    return [=](Session& session) {
        constexpr int kWholeWord = 2;
        return search(operand(folder), mode->count() > 0 ? mode->as<int>() : kWholeWord, operands(words), session);
    };
}

} // namespace

Command userDictionaryCommand() {
    return {.name = "user-dictionary",
            .summary = "Build or search a user dictionary",
            .help = kHelp,
            .parts = {{.name = "build",
                       .summary = "Build a user dictionary from a text file",
                       .help = kBuildHelp,
                       .define = defineBuild},
                      {.name = "search",
                       .summary = "Look up words in a user dictionary",
                       .help = kSearchHelp,
                       .define = defineSearch}}};
}

} // namespace velmarin
