#pragma once

// The conversions are in `platform` because the host needs them too.
#include "platform/QtText.h" // IWYU pragma: export
