#pragma once

#include "cli/Session.h"
#include "files/Work.h"
#include "maintenance/MaintenanceResult.h"

namespace velmarin {

/// Writes what install, update or export did: a record for each item, a failure of the session for each failure.
void report(const MaintenanceResult& result, Session& session);

/// A progress that says once which folder the command waits for.
Progress waitNotice();

} // namespace velmarin
