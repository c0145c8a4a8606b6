#pragma once

#include "reading/PageReading.h"

#include <functional>
#include <string>

namespace velmarin {

/// Whether the word list of the language has a word.
using KnownWord = std::function<bool(const std::string&)>;

/// Compares the words of the head with the first words of entries that were read: the same word printed twice. A word
/// that an entry begins with becomes surer, less so if the list lacks it: broken type is misread alike in both places.
/// If an entry begins with another reading of it that is no less known, they change places.
void proveByEntries(PageReading& reading, const KnownWord& known);

} // namespace velmarin
