#include "text/WordDelimiters.h"

namespace velmarin {

std::vector<std::string> pWordDelimitersSet;

void mDDmod_OpenThisModule() {
    pWordDelimitersSet = {"(", ")", "[", "]", "_", "—", "}", "{", "!", "\"", ",", ".", ":", ";", "?", "`", "•", "´",
                          "¿", "¡", "¬", "√", "«", "»", "…", "“", "”", "‘",  "’", "◊", "·", "‚", "„", "-", "'"};
}

} // namespace velmarin
