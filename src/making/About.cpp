#include "making/About.h"

#include "making/OneLine.h"

namespace velmarin {

std::string aboutText(const About& about) {
    const struct {
        const char* name;
        const std::string& value;
    } parts[] = {{"Title", about.title},       {"Edition", about.edition}, {"Year", about.year},
                 {"Language", about.language}, {"Source", about.source},   {"Rights", about.rights}};
    std::string text;
    for (const auto& part : parts)
        if (!part.value.empty())
            text += std::string(part.name) + ": " + inOneLine(part.value) + "\n";
    return text;
}

} // namespace velmarin
