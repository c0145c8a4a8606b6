#pragma once

#include "view/Picture.h"

#include <cstdint>
#include <functional>
#include <string>

namespace velmarin::test {

/// A picture of `depth` bits whose pixel x, y is made of the low bits of `value(x, y)`: 1 bit of ink, a grey, or
/// 0xRRGGBB.
Picture drawn(int width, int height, int depth, const std::function<std::uint32_t(int, int)>& value);

/// A picture of noise, the same for the same seed.
Picture noise(int width, int height, int depth, unsigned seed);

/// A picture as text, with rows separated by '/': for a grey pixel its value's first hexadecimal digit, R, G or B for
/// the pure colors, '?' for any other.
std::string asText(const Picture& picture);

/// The greatest difference of any channel, or 256 if the sizes differ.
int difference(const Picture& a, const Picture& b);

} // namespace velmarin::test
