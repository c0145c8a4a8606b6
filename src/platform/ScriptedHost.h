#pragma once

#include "platform/Host.h"

#include <deque>

namespace velmarin {

/// A key that a test holds down. `next` are the answers to the reads to come, one each; after them `held` is the
/// answer.
struct ScriptedKey {
    bool held = false;
    std::deque<bool> next;
};

/// A host without a screen, for tests: what it is asked it answers from a script, what it is shown it keeps.
class ScriptedHost : public Host {
  public:
    ScriptedKey shift, command, option;
    /// Answers to the questions and dialogs to come. A question beyond the script is answered No, a dialog is
    /// cancelled.
    std::deque<Answer> answers;
    std::deque<std::filesystem::path> folders;
    std::deque<std::filesystem::path> files;
    bool launches = true; ///< what `Launch` answers
    /// Runs inside every `Yield`, as an event handler would; a `Yield` from within it only counts.
    std::function<void()> onYield;

    std::vector<std::string> messages;
    std::vector<std::string> details; ///< of the messages that have them
    std::vector<std::string> questions;
    std::vector<std::string> prompts;            ///< of both kinds of dialogs
    std::vector<std::filesystem::path> openedAt; ///< of the folder dialogs
    std::vector<FolderChoice> folderChoices;     ///< of the folder dialogs
    std::vector<std::vector<std::string>> askedExtensions;
    std::vector<std::filesystem::path> launched;
    int yields = 0;

    void MsgBox(std::string_view text) override;
    void MsgBoxWithDetails(std::string_view text, std::string_view moreText) override;
    Answer askYesNo(std::string_view text) override;
    bool AsyncShiftKey() override;
    bool AsyncCommandKey() override;
    bool AsyncOptionKey() override;
    std::filesystem::path SelectFolder(std::string_view prompt, const std::filesystem::path& openAt = {},
                                       FolderChoice choice = FolderChoice::Existing) override;
    std::filesystem::path GetOpenFile(std::string_view prompt, const std::vector<std::string>& extensions) override;
    bool Launch(const std::filesystem::path& item) override;
    void endSoon() override {}
    void Yield() override;

  private:
    bool yielding_ = false;
};

} // namespace velmarin
