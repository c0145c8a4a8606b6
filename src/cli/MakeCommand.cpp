#include "cli/MakeParts.h"

namespace velmarin {

namespace {

constexpr const char* kHelp = R"help(Makes a dictionary from the pictures of its pages: "draft" reads their guide words,
and "build" writes the dictionary. With "table", the words come from a table.)help";

} // namespace

Command makeCommand() {
    return {.name = "make",
            .summary = "Make a dictionary",
            .help = kHelp,
            .parts = {makeDraftPart(), makeBuildPart(), makeTablePart()}};
}

} // namespace velmarin
