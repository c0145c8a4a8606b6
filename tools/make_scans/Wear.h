#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace velmarin {

/// How a picture is stored.
enum class ScanTone : std::uint8_t { Bilevel, Grey, Color };

/// What a book and a scanner do to a page. Strengths are 0 for none and about 1 for what is still called legible;
/// each page gets its own share of them.
struct Wear {
    double skew = 0;      ///< degrees, to both sides
    double curl = 0;      ///< of the paper at the gutter: bends lines and darkens
    double waves = 0;     ///< of paper that does not lie flat
    double broken = 0;    ///< strokes that took no ink
    double spread = 0;    ///< ink that ran; negative for starved type
    double bleed = 0;     ///< of the other side of the leaf
    double yellow = 0;    ///< age of the paper
    double stains = 0;    ///< spots on the paper
    double light = 0;     ///< unevenness
    double blur = 0;      ///< in 1/300 inch
    double noise = 0;     ///< of the sensor
    double dust = 0;      ///< on the glass: specks, hairs, lines along the page
    double salt = 0;      ///< lone pixels of 1-bit pictures
    double threshold = 0; ///< positive: 1-bit pictures are too dark; negative: too light
    double border = 0;    ///< black edges, and a strip of the facing page
    int jpegQuality = 85;
};

/// "clean", "ordinary" or "hard"; nullopt for another name.
std::optional<Wear> wearOf(std::string_view level);

} // namespace velmarin
