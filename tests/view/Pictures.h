#pragma once

#include "view/Picture.h"

#include <cstdint>
#include <functional>

namespace velmarin::test {

/// A picture of `depth` bits whose pixel x, y is made of the low bits of `value(x, y)`: 1 bit of ink, a grey, or
/// 0xRRGGBB.
Picture drawn(int width, int height, int depth, const std::function<std::uint32_t(int, int)>& value);

/// A picture of noise, the same for the same seed.
Picture noise(int width, int height, int depth, unsigned seed);

/// Every pixel is equal.
bool samePixels(const Picture& a, const Picture& b);

} // namespace velmarin::test
