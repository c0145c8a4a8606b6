#include "make_samples/Faces.h"

namespace velmarin {

namespace {

const std::string fontFolder = "/usr/share/fonts/";
const std::string libertine = fontFolder + "opentype/linux-libertine/LinLibertine_";
const std::string garamond = fontFolder + "opentype/ebgaramond/EBGaramond12-";
const std::string oldStandard = fontFolder + "truetype/fonts-oldstandard/OldStandard-";
const std::string mincho = fontFolder + "opentype/ipaexfont-mincho/ipaexm.ttf";

} // namespace

Typeface modernFace() {
    return {{oldStandard + "Regular.ttf", libertine + "R.otf", garamond + "Regular.otf", mincho},
            {oldStandard + "Italic.ttf", libertine + "RI.otf", mincho},
            {oldStandard + "Bold.ttf", libertine + "RB.otf", mincho},
            false,
            false};
}

Typeface oldFace() {
    return {{garamond + "Regular.otf", libertine + "R.otf", mincho},
            {garamond + "Italic.otf", libertine + "RI.otf", mincho},
            {garamond + "Regular.otf", libertine + "R.otf", mincho},
            true,
            true};
}

Typeface plainFace() {
    return {{libertine + "R.otf", garamond + "Regular.otf", mincho},
            {libertine + "RI.otf", mincho},
            {libertine + "RB.otf", mincho},
            false,
            true};
}

Typeface japaneseFace() {
    return {{libertine + "R.otf", garamond + "Regular.otf", mincho},
            {libertine + "RI.otf", mincho},
            {libertine + "R.otf", mincho},
            true,
            true};
}

std::string hyphenation(const std::string& language) {
    return "/usr/share/hyphen/hyph_" + language + ".dic";
}

} // namespace velmarin
