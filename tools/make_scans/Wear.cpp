#include "make_scans/Wear.h"

namespace velmarin {

std::optional<Wear> wearOf(std::string_view level) {
    if (level == "clean")
        return Wear{.skew = 0.2, .blur = 0.4, .noise = 0.1};
    if (level == "ordinary")
        return Wear{.skew = 0.8,
                    .curl = 0.4,
                    .waves = 0.3,
                    .broken = 0.35,
                    .spread = 0.2,
                    .bleed = 0.3,
                    .yellow = 0.5,
                    .stains = 0.3,
                    .light = 0.4,
                    .blur = 0.7,
                    .noise = 0.4,
                    .dust = 0.3,
                    .salt = 0.2,
                    .threshold = 0.2,
                    .border = 0.5,
                    .jpegQuality = 70};
    if (level == "hard")
        return Wear{.skew = 2,
                    .curl = 1,
                    .waves = 1,
                    .broken = 1,
                    .spread = 0.7,
                    .bleed = 1,
                    .yellow = 1,
                    .stains = 1,
                    .light = 1,
                    .blur = 1.1,
                    .noise = 1,
                    .dust = 1,
                    .salt = 1,
                    .threshold = 0.6,
                    .border = 1,
                    .jpegQuality = 35};
    return std::nullopt;
}

} // namespace velmarin
