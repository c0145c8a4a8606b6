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
    if (source.empty())
        throw CannotDo("an empty name is not a file");
    std::error_code error;
    const bool made = !folder.empty() && std::filesystem::create_directory(folder, error);
    const FolderItem dictionary = folderArgument(folder);
    SilentProgress progress;
    const BuildResult result = buildUserDictionary(FolderItem(source), dictionary, progress, earlier);
    if (!result.ok) {
        if (made)
            std::filesystem::remove(folder, error);
        throw CannotDo(result.earlierRefused ? result.reason + " Use --replace to replace it." : result.reason);
    }
    session.out().record({Str(result.lines), Str(result.linesNotUtf8)});
    return Status::Done;
}

Status search(const std::string& folder, int mode, std::vector<std::string> given, Session& session) {
    const FolderItem dictionary = folderArgument(folder);
    session.setSubject(folder);
    DictionaryModule module;
    bool found = false;
    Words words(std::move(given), session.out());
    while (const auto word = words.next()) {
        found = module.mSearch(dictionary, *word, mode, false) || found;
        for (const std::string& hit : module.pResult) {
            const std::vector<std::string> fields = Split(hit, "\t");
            const std::vector<std::string_view> columns(fields.begin(), fields.end());
            session.out().record(columns);
        }
    }
    return found ? Status::Done : Status::NothingFound;
}

const CLI::Option* addOne(CLI::App& command, const std::string& name, const std::string& description) {
    return command.add_option(name, description)->option_text(" ")->expected(1)->required();
}

} // namespace

void addUserDictionaryCommand(CLI::App& program, Job& chosen) {
    CLI::App* command = program.add_subcommand("user-dictionary", "Build or search a user dictionary");
    command->footer(kHelp);
    command->require_subcommand(1);

    CLI::App* build_ = command->add_subcommand("build", "Build a user dictionary from a text file");
    build_->footer(kBuildHelp);
    const CLI::Option* replace =
        build_->add_flag("--replace")->option_text(" ")->description("Replace a user dictionary that FOLDER holds");
    const CLI::Option* source = addOne(*build_, "SOURCE", "The text file");
    const CLI::Option* target = addOne(*build_, "FOLDER", "The folder of the user dictionary");
    build_->callback([&chosen, replace, source, target] {
        chosen = [=](Session& session) {
            const EarlierPair earlier = replace->count() > 0 ? EarlierPair::Removed : EarlierPair::Refused;
            return build(operand(source), operand(target), earlier, session);
        };
    });

    CLI::App* search_ = command->add_subcommand("search", "Look up words in a user dictionary");
    search_->footer(kSearchHelp);
    static const std::string modeHelp = "How headwords match, 0 to 4 (default: 2)";
    const CLI::Option* mode =
        search_->add_option("--mode", modeHelp)->option_text("N")->expected(1)->check(CLI::Range(0, 4));
    const CLI::Option* folder = addOne(*search_, "FOLDER", "The folder of the user dictionary");
    const CLI::Option* words = addWordOperands(*search_);
    search_->callback([&chosen, mode, folder, words] {
        constexpr int kWholeWord = 2;
        chosen = [=](Session& session) {
            return search(operand(folder), mode->count() > 0 ? mode->as<int>() : kWholeWord, operands(words), session);
        };
    });
}

} // namespace velmarin
