#pragma once

#include "cli/Output.h"
#include "files/Result.h"
#include "text/Message.h"

#include <string>
#include <string_view>
#include <unordered_set>

namespace velmarin {

/// One run of the command line: its output and its failures. While it exists, messages of the core are failures of this
/// run.
class Session {
  public:
    explicit Session(Output& out);
    ~Session();
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    Output& out() { return out_; }

    /// Sets the subject that precedes the core's messages, which do not name it.
    void setSubject(std::string subject) { subject_ = std::move(subject); }

    /// Reports a failure. The run continues and ends with Status::CouldNot. Each message is written once.
    void couldNot(std::string_view what);
    void couldNot(const Failure& failure);

    /// `status`, or Status::CouldNot after a failure.
    Status status(Status status) const { return reported_.empty() ? status : Status::CouldNot; }

  private:
    Output& out_;
    std::string subject_;
    std::unordered_set<std::string> reported_;
    MessageHandler handlerBefore_;
};

} // namespace velmarin
