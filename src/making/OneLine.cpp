#include "making/OneLine.h"

#include <algorithm>

namespace velmarin {

std::string inOneLine(std::string text) {
    std::replace_if(
        text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < ' '; }, ' ');
    return text;
}

} // namespace velmarin
