#pragma once

#include <CLI/CLI.hpp>

#include <string>
#include <vector>

namespace velmarin {

/// The arguments of `main` in the reversed order that CLI11 takes. What stands behind "--", and what CLI11 would read
/// as something else than a word ("[a,b]" as a list, "{}" as an empty one, "++" as the end of a command), is guarded by
/// a byte before it.
std::vector<std::string> guardedArguments(int argc, char** argv);

/// What was given for an operand, as it was given: the guard is off.
std::vector<std::string> operands(const CLI::Option* option);
std::string operand(const CLI::Option* option);

/// Adds an operand that can be given any number of times.
CLI::Option* addManyOperands(CLI::App& command, const std::string& name, const std::string& description);
/// Adds the operand [WORD...] that goes to Words.
CLI::Option* addWordOperands(CLI::App& command);
/// Adds the operand GROUP.
CLI::Option* addGroupOperand(CLI::App& command);

} // namespace velmarin
