#pragma once

#include "view/PixTools.h"

#include <cstdint>
#include <string>

namespace velmarin {

/// The result of a decoder: a picture in normal form, or null and the reason. A picture with a reason is damaged.
struct DecodedPix {
    PixPtr pix;
    std::string reason;

    static DecodedPix failed(std::string reason) { return {nullptr, std::move(reason)}; }
    static DecodedPix tooLarge(std::int64_t width, std::int64_t height);
    static DecodedPix noMemory() { return failed("there is not enough memory for the picture"); }
};

} // namespace velmarin
