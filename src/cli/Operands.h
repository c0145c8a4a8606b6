#pragma once

#include <CLI/CLI.hpp>

#include <string>
#include <vector>

namespace velmarin {

/// The arguments of `main` in reverse order, as CLI11 wants them. Arguments after "--", and those that CLI11 would not
/// read as plain words ("[a,b]" is a list to it, "{}" an empty one, "++" ends a command), get a guard byte in front.
std::vector<std::string> guardedArguments(int argc, char** argv);

/// The arguments of an operand, without the guard.
std::vector<std::string> operands(const CLI::Option* option);
std::string operand(const CLI::Option* option);

/// Adds a flag such as --replace.
CLI::Option* addFlag(CLI::App& command, const std::string& name, const std::string& description);
/// Adds an option with a value, which the help calls `value`.
CLI::Option* addOption(CLI::App& command, const std::string& name, const std::string& value,
                       const std::string& description);
/// Adds an operand that must be given once.
CLI::Option* addOperand(CLI::App& command, const std::string& name, const std::string& description);
/// Adds an operand that can be repeated.
CLI::Option* addManyOperands(CLI::App& command, const std::string& name, const std::string& description);
/// Adds the operand [WORD...], the input of Words.
CLI::Option* addWordOperands(CLI::App& command);

} // namespace velmarin
