#include "scan/Gutter.h"

#include "view/Encoders.h"
#include "view/PixTools.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace velmarin {

namespace {

constexpr int kReducedWidth = 1200;
constexpr double kMiddleFrom = 0.38, kMiddleTo = 0.62;
constexpr double kFoldInk = 0.6;    ///< of the rows of a fold, at least, are ink
constexpr double kWhiteInk = 0.012; ///< the share of ink that white columns may have beyond the whitest one
constexpr double kMaxLean = 0.035;  ///< tangent of two degrees
constexpr int kLeans = 15;

/// The picture in grey, reduced, and the grey that divides ink from paper.
struct Reduced {
    Picture grey;
    int threshold = 128;
    double scale = 1; ///< of the reduced picture to the given one
};

Reduced reduced(const Picture& picture) {
    const float scale = std::min(1.0F, static_cast<float>(kReducedWidth) / static_cast<float>(picture.Width()));
    PixPtr pix(picture.depth() == 32 ? pixConvertRGBToLuminance(picture.pix()) : pixConvertTo8(picture.pix(), 0));
    if (pix && scale < 1)
        pix.reset(pixScaleSmooth(pix.get(), scale, scale));
    Reduced result;
    result.grey = Picture::adopt(pix.release());
    if (result.grey) {
        result.threshold = otsuThreshold(result.grey);
        result.scale = static_cast<double>(result.grey.Width()) / picture.Width();
    }
    return result;
}

/// The share of ink in each column from `from` up to `to`, along lines that lean by `lean` columns a row and cross the
/// column at half height.
std::vector<double> inkAlong(const Reduced& page, int from, int to, double lean) {
    std::vector<int> count(static_cast<std::size_t>(to - from));
    const int width = page.grey.Width(), height = page.grey.Height();
    for (int y = 0; y < height; ++y) {
        const std::uint32_t* row = page.grey.row(y);
        const int shift = static_cast<int>(std::lround((y - height / 2.0) * lean));
        for (int x = from; x < to; ++x) {
            const int at = std::clamp(x + shift, 0, width - 1);
            count[static_cast<std::size_t>(x - from)] += static_cast<int>(GET_DATA_BYTE(row, at)) < page.threshold;
        }
    }
    std::vector<double> share(count.size());
    std::transform(count.begin(), count.end(), share.begin(), [&](int ink) { return double{1} * ink / height; });
    return share;
}

/// A run of columns that can be the gutter, from `from` up to `to`.
struct Band {
    std::size_t from = 0, to = 0;
    double middle() const { return static_cast<double>(from + to) / 2; }
    std::size_t width() const { return to - from; }
};

template <typename Fits> std::vector<Band> bandsOf(const std::vector<double>& share, Fits fits) {
    std::vector<Band> bands;
    for (std::size_t i = 0; i < share.size(); ++i) {
        if (!fits(share[i]))
            continue;
        if (bands.empty() || bands.back().to != i)
            bands.push_back({i, i});
        ++bands.back().to;
    }
    return bands;
}

/// The gutter as far as one lean shows it. Of two candidates the one with the higher value is the better one.
struct Candidate {
    double column = 0;
    double value = -1;
};

/// The darkest fold, or the widest white band; what is far from the middle counts less.
Candidate candidateAmong(const std::vector<double>& share) {
    const double middle = static_cast<double>(share.size()) / 2;
    const auto nearness = [&](const Band& band) { return 1 - std::abs(band.middle() - middle) / (2 * middle); };
    Candidate best;
    const auto consider = [&](const Band& band, double value) {
        if (value > best.value)
            best = {band.middle(), value};
    };
    // A fold beats any white band: next to it the margins are white, too.
    for (const Band& band : bandsOf(share, [](double ink) { return ink >= kFoldInk; }))
        consider(band, 1e6 * nearness(band) *
                           *std::max_element(share.begin() + static_cast<std::ptrdiff_t>(band.from),
                                             share.begin() + static_cast<std::ptrdiff_t>(band.to)));
    if (best.value >= 0)
        return best;
    // Not free of ink: a dark background shows above and below the pages.
    const double least = *std::min_element(share.begin(), share.end());
    for (const Band& band : bandsOf(share, [&](double ink) { return ink <= least + kWhiteInk; }))
        consider(band, static_cast<double>(band.width()) * nearness(band) * (1 - least));
    return best;
}

} // namespace

bool mayBeSpread(const Picture& picture) {
    return picture.Width() >= picture.Height();
}

int gutterColumn(const Picture& picture) {
    silenceLeptonica();
    const Reduced page = reduced(picture);
    if (page.grey.isNil())
        return picture.Width() / 2;
    const int from = static_cast<int>(page.grey.Width() * kMiddleFrom);
    const int to = std::max(from + 1, static_cast<int>(page.grey.Width() * kMiddleTo));
    Candidate best;
    for (int i = 0; i < kLeans; ++i) {
        const std::vector<double> share = inkAlong(page, from, to, kMaxLean * (2.0 * i / (kLeans - 1) - 1));
        const Candidate candidate = candidateAmong(share);
        if (candidate.value > best.value)
            best = candidate;
    }
    return std::clamp(static_cast<int>(std::lround((from + best.column) / page.scale)), 1,
                      std::max(1, picture.Width() - 1));
}

} // namespace velmarin
