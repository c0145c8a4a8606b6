#pragma once

#include "view/Picture.h"

#include <algorithm>
#include <cstdlib>

namespace velmarin::test {

/// The greatest difference of any channel, or 256 if the sizes differ.
inline int difference(const Picture& a, const Picture& b) {
    if (a.Width() != b.Width() || a.Height() != b.Height())
        return 256;
    int most = 0;
    for (int y = 0; y < a.Height(); ++y)
        for (int x = 0; x < a.Width(); ++x) {
            const Color c = a.pixel(x, y), d = b.pixel(x, y);
            most = std::max({most, std::abs(c.red - d.red), std::abs(c.green - d.green), std::abs(c.blue - d.blue)});
        }
    return most;
}

} // namespace velmarin::test
