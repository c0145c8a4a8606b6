#pragma once

#include <stdexcept>
#include <string>

namespace velmarin {

/// A required file or object is missing. Some operations catch it and show a text of their own; the event loop catches
/// the rest and shows `what()`.
class NilObjectException : public std::runtime_error {
  public:
    /// `what` tells the user what failed and for which file.
    explicit NilObjectException(const std::string& what) : std::runtime_error(what) {}
};

} // namespace velmarin
