#pragma once

#include "view/Picture.h"

#include <optional>

namespace velmarin {

/// What has to be done to an embedded picture so that it looks as its page.
struct PageLikeness {
    int turn = 0; ///< degrees clockwise
    bool inverted = false;
};

/// Compares a picture that a page contains with the page as a whole, rendered small and in grey. nullopt unless the
/// picture covers the page and nothing else is on it: no margin, no stamp, no part cut off.
///
/// Both are blurred, and each pixel may be as dark as any of its neighbours in the other one, because renderers place
/// pictures up to a pixel off.
std::optional<PageLikeness> likenessOf(const Picture& embedded, const Picture& rendered);

/// The longer side, in pixels, of a page that is rendered for likenessOf: no more than the picture has.
inline constexpr int kLikenessSide = 1000;

} // namespace velmarin
