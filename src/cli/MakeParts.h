#pragma once

#include "cli/Commands.h"

namespace velmarin {

// The parts of the command `make`, each in a source file of its own.

Command makeDraftPart();
Command makeBuildPart();
Command makeTablePart();

} // namespace velmarin
