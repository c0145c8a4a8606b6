#include "view/DecodedPix.h"

#include "text/NumberText.h"

namespace velmarin {

DecodedPix DecodedPix::tooLarge(std::int64_t width, std::int64_t height) {
    return failed("its header asks for " + Str(width) + " x " + Str(height) + " pixels, a size that cannot be shown");
}

} // namespace velmarin
