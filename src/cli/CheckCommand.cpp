#include "cli/Commands.h"
#include "cli/DictionaryCheck.h"
#include "cli/FolderArgument.h"
#include "cli/Operands.h"

#include <unordered_set>

namespace velmarin {

namespace {

constexpr const char* kHelp = R"help(Columns:
  1  the path of the file
  2  the number of the line; empty where it is the file or folder as a whole
  3  what is wrong

Each argument is the folder of a dictionary, or that of a group, of which every
dictionary is checked. A folder in a group that has members of a dictionary but
no FW, which the program passes over, is told of.

Told of are:
  - members that are missing or cannot be read
  - headwords out of order, with the two search words; equal ones are in order
  - a missing closing entry: the last entry is never shown, so one that sorts
    after all others is wanted behind it. Taken for one is a headword that begins
    with a private-use character, such as U+10FFFD, or repeats one letter or
    digit, such as zzzz
  - ind and txt of unequal lengths
  - lines of txt that name no page (but that of a closing entry)
  - pages and extra pages without a file, once for each name
  - pages that are in mImg but not in its image index
  - a wrong count in the image index, lines of it without a name, and lines of
    ImageIndex2 without a caption
  - lines that are not UTF-8
  - pictures that cannot be decoded, or in part only, once for each

Names that differ from the file's in case or in Unicode composition only are
right. An image index that is missing is right as well, and is not made here.

Exit status: 0 nothing is wrong, 1 something is, 2 an argument is no dictionary
and no group.

Examples:
  velmarin-cli check "DictionaryFolder/English/Webster 1913"
  velmarin-cli check --no-images DictionaryFolder/*)help";

/// Writes findings as they come.
class Checker {
  public:
    Checker(Session& session, Images images) : session_(session), images_(images) {}

    void check(const std::string& argument) {
        const FolderItem folder = folderArgument(argument);
        if (mSub_DicOrNot(folder.resolved()))
            checkOne(folder);
        else if (!checkGroup(folder))
            throw CannotDo(argument + ": this is neither a dictionary nor a group that holds one");
    }

    bool anyFinding() const { return anyFinding_; }

  private:
    void checkOne(const FolderItem& folder) {
        for (const Finding& finding : checkDictionary(folder, images_))
            write(finding);
        session_.out().flush();
    }

    void write(const Finding& finding) {
        const std::string line = finding.line == 0 ? std::string() : std::to_string(finding.line);
        session_.out().record({finding.file.native(), line, finding.what});
        anyFinding_ = true;
    }

    /// Whether there is anything in `group` that is or could be a dictionary.
    bool checkGroup(const FolderItem& group) {
        bool any = false;
        std::unordered_set<std::string> checked;
        for (const FolderItem& item : group.items()) {
            const FolderItem folder = item.resolved();
            if (!folder.Visible() || !mSub_DicOrNot(folder) || !checked.insert(item.AbsolutePath()).second)
                continue;
            any = true;
            checkOne(item);
        }
        return any;
    }

    Session& session_;
    Images images_;
    bool anyFinding_ = false;
};

Status checkAll(const std::vector<std::string>& arguments, Images images, Session& session) {
    Checker checker(session, images);
    for (const std::string& argument : arguments) {
        try {
            checker.check(argument);
        } catch (const CannotDo& error) {
            session.couldNot(error.what());
        }
    }
    return checker.anyFinding() ? Status::NothingFound : Status::Done;
}

} // namespace

void addCheckCommand(CLI::App& program, Job& chosen) {
    CLI::App* command = program.add_subcommand("check", "Tell what is wrong with dictionaries");
    command->footer(kHelp);
    const CLI::Option* noImages =
        command->add_flag("--no-images")->description("Do not decode the pictures, which takes most of the time");
    const CLI::Option* folders =
        addManyOperands(*command, "FOLDER", "The folders of dictionaries and of groups")->required();
    command->callback([&chosen, noImages, folders] {
        chosen = [=](Session& session) {
            const Images images = noImages->count() > 0 ? Images::LeftAlone : Images::Decoded;
            return checkAll(operands(folders), images, session);
        };
    });
}

} // namespace velmarin
