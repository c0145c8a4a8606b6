#pragma once

#include "reading/PageReading.h"

namespace velmarin {

/// Compares the words of the head with the first words of entries that were read: the same word printed twice is read
/// alike only if it is read right. A word that an entry begins with becomes surer. If an entry begins with another
/// reading of it, they change places.
void proveByEntries(PageReading& reading);

} // namespace velmarin
