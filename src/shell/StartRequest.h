#pragma once

#include <string>

namespace velmarin {

class MainWindow;

/// What the command line asks for at a start. Empty members ask for nothing.
struct StartRequest {
    /// The name of a group to pick.
    std::string group = {};
    /// A word to search in it.
    std::string word = {};
    /// Where to save a picture of the whole window; the program then ends.
    std::string pictureFile = {};
};

/// Carries out `request` in a visible window. A failure is written to standard error and, if a
/// picture was asked for, ends the program with status 2.
void runStartRequest(MainWindow& window, const StartRequest& request);

} // namespace velmarin
