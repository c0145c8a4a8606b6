#pragma once

#include <cstddef>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include <pango/pango.h>

#include "press/Design.h"
#include "press/Hyphenator.h"
#include "press/Pagination.h"

namespace velmarin {

/// Sets and draws the pages of one book with Pango and cairo.
class Press {
  public:
    explicit Press(const Design& design);

    /// The lines of an article, which get its number. `letter`, if not empty, is set above it and opens a part of the
    /// alphabet.
    std::vector<FlowLine> set(const std::vector<Paragraph>& paragraphs, std::size_t article,
                              const std::string& letter) const;

    /// What is printed above a page: two guide words, or one if they are equal, and between them its number or name.
    struct Head {
        std::string left, middle, right;
    };
    void printPage(const std::filesystem::path& path, const Page& page, const std::vector<FlowLine>& flow,
                   const Head& head) const;
    void printTitlePage(const std::filesystem::path& path, const Title& title) const;

  private:
    /// `size` in pixels; with a `width` of 0 the text is one line.
    std::shared_ptr<PangoLayout> layout(std::string markup, double size, double width = 0) const;
    std::vector<FlowLine> linesOf(const Paragraph& paragraph) const;
    std::vector<FlowLine> linesOf(const std::string& letter) const;

    Design design_;
    Hyphenator hyphenator_;
    std::shared_ptr<PangoContext> context_;
};

} // namespace velmarin
