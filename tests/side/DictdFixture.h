#pragma once

#include "support/TempFolder.h"

#include <cstddef>
#include <string>
#include <vector>

namespace velmarin::test {

/// A dictionary in the dictd format: entries in the order of its index, written as one pair of files.
class DictdFixture {
  public:
    /// A flag such as "00-database-utf8", or any entry.
    DictdFixture& entry(std::string word, std::string text);
    std::string index() const { return index_; }
    std::string text() const { return text_; }
    /// Writes "name.index", and "name.dict.dz" in chunks of this length, or "name.dict" for 0. Chunks of under 50 bytes
    /// make a header without the name.
    void writeTo(const TempFolder& folder, const std::string& name, std::size_t chunkLength = 0) const;

  private:
    std::string index_;
    std::string text_;
};

} // namespace velmarin::test
