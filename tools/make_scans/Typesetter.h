#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <cairo.h>

#include "make_scans/Raster.h"
#include "make_scans/ScanBook.h"
#include "press/Pagination.h"
#include "press/Press.h"

namespace velmarin {

/// What is printed on one page. Empty texts are not printed.
struct PrintedPage {
    std::string number = {}, first = {}, last = {};
    std::vector<std::string> between = {};   ///< guide words over the columns between the first and the last
    std::vector<std::string> headwords = {}; ///< of the articles that begin on it
    bool plate = false;
};

/// Typesets a book and draws its pages as ink on nothing: 0 is blank, 255 full ink.
class Typesetter {
  public:
    /// @param dpi the lengths of the book's design are for 300
    Typesetter(ScanBook book, int dpi);

    const std::vector<PrintedPage>& pages() const { return printed_; }
    Raster inkOf(std::size_t page) const;
    const Design& design() const { return book_.book.design; }

  private:
    /// A page of the flow `part`, or a plate.
    struct Place {
        std::size_t part = 0, page = 0;
        bool plate = false;
    };

    void addPart(std::size_t from, std::size_t to, const std::string& letter);
    void addPage(std::size_t part, std::size_t page, bool opensLetter);
    void drawHead(cairo_t* context, const PrintedPage& page, bool recto) const;
    void drawColumns(cairo_t* context, const Place& place) const;
    void drawText(cairo_t* context, const std::string& markup, double x, double baseline, double anchor) const;

    ScanBook book_;
    Press press_, headPress_;
    std::vector<std::vector<FlowLine>> flows_;
    std::vector<std::vector<Page>> parts_;
    std::vector<Place> places_;
    std::vector<PrintedPage> printed_;
};

} // namespace velmarin
