#pragma once

#include <cstddef>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include <pango/pango.h>

#include "make_samples/Book.h"
#include "make_samples/Hyphenator.h"
#include "make_samples/Pagination.h"
#include "make_samples/Sheet.h"

namespace velmarin {

/// Sets and draws the pages of one book with Pango and cairo.
class Press {
  public:
    explicit Press(const Design& design);

    /// The lines of an article, its number in them; above it the letter that opens a part of the alphabet, if any.
    std::vector<FlowLine> set(const std::vector<Paragraph>& paragraphs, std::size_t article, const std::string& letter);

    /// What is printed above a page: two guide words, or one if they are equal, and between them its number or name.
    struct Head {
        std::string left, middle, right;
    };
    void printPage(const std::filesystem::path& path, const Page& page, const std::vector<FlowLine>& flow,
                   const Head& head);
    void printTitlePage(const std::filesystem::path& path, const Title& title);

  private:
    using Layout = std::shared_ptr<PangoLayout>;

    /// `size` in pixels; a `width` of 0 does not break the lines.
    Layout layout(std::string markup, double size, double width = 0);
    std::vector<FlowLine> linesOf(const Paragraph& paragraph);
    std::vector<FlowLine> linesOf(const std::string& letter);
    /// Draws one line of text on a baseline; `anchor` 0 has its left end at x, 0.5 its middle, 1 its right end.
    void print(const Layout& text, double x, double baseline, double anchor) const;
    void printHead(const Head& head);

    Design design_;
    Hyphenator hyphenator_;
    std::shared_ptr<PangoContext> context_;
    Sheet sheet_;
};

} // namespace velmarin
