#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include <cairo.h>

#include "make_samples/Book.h"

namespace velmarin {

std::string extensionOf(PageKind kind);

/// The paper on which one page after the other is drawn.
class Sheet {
  public:
    explicit Sheet(const Design& design);

    /// Draws in pixels from the top left.
    cairo_t* context() const { return context_.get(); }
    /// Without it, the ink is black.
    void useRed(bool red) const;

    /// Takes away what was drawn.
    void clear() const;
    /// Writes the page with its resolution. Throws std::runtime_error naming the file if that fails.
    void write(const std::filesystem::path& path) const;

  private:
    PageKind kind_;
    int dpi_;
    std::unique_ptr<cairo_surface_t, decltype(&cairo_surface_destroy)> surface_;
    std::unique_ptr<cairo_t, decltype(&cairo_destroy)> context_;
    std::vector<unsigned char> blank_; ///< the bytes of the empty paper
};

} // namespace velmarin
