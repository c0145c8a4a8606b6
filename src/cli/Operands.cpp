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

// CLI11 takes a `const std::string` for a description, and anything else for a variable to set.

CLI::Option* addFlag(CLI::App& command, const std::string& name, const std::string& description) {
    return command.add_flag(name, description)->option_text(" ");
}

CLI::Option* addOption(CLI::App& command, const std::string& name, const std::string& value,
                       const std::string& description) {
    return command.add_option(name, description)->option_text(value)->expected(1);
}

CLI::Option* addOperand(CLI::App& command, const std::string& name, const std::string& description) {
    return addOption(command, name, " ", description)->required();
}

CLI::Option* addManyOperands(CLI::App& command, const std::string& name, const std::string& description) {
    return addOption(command, name, " ", description)
        ->expected(1, CLI::detail::expected_max_vector_size)
        ->allow_extra_args();
}

CLI::Option* addWordOperands(CLI::App& command) {
    return addManyOperands(command, "WORD", "The words; without any, lines of standard input");
}

} // namespace velmarin
