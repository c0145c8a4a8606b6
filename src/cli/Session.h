#pragma once

#include "cli/Output.h"
#include "text/Message.h"

#include <string>
#include <string_view>
#include <unordered_set>

namespace velmarin {

/// One run of the command line: where its records go, and what went wrong on the way. While it lives, the messages of
/// the core are complaints of this run.
class Session {
  public:
    explicit Session(Output& out);
    ~Session();
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    Output& out() { return out_; }

    /// What the core's messages are about from now on: they do not name it themselves.
    void setSubject(std::string subject) { subject_ = std::move(subject); }

    /// Tells what could not be done. The run goes on, and ends with Status::CouldNot. The same is told only once.
    void couldNot(std::string_view what);

    /// The status of a run that would otherwise end with `status`.
    Status status(Status status) const { return told_.empty() ? status : Status::CouldNot; }

  private:
    Output& out_;
    std::string subject_;
    std::unordered_set<std::string> told_;
    MessageHandler handlerBefore_;
};

} // namespace velmarin
