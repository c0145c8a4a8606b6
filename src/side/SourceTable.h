#pragma once

#include "side/LookUpSource.h"

#include <cstddef>
#include <memory>
#include <span>
#include <string_view>

namespace velmarin {

struct SourceContext;

/// A source and the check box that turns it on.
struct SourceRow {
    /// The check box's name and caption.
    const char* checkBox;
    const char* caption;
    /// The check box's place in a window of the design size, in pixels.
    struct Place {
        int left, top, width, height;
    } place;
    /// Whether it is on in a group that has no `Subwindow` file.
    bool isOnByDefault;
    /// The line of the `Subwindow` file that keeps whether the source is on, from 1: unique, and none of lines 1-3, 6-8
    /// and 10, which are used in SubwindowFile.cpp.
    std::size_t settingsLine;
    std::unique_ptr<LookUpSource> (*make)(const SourceContext& context);
};

/// All sources, in the order of their answers.
std::span<const SourceRow> sourceTable();
/// The row whose check box has this name.
std::size_t sourceRow(std::string_view checkBox);

} // namespace velmarin
