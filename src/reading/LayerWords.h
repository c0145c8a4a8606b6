#pragma once

#include "reading/StraightPage.h"
#include "scan/PageText.h"

namespace velmarin {

/// The words of a text layer that lie in a row of the straight page, from left to right, in pixels of the page picture.
/// The layer's own size may be another one.
TextLine layerWordsIn(const PageText& layer, const Straightening& straightening, const PageBox& row);

} // namespace velmarin
