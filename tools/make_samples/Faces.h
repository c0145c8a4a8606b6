#pragma once

#include <string>

#include "make_samples/FontSet.h"

namespace velmarin {

// The faces that the books are set in, from the font packages in tools/packages.txt. A second and third font fill in
// for letters and ornaments that the first lacks; the last has kana and Chinese characters.

/// As books were set around 1900.
Typeface modernFace();
/// Of the Renaissance. Its bold has few letters, so that the regular one is thickened.
Typeface oldFace();
Typeface plainFace();
/// For Japanese headwords: the font has one weight, which is thickened too.
Typeface japaneseFace();

/// The path of a language's hyphenation patterns ("en_US").
std::string hyphenation(const std::string& language);

} // namespace velmarin
