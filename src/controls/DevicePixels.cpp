#include "controls/DevicePixels.h"

#include <algorithm>

namespace velmarin {

DevicePixels::DevicePixels(QPainter& painter) : painter_(painter) {
    painter_.save();
    toDevice_ = painter_.deviceTransform();
    painter_.resetTransform();
    painter_.setWorldTransform(painter_.deviceTransform().inverted());
}

int DevicePixels::length(qreal logical) const {
    return std::max(1, qRound(logical * toDevice_.m11()));
}

} // namespace velmarin
