#pragma once

#include "scan/PageEncoding.h"
#include "view/Picture.h"

#include <string>
#include <utility>

namespace velmarin {

/// A page as a scan holds it, before it is turned and cut: a file, a picture, or both; or neither and why.
struct ScannedPage {
    EncodedPage file = {}; ///< to be used as it is; empty if the picture has to be encoded
    Picture picture = {};  ///< nil if only the file is known
    PageEncoding encoding = PageEncoding::Lossless;
    std::string problem = {};
    bool stopped = false; ///< by the caller; `problem` says so too

    static ScannedPage failed(std::string problem) { return {.problem = std::move(problem)}; }
};

} // namespace velmarin
