#include "cli/CommandLine.h"

#include "cli/Commands.h"
#include "cli/Operands.h"
#include "text/FindReplace.h"

#include <exception>
#include <memory>
#include <new>

#include <unistd.h>

namespace velmarin {

namespace {

constexpr const char* kDescription = "Velmarin from a terminal: looks up words in scanned dictionaries, and makes,\n"
                                     "checks, installs, updates and exports dictionaries.\n"
                                     "\"velmarin-cli COMMAND --help\" explains a command.\n";

constexpr const char* kHelp = R"help(Input and output:
  Words are arguments or, without any, lines of standard input. Put "--" before a
  word that begins with "-". An empty line is an empty word.

  Each command writes records to standard output in UTF-8, one per line, with a
  TAB between columns. A control character in a name or word (TAB, LF, CR etc.) is
  written as its Unicode picture, such as U+2409 for a TAB, and a byte that is not
  UTF-8 as U+FFFD, so that a record is always one line.

  Errors and notes go to standard error, one per line, and begin with
  "velmarin-cli: ".

  Only install, update, export, make and user-dictionary build write files, except
  that user-dictionary search restores what an interrupted build left.

Exit status:
  0  success
  1  nothing found; for check, problems found
  2  failure, at least in part

Examples:
  velmarin-cli groups DictionaryFolder
  velmarin-cli dictionaries DictionaryFolder/English
  velmarin-cli search DictionaryFolder/English palimpsest
  velmarin-cli search --json DictionaryFolder/English < words.txt
  velmarin-cli key Straße
  velmarin-cli check "DictionaryFolder/English/Webster 1913")help";

/// All commands, in the order of the help.
constexpr Command (*kCommands[])() = {groupsCommand, dictionariesCommand,  keyCommand,    searchCommand,
                                      checkCommand,  installCommand,       updateCommand, exportCommand,
                                      makeCommand,   userDictionaryCommand};

/// CLI11's layout, with "..." after operands that can be repeated, and without the values of switches.
class HelpLayout : public CLI::Formatter {
  public:
    std::string make_option_usage(const CLI::Option* option) const override {
        const bool many = option->get_items_expected_max() >= CLI::detail::expected_max_vector_size;
        const std::string name = make_option_name(option, true) + (many ? "..." : "");
        return option->get_required() ? name : "[" + name + "]";
    }

    std::string make_option_name(const CLI::Option* option, bool positional) const override {
        return ReplaceAllB(CLI::Formatter::make_option_name(option, positional), "{false}", "");
    }
};

class Program {
  public:
    Program() : options_(kDescription, "velmarin-cli") {
        options_.footer(kHelp);
        options_.set_help_flag("-h,--help", "Show this help and exit");
        options_.set_version_flag("--version", "velmarin-cli " VELMARIN_VERSION, "Show the version and exit");
        options_.require_subcommand(1);
        const auto layout = std::make_shared<HelpLayout>();
        layout->column_width(16);
        layout->label("SUBCOMMAND", "COMMAND");
        layout->label("Positionals", "Operands");
        layout->label("OPTIONS", "OPTION...");
        options_.formatter(layout);
        for (const auto command : kCommands)
            addCommand(options_, command(), chosen_);
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
            complain(usageError(error, argc, argv));
            return Status::CouldNot;
        }
        Session session(out);
        return session.status(chosen_(session));
    }

  private:
    std::string usageError(const CLI::ParseError& error, int argc, char** argv) const {
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

/// Reports `error` after the output so far.
Status failed(Output& out, std::string_view error) {
    out.flush();
    complain(error);
    return Status::CouldNot;
}

Status run(int argc, char** argv, Output& out) {
    try {
        return Program().run(argc, argv, out);
    } catch (const std::bad_alloc&) {
        return failed(out, "out of memory");
    } catch (const std::exception& error) {
        return failed(out, error.what());
    }
}

} // namespace

int runCommandLine(int argc, char** argv) {
    Output out(STDOUT_FILENO);
    Status status = run(argc, argv, out);
    if (!out.close())
        status = failed(out, "standard output: " + out.reason());
    return static_cast<int>(status);
}

} // namespace velmarin
