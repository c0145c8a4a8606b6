#pragma once

namespace velmarin {

/// The whole of velmarin-cli: understands the command line, does what it asks and returns the exit status.
int runCommandLine(int argc, char** argv);

} // namespace velmarin
