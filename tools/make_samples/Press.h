#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "make_samples/Article.h"
#include "make_samples/Canvas.h"
#include "make_samples/Design.h"
#include "make_samples/FontSet.h"
#include "make_samples/Hyphenator.h"
#include "make_samples/Pagination.h"

namespace velmarin {

/// Sets and prints the pages of one book. One for each thread; all of one design give the same result.
class Press {
  public:
    explicit Press(const Design& design);

    /// The lines of an article, its number in them.
    std::vector<FlowLine> set(const std::vector<Paragraph>& paragraphs, std::size_t article);

    /// The letter that opens a part of the alphabet, as lines that stand before its first article.
    std::vector<FlowLine> initial(const std::string& letter, std::size_t article);

    /// What stands over a page: two guide words, or one where they are equal, and between them its number or name.
    struct Head {
        std::string left, middle, right;
    };
    Canvas page(const Page& page, const std::vector<FlowLine>& flow, const Head& head);

    Canvas titlePage(const Title& title);

  private:
    Line centred(Style style, double size, const std::string& text, bool red = false);
    double widthOf(Style style, double size, const std::string& text);
    void printAt(Canvas& canvas, Style style, double size, const std::string& text, double x, double y,
                 bool red = false);
    void printCentred(Canvas& canvas, Style style, double size, const std::string& text, double y, bool red = false);
    void printHead(Canvas& canvas, const Head& head);
    std::string shortened(Style style, double size, std::string text, double width);

    Design design_;
    FontSet fonts_;
    Hyphenator hyphenator_;
};

} // namespace velmarin
