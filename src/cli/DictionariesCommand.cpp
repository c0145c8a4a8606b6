#include "cli/Commands.h"
#include "cli/FolderArgument.h"
#include "cli/Operands.h"
#include "text/StringFields.h"

namespace velmarin {

namespace {

constexpr const char* kHelp = R"help(Columns:
  1  the name of the dictionary (the name of its folder)
  2  its image mode: 0 adjusted by height, 1 original size, 2 adjusted by width
  3  the number of entries; empty if the dictionary does not load because ind,
     txt or mImg is missing
  4  its marks, separated by commas: spanish, ijuv, independent, format=...
     The number format comes last because it can contain a comma.

The dictionaries are in the order of the tabs: first those that the group's
DictionaryPreferences.txt names, then the others by name. A dictionary that does
not load is listed only if that file names it; "velmarin-cli check" reports the
others.

Exit status: 0 success, 1 no dictionaries, 2 the group or one of its dictionaries
cannot be read.

Example: the five largest dictionaries of a group
  velmarin-cli dictionaries English | sort -t "$(printf '\t')" -k3,3nr | head -5)help";

std::string marksOf(const DictionaryItem& item) {
    std::vector<std::string> marks;
    if (item.order.SpanishMode)
        marks.emplace_back("spanish");
    if (item.order.IJUVMode)
        marks.emplace_back("ijuv");
    if (item.Independent)
        marks.emplace_back("independent");
    if (!item.order.FormatFom.empty())
        marks.push_back("format=" + item.order.FormatFom);
    return Join(marks, ",");
}

Job define(CLI::App& command) {
    const CLI::Option* folder = addOperand(command, "GROUP", "The folder of a group");
    return [=](Session& session) {
        const auto group = groupArgument(operand(folder), session);
        if (!group)
            return Status::CouldNot;
        for (const auto& item : group->dictionaries) {
            const std::string entries = item->loaded ? std::to_string(item->IND.size()) : std::string();
            session.out().record({item->name, std::to_string(item->ImageMode), entries, marksOf(*item)});
        }
        return group->dictionaries.empty() ? Status::NothingFound : Status::Done;
    };
}

} // namespace

Command dictionariesCommand() {
    return {.name = "dictionaries", .summary = "List the dictionaries of a group", .help = kHelp, .define = define};
}

} // namespace velmarin
