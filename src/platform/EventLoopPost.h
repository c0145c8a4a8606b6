#pragma once

#include "platform/Busy.h"

namespace velmarin {

/// Runs actions from the event loop of the QApplication, which has to be there when one is posted.
BusyState::Post eventLoopPost();

} // namespace velmarin
