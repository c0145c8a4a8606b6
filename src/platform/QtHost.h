#pragma once

#include "platform/Host.h"

#include <chrono>
#include <functional>

namespace velmarin {

/// The host as a desktop under Qt. Boxes and dialogs belong to the active window and are modal; Command is Ctrl, Option
/// is Alt. Needs a QApplication.
class QtHost : public Host {
  public:
    using Clock = std::function<std::chrono::steady_clock::time_point()>;

    /// `clock` says when `Yield` last pumped; tests hand in one of their own.
    explicit QtHost(Clock clock = std::chrono::steady_clock::now);

    /// A text of more than some dozen lines is shown in part, with the whole of it one click away.
    void MsgBox(std::string_view text) override;
    void MsgBoxWithDetails(std::string_view text, std::string_view details) override;
    Answer askYesNo(std::string_view text) override;

    bool AsyncShiftKey() override;
    bool AsyncCommandKey() override;
    bool AsyncOptionKey() override;

    std::filesystem::path SelectFolder(std::string_view prompt, const std::filesystem::path& openAt = {},
                                       FolderChoice choice = FolderChoice::Existing) override;
    std::filesystem::path GetOpenFile(std::string_view prompt, const std::vector<std::string>& extensions) override;

    /// Also false if `item` does not exist, whatever the desktop does with that.
    bool Launch(const std::filesystem::path& item) override;

    void endSoon() override;

    /// Pumps at most every 30 ms. A call from inside a pump (by a handler that runs a loop of its own) does nothing.
    void Yield() override;

  private:
    Clock clock_;
    std::chrono::steady_clock::time_point lastPump_{};
    bool pumping_ = false;
    bool ending_ = false;
    std::filesystem::path lastFolder_;
};

/// The host of a run that nobody watches: what would be a box is a line on standard error, and the answer is No.
class UnwatchedHost : public QtHost {
  public:
    void MsgBox(std::string_view text) override;
    void MsgBoxWithDetails(std::string_view text, std::string_view details) override;
    Answer askYesNo(std::string_view text) override;
};

/// Whether the environment names a display, or a Qt platform that needs none. Needs no QApplication, which would end
/// the process without one.
bool hasDisplay();

} // namespace velmarin
