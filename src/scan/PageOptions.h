#pragma once

#include "files/Result.h"

#include <filesystem>
#include <functional>
#include <vector>

namespace velmarin {

/// Whether a picture of a scan shows two pages side by side, and which of them comes first.
enum class Spread { None, LeftFirst, RightFirst };

/// How a page of a scan becomes page pictures.
struct PageOptions {
    int dpi = 300;                ///< of pages that have to be rendered
    int turn = 0;                 ///< degrees clockwise: 0, 90, 180 or 270
    Spread spread = Spread::None; ///< pictures that are higher than wide are not cut
    /// Called about fifty times a second while a child program works; if it returns false, the page is given up. Empty:
    /// never.
    std::function<bool()> mayContinue = {};
};

/// The pictures of a page of a scan.
struct PagePictures {
    /// One; two for a spread that was cut, in reading order. Empty on failure.
    std::vector<std::filesystem::path> files = {};
    Result result = {};
    bool stopped = false; ///< mayContinue has ended it; `result` says so too
};

} // namespace velmarin
