#pragma once

#include <string>

namespace velmarin {

/// What a running look-up offers its sources.
class LookUpPort {
  public:
    virtual ~LookUpPort() = default;

    /// Lets events run.
    virtual void yield() = 0;
    /// True once the side window is shut: its text must not be changed any more.
    virtual bool shut() const = 0;

    // A wait for another program. The user sees it if it takes long, and can end it.
    /// `program` is its name for the user.
    virtual void beginWait(const std::string& program) = 0;
    /// Lets events run. False once the wait is to end.
    virtual bool keepWaiting() = 0;
    virtual void endWait() = 0;
};

/// A source of the side window, such as the dictionary service. To add one, write a class in a file of its own and give
/// it a row in SourceTable.cpp.
class LookUpSource {
  public:
    virtual ~LookUpSource() = default;

    /// Writes the answer for `word`, which is not empty, into the text. The caller holds a Busy guard.
    virtual void lookUp(const std::string& word) = 0;
    /// Called when the user ticks the source's check box. Returns false if the source cannot be used, after telling the
    /// user: the box is then cleared. The caller holds no Busy guard.
    virtual bool tickedByUser() { return true; }
};

} // namespace velmarin
