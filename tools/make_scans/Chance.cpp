#include "make_scans/Chance.h"

#include <cmath>

namespace velmarin {

namespace {

constexpr std::uint64_t mixed(std::uint64_t bits) {
    bits = (bits ^ (bits >> 30)) * 0xBF58476D1CE4E5B9U;
    bits = (bits ^ (bits >> 27)) * 0x94D049BB133111EBU;
    return bits ^ (bits >> 31);
}

} // namespace

std::uint64_t Chance::next() {
    return mixed(state_ += 0x9E3779B97F4A7C15U);
}

double Chance::unit() {
    return static_cast<double>(next() >> 11) / 9007199254740992.0; // 2^53
}

double Chance::normal() {
    return (unit() + unit() + unit() + unit() - 2) * std::sqrt(3.0);
}

float SmoothNoise::corner(std::int32_t x, std::int32_t y) const {
    const std::uint64_t place =
        (static_cast<std::uint64_t>(static_cast<std::uint32_t>(x)) << 32) | static_cast<std::uint32_t>(y);
    return static_cast<float>(mixed(seed_ ^ (place * 0x9E3779B97F4A7C15U)) >> 40) / 8388608.0F - 1; // 24 bits
}

float SmoothNoise::at(float x, float y) const {
    const float px = x * scale_;
    const float py = y * scale_;
    const float left = std::floor(px);
    const float top = std::floor(py);
    const auto smooth = [](float t) { return t * t * (3 - 2 * t); };
    const float dx = smooth(px - left);
    const float dy = smooth(py - top);
    const auto ix = static_cast<std::int32_t>(left);
    const auto iy = static_cast<std::int32_t>(top);
    const float above = corner(ix, iy) * (1 - dx) + corner(ix + 1, iy) * dx;
    const float below = corner(ix, iy + 1) * (1 - dx) + corner(ix + 1, iy + 1) * dx;
    return above * (1 - dy) + below * dy;
}

} // namespace velmarin
