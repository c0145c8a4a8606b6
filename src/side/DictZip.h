#pragma once

#include "files/FolderItem.h"
#include "files/ReadOnlyFile.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace velmarin {

/// The text of a dictionary in the dictd format, `*.dict` or `*.dict.dz`, read piece by piece. The latter is dictzip: a
/// gzip file (RFC 1952) whose header has an extra field "RA" with the lengths of its chunks. Each chunk can be inflated
/// on its own (dictzip(1)).
class DictZip {
  public:
    /// Returns nullopt if the file cannot be read, or if its chunk table is missing or damaged.
    static std::optional<DictZip> open(const FolderItem& file);

    /// `size` bytes of the uncompressed text from `offset`; nullopt if some are missing or damaged, or if there are
    /// more than kLongestPiece.
    std::optional<std::string> read(std::uint64_t offset, std::uint64_t size) const;

    static constexpr std::uint64_t kLongestPiece = std::uint64_t{1} << 22;

  private:
    explicit DictZip(ReadOnlyFile file) : file_(std::move(file)) {}
    bool readHeader();
    std::optional<std::string> chunk(std::size_t number) const;

    ReadOnlyFile file_;
    /// 0 for text that is not compressed.
    std::uint32_t chunkLength_ = 0;
    /// Where each chunk begins in the file, followed by the end of the last chunk.
    std::vector<std::uint64_t> chunkAt_;
};

} // namespace velmarin
