#pragma once

#include <cstdint>

namespace velmarin {

/// Numbers that look random and are the same on every machine: SplitMix64 (Steele, Lea, Flood 2014).
class Chance {
  public:
    explicit Chance(std::uint64_t seed) : state_(seed) {}

    std::uint64_t next();
    /// At least 0, less than 1.
    double unit();
    double between(double least, double most) { return least + (most - least) * unit(); }
    /// Of about the normal distribution with deviation 1.
    double normal();

  private:
    std::uint64_t state_;
};

/// Smooth noise over the plane, -1 to 1, with one hill or hollow every `cell` pixels.
class SmoothNoise {
  public:
    SmoothNoise(std::uint64_t seed, double cell) : seed_(seed), scale_(static_cast<float>(1 / cell)) {}
    float at(float x, float y) const;

  private:
    float corner(std::int32_t x, std::int32_t y) const;

    std::uint64_t seed_;
    float scale_;
};

} // namespace velmarin
