#pragma once

#include <stdexcept>
#include <string>

namespace velmarin {

/// A file or an object that had to be there was not. The handlers that the system names catch it with texts of their
/// own; whatever is left reaches the event loop, which shows `what()`.
class NilObjectException : public std::runtime_error {
  public:
    /// `what` says what was being done and to which file, for a person to read.
    explicit NilObjectException(const std::string& what) : std::runtime_error(what) {}
};

} // namespace velmarin
