#pragma once

#include "text/Utf8.h"

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>
#include <vector>

namespace velmarin {

/// The normal form of every character of the Basic Multilingual Plane: what the chain of folding tables and the
/// upper-casing of a search word make of it, as one look-up.
class NormalForms {
  public:
    /// Made at the first call.
    static const NormalForms& table();

    /// Writes the form of any unit of UTF-8 to `out` and returns its length. `out` must have room for kRoom bytes,
    /// all of which may be overwritten.
    std::size_t write(char32_t unit, char* out) const {
        if (unit >= kPlaneSize)
            return writeBeyondPlane(unit, out);
        const Form& form = forms_[unit];
        std::memcpy(out, &form, sizeof form);
        return form.length;
    }

    static constexpr std::size_t kRoom = 8;
    /// No form is longer than this many times the bytes of its character.
    static constexpr std::size_t kMostGrowth = 2;

  private:
    static constexpr char32_t kPlaneSize = 0x10000;
    struct Form {
        char bytes[kRoom - 1];
        std::uint8_t length;
    };

    NormalForms();
    void set(char32_t c, std::string_view form);
    static std::size_t writeBeyondPlane(char32_t unit, char* out);

    std::vector<Form> forms_;
};

} // namespace velmarin
