#pragma once

#include "text/Message.h"

#include <string>
#include <vector>

namespace velmarin::test {

/// Collects the messages of MsgBox while it exists. For tests that link velmarin_text.
class CollectedMessages {
  public:
    CollectedMessages() : before_(setMessageHandler([this](std::string_view text) { texts.emplace_back(text); })) {}
    ~CollectedMessages() { setMessageHandler(std::move(before_)); }
    CollectedMessages(const CollectedMessages&) = delete;
    CollectedMessages& operator=(const CollectedMessages&) = delete;

    std::vector<std::string> texts;

  private:
    MessageHandler before_;
};

} // namespace velmarin::test
