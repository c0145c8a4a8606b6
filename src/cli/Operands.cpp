#include "cli/Operands.h"

#include <algorithm>

namespace velmarin {

namespace {

constexpr char kGuard = '\x1F';

bool needsGuard(const std::string& argument) {
    return argument == "++" || argument == "{}" || argument.starts_with('[') || argument.starts_with(kGuard);
}

} // namespace

std::vector<std::string> guardedArguments(int argc, char** argv) {
    std::vector<std::string> arguments;
    bool wordsOnly = false;
    for (int i = 1; i < argc; ++i) {
        std::string argument = argv[i];
        if (!wordsOnly && argument == "--") {
            wordsOnly = true;
            continue;
        }
        if (wordsOnly || needsGuard(argument))
            argument.insert(0, 1, kGuard);
        arguments.push_back(std::move(argument));
    }
    std::reverse(arguments.begin(), arguments.end());
    return arguments;
}

std::vector<std::string> operands(const CLI::Option* option) {
    std::vector<std::string> values = option->results();
    for (std::string& value : values) {
        if (value.starts_with(kGuard))
            value.erase(0, 1);
    }
    return values;
}

std::string operand(const CLI::Option* option) {
    const std::vector<std::string> values = operands(option);
    return values.empty() ? std::string() : values.front();
}

CLI::Option* addManyOperands(CLI::App& command, const std::string& name, const std::string& description) {
    const std::string& shown = description; // CLI11 takes a temporary for a constant
    return command.add_option(name, shown)
        ->option_text(" ")
        ->expected(1, CLI::detail::expected_max_vector_size)
        ->allow_extra_args();
}

CLI::Option* addWordOperands(CLI::App& command) {
    return addManyOperands(command, "WORD", "The words; without any, lines of standard input");
}

CLI::Option* addGroupOperand(CLI::App& command) {
    static const std::string description = "The folder of a group";
    return command.add_option("GROUP", description)->option_text(" ")->expected(1)->required();
}

} // namespace velmarin
