#include "cli/Commands.h"
#include "cli/DictionaryCheck.h"
#include "cli/FolderArgument.h"
#include "cli/Operands.h"
#include "side/UserDictionary.h"
#include "store/GroupPreferences.h"
#include "text/LetterCase.h"
#include "text/NilObjectException.h"

#include <unordered_set>

namespace velmarin {

namespace {

constexpr const char* kHelp = R"help(Columns:
  1  the path of the file
  2  the line number; empty if the problem is the file or folder as a whole
  3  the problem

Without any problem, the output is one line: "No problems in 3 dictionaries."

Of problems in one file that differ only in names and numbers, 100 are written;
the last of them says how many more there are.

Each FOLDER is a dictionary or a group. Of a group, all dictionaries are checked,
and also folders that have members of a dictionary but no FW, which the program
ignores. Other files and folders are passed over with a note, so that patterns
such as English/* work.

Problems are:
  - members that are missing or cannot be read
  - headwords out of order, with both search words (equal ones are in order)
  - headwords in decomposed Unicode, which composed input does not find
  - a missing closing entry: the last entry is never shown, so another one that
    sorts after all others must follow it. A closing entry is a headword that
    begins with a private-use character, such as U+10FFFD, or repeats one letter
    or digit, such as zzzz
  - ind and txt of different lengths
  - lines of txt that name no page (except that of the closing entry)
  - pages and extra pages without a file, once for each name
  - pages that are in mImg but not in its image index
  - a wrong count in the image index, lines of it without a name, and lines of
    ImageIndex2 without a caption
  - lines that are not UTF-8, or longer than what is read
  - pictures that cannot be decoded, or only in part, once for each

Names may differ from those of the files in case and in Unicode composition. An
image index may be missing; check does not make one.

Exit status: 0 no problems, 1 problems, 2 something could not be checked.

Examples:
  velmarin-cli check "DictionaryFolder/English/Webster 1913"
  velmarin-cli check --no-images DictionaryFolder/*)help";

/// Accepts also a group of which all dictionaries may be in folders that cannot be listed: each of these is reported.
bool canBeChecked(const FolderItem& folder) {
    if (equalStrings(folder.Name(), kUserDictionariesFolder))
        return false;
    if (isDictionary(folder))
        return true;
    const GroupFolders folders = foldersIn(folder);
    return !folders.dictionaries.empty() || !folders.unreadable.empty();
}

/// Reports preferences of a group that cannot be read.
void checkPreferences(const FolderItem& group, Session& session) {
    try {
        if (const FolderItem file = group.Child("DictionaryPreferences.txt"); file.Exists())
            readGroupPreferences(file);
    } catch (const NilObjectException& unreadable) {
        session.couldNot(unreadable.what());
    }
}

/// Writes the findings of each dictionary as soon as it is checked.
class Checker {
  public:
    Checker(Session& session, Images images) : session_(session), images_(images) {}

    /// Checks each dictionary once, however many links and arguments lead to it.
    void check(const FolderItem& folder) {
        if (session_.out().failed() || !checked_.insert(folder.AbsolutePath()).second)
            return;
        try {
            checkDictionary(folder, images_, [this](const Finding& finding) { write(finding); });
            ++whole_;
        } catch (const NilObjectException& unreadable) {
            session_.couldNot(unreadable.what());
        }
    }

    /// How many dictionaries were checked to their end.
    std::size_t count() const { return whole_; }
    bool anyFinding() const { return anyFinding_; }

  private:
    void write(const Finding& finding) {
        const std::string line = finding.line == 0 ? std::string() : std::to_string(finding.line);
        session_.out().record({finding.file.native(), line, finding.problem});
        session_.out().flush();
        anyFinding_ = true;
    }

    Session& session_;
    Images images_;
    std::unordered_set<std::string> checked_;
    std::size_t whole_ = 0;
    bool anyFinding_ = false;
};

Status checkAll(const std::vector<std::string>& arguments, Images images, Session& session) {
    const FolderFilter filter = {.accepts = canBeChecked,
                                 .note = "neither a dictionary nor a group that holds one, passed over",
                                 .refusal = "neither a dictionary nor a group that holds one"};
    Checker checker(session, images);
    for (const FolderItem& folder : folderArguments(arguments, filter, session)) {
        if (isDictionary(folder)) {
            checker.check(folder);
            continue;
        }
        const GroupFolders folders = foldersIn(folder);
        for (const Failure& unreadable : folders.unreadable)
            session.couldNot(unreadable);
        checkPreferences(folder, session);
        for (const FolderItem& dictionary : folders.dictionaries)
            checker.check(dictionary);
    }
    if (const std::size_t count = checker.count(); count > 0 && !checker.anyFinding())
        session.out().text("No problems in " + std::to_string(count) +
                           (count == 1 ? " dictionary.\n" : " dictionaries.\n"));
    return checker.anyFinding() ? Status::NothingFound : Status::Done;
}

Job define(CLI::App& command) {
    const CLI::Option* noImages = addFlag(command, "--no-images", "Do not decode the pictures (much faster)");
    const CLI::Option* folders = addManyOperands(command, "FOLDER", "Folders of dictionaries or groups")->required();
    return [=](Session& session) {
        return checkAll(operands(folders), noImages->count() > 0 ? Images::Skip : Images::Decode, session);
    };
}

} // namespace

Command checkCommand() {
    return {.name = "check", .summary = "Check dictionaries and report problems", .help = kHelp, .define = define};
}

} // namespace velmarin
