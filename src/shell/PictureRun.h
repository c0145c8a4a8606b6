#pragma once

#include "platform/Host.h"

#include <string>

class QString;

namespace velmarin {

class App;

/// What the command line asks of a start.
struct StartRequest {
    /// A group to pick, by name; empty for none.
    std::string group = {};
    /// A word to search in it; empty for none.
    std::string word = {};
    /// A file that takes a picture of the whole window, after which the program ends; empty for none.
    std::string pictureFile = {};
};

/// Does what `request` asks of the first window once it stands on the screen. Failures go to standard error, and give
/// the status with which the program then ends.
void runStartRequest(App& app, const StartRequest& request);

} // namespace velmarin
