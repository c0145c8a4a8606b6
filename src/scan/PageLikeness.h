#pragma once

#include "view/Picture.h"

#include <optional>

namespace velmarin {

/// What has to be done to an embedded picture so that it looks as its page.
struct PageLikeness {
    int turn = 0; ///< degrees clockwise
    bool inverted = false;
};

/// Compares a picture that a page contains with the page as a whole, rendered in grey and no larger than the picture.
/// nullopt unless the picture covers the page and nothing else is on it: no margin, no stamp, no part cut off.
///
/// Both are blurred, and each pixel may be as dark as any of its neighbours in the other one, because renderers place
/// pictures up to a pixel off. The edges are passed over.
std::optional<PageLikeness> likenessOf(const Picture& embedded, const Picture& rendered);

/// The longer side, in pixels, at which they are compared: a page that is rendered larger is reduced.
inline constexpr int kLikenessSide = 1000;

} // namespace velmarin
