#include "cli/CommandLine.h"

#include "cli/Commands.h"
#include "cli/Operands.h"

#include <exception>
#include <memory>
#include <new>

#include <unistd.h>

namespace velmarin {

namespace {

constexpr const char* kDescription =
    "Velmarin from a terminal: looks words up in scanned dictionaries, checks the\n"
    "dictionaries themselves, and gets them in and out. \"velmarin-cli COMMAND --help\"\ntells all about a command.\n";

constexpr const char* kHelp = R"help(Input and output:
  Words come as arguments or, where there are none, one a line from standard
  input. A word that begins with "-" is given after "--". An empty line is an
  empty word.

  Each command writes records to standard output, one a line, with a TAB between
  the columns, in UTF-8. A control character in a name or word (TAB, LF, CR and
  the like) is written as its Unicode picture, such as U+2409 for a TAB, and a
  byte that is not UTF-8 as U+FFFD, so that a record is always one line.

  What could not be done is told on standard error, one line each, beginning
  with "velmarin-cli: ".

  Only install, update, export and user-dictionary build write to any dictionary.

Exit status:
  0  done
  1  nothing was found, or problems were
  2  it could not be done, or not all of it

Examples:
  velmarin-cli groups DictionaryFolder
  velmarin-cli dictionaries DictionaryFolder/English
  velmarin-cli search DictionaryFolder/English palimpsest
  velmarin-cli search --json DictionaryFolder/English < words.txt
  velmarin-cli key Straße
  velmarin-cli check "DictionaryFolder/English/Webster 1913")help";

/// CLI11's layout, but for operands that can be given many times.
class HelpLayout : public CLI::Formatter {
  public:
    std::string make_option_usage(const CLI::Option* option) const override {
        const bool many = option->get_items_expected_max() >= CLI::detail::expected_max_vector_size;
        const std::string name = make_option_name(option, true) + (many ? "..." : "");
        return option->get_required() ? name : "[" + name + "]";
    }
};

class Program {
  public:
    Program() : options_(kDescription, "velmarin-cli") {
        options_.footer(kHelp);
        options_.set_help_flag("-h,--help", "Tell all this and end");
        options_.set_version_flag("--version", "velmarin-cli " VELMARIN_VERSION, "Tell the version and end");
        options_.require_subcommand(1);
        const auto layout = std::make_shared<HelpLayout>();
        layout->column_width(16);
        layout->label("SUBCOMMAND", "COMMAND");
        layout->label("Positionals", "Operands");
        layout->label("OPTIONS", "OPTION...");
        options_.formatter(layout);
        addGroupsCommand(options_, chosen_);
        addDictionariesCommand(options_, chosen_);
        addKeyCommand(options_, chosen_);
        addSearchCommand(options_, chosen_);
        addCheckCommand(options_, chosen_);
        addMaintenanceCommands(options_, chosen_);
        addUserDictionaryCommand(options_, chosen_);
        for (CLI::App* command : options_.get_subcommands({}))
            command->group("Commands");
    }

    Status run(int argc, char** argv, Output& out) {
        try {
            options_.parse(guardedArguments(argc, argv));
        } catch (const CLI::CallForHelp&) {
            out.text(options_.help());
            return Status::Done;
        } catch (const CLI::CallForVersion& version) {
            out.text(version.what() + std::string(1, '\n'));
            return Status::Done;
        } catch (const CLI::ParseError& error) {
            throw CannotDo(misunderstanding(error, argc, argv));
        }
        Session session(out);
        return session.status(chosen_(session));
    }

  private:
    std::string misunderstanding(const CLI::ParseError& error, int argc, char** argv) const {
        const auto commands = options_.get_subcommands();
        if (!commands.empty())
            return error.what() + (" (see \"velmarin-cli " + commands.front()->get_name() + " --help\")");
        const bool unknown = argc > 1 && argv[1][0] != '-';
        const std::string what = unknown    ? "there is no command \"" + std::string(argv[1]) + "\""
                                 : argc > 1 ? error.what()
                                            : "no command was given";
        return what + " (see \"velmarin-cli --help\")";
    }

    CLI::App options_;
    Job chosen_;
};

/// `error`'s line, after whatever the run had to say before it.
int failed(Output& out, std::string_view error) {
    try {
        out.flush();
    } catch (const CannotDo&) {
        // The first failure is the one to tell of.
    }
    complain(error);
    return static_cast<int>(Status::CouldNot);
}

} // namespace

int runCommandLine(int argc, char** argv) {
    Output out(STDOUT_FILENO);
    try {
        const Status status = Program().run(argc, argv, out);
        out.close();
        return static_cast<int>(status);
    } catch (const std::bad_alloc&) {
        return failed(out, "out of memory");
    } catch (const std::exception& error) {
        return failed(out, error.what());
    }
}

} // namespace velmarin
