#pragma once

#include "files/FolderItem.h"

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace velmarin {

/// What could not be done: the item that was to be read or written, and why.
struct Failure {
    FolderItem item;
    /// A clause in plain words: "it could not be written: No space left on device".
    std::string reason;

    /// Both in one line: "\"/path/txt\" could not be written: No space left on device".
    std::string message() const;
};

using Failures = std::vector<Failure>;

/// The result of an operation that can be expected to fail: ok, or its failure.
class [[nodiscard]] Result {
  public:
    Result() = default;
    Result(Failure failure) : failure_(std::move(failure)) {}

    explicit operator bool() const { return !failure_; }
    /// Only if the operation failed.
    const Failure& failure() const { return *failure_; }

  private:
    std::optional<Failure> failure_;
};

} // namespace velmarin
