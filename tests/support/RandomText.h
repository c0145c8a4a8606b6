#pragma once

#include "text/Utf8.h"

#include <random>
#include <string>
#include <vector>

namespace velmarin {

/// Texts made of given pieces, of any code points, and of bytes that are not UTF-8. The same in every run.
class RandomText {
  public:
    explicit RandomText(std::vector<std::string> pieces, unsigned seed) : pieces_(std::move(pieces)), engine_(seed) {}

    std::size_t below(std::size_t bound) { return std::uniform_int_distribution<std::size_t>(0, bound - 1)(engine_); }

    std::string operator()(std::size_t longest) {
        std::string text;
        for (std::size_t left = below(longest + 1); left > 0; --left) {
            const std::size_t kind = below(10);
            if (kind < 6)
                text += pieces_[below(pieces_.size())];
            else if (kind < 8)
                text += static_cast<char>(below(0x80));
            else if (kind < 9)
                appendUtf8(text, codePoint());
            else
                text += static_cast<char>(0x80 + below(0x80));
        }
        return text;
    }

  private:
    char32_t codePoint() {
        constexpr char32_t bounds[] = {0x250, 0x800, 0x10000, kInvalidByteUnit};
        const auto value = static_cast<char32_t>(below(bounds[below(std::size(bounds))]));
        return value >= 0xD800 && value < 0xE000 ? value - 0x800 : value;
    }

    std::vector<std::string> pieces_;
    std::mt19937 engine_;
};

} // namespace velmarin
