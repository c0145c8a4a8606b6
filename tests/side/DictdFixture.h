#pragma once

#include "support/TempFolder.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace velmarin::test {

/// A number as an index in the dictd format has it.
std::string dictdNumber(std::size_t value);

/// A gzip file that can be read chunk by chunk.
std::string dictzip(std::string_view text, std::size_t chunkLength, bool withName = true);

/// A dictionary in the dictd format: entries in the order of its index, written as one pair of files.
class DictdFixture {
  public:
    /// A flag such as "00-database-utf8", or any entry.
    DictdFixture& entry(std::string word, std::string text);
    std::string index() const { return index_; }
    std::string text() const { return text_; }
    /// Writes "name.index", and "name.dict.dz" in chunks of this length, or "name.dict" for 0.
    void writeTo(const TempFolder& folder, const std::string& name, std::size_t chunkLength = 0) const;

  private:
    std::string index_;
    std::string text_;
};

} // namespace velmarin::test
