#pragma once

// The conversions stand below this folder, since the host needs them too.
#include "platform/QtText.h" // IWYU pragma: export
