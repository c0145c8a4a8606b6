#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace velmarin {

enum class Setting : std::uint8_t {
    Hanging,  ///< Justified, the first line out to the margin: the opening of an article
    Indented, ///< Justified, the first line in: a further paragraph of the article
    Verse,    ///< One line of a poem, not justified
    Right,    ///< A signature at the right margin
};

struct Paragraph {
    Setting setting = Setting::Hanging;
    bool small = false;
    bool gapBefore = false; ///< a third of a line of space above it
    std::string markup;     ///< Pango's
};

/// One article of a dictionary, ready to be set.
struct Article {
    /// What the index holds: the headword as readers type it.
    std::string key;
    /// What the head of the page shows.
    std::string guide;
    /// Goes into the index after the delimiter; may be empty.
    std::string note;
    std::vector<Paragraph> paragraphs;
    /// The article in full where `paragraphs` holds a shorter form; set on pages of its own. Mostly empty.
    std::vector<Paragraph> supplement;
};

} // namespace velmarin
