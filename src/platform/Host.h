#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace velmarin {

/// What the system asks of its host. One implementation over Qt, and a scripted one for tests.
class Host {
  public:
    virtual ~Host() = default;

    /// A modal message with an OK button. Text in UTF-8; line ends CR, LF or CR LF.
    virtual void MsgBox(std::string_view text) = 0;

    /// The same with details that the user may open.
    virtual void MsgBoxWithDetails(std::string_view text, std::string_view details) = 0;

    enum class Answer { Yes = 6, No = 7 };
    /// A modal question with the buttons Yes and No. Closing it means No.
    virtual Answer askYesNo(std::string_view text) = 0;

    /// The keys as they are at this moment, not as of some event.
    virtual bool AsyncShiftKey() = 0;
    virtual bool AsyncCommandKey() = 0;
    virtual bool AsyncOptionKey() = 0;

    enum class FolderChoice { Existing, MayBeNew };
    /// A folder chosen by the user; empty if the dialog was cancelled. The dialog opens at `openAt`, or where the last
    /// one was left. With `MayBeNew` the user may also name a folder that does not exist yet inside one that does, and
    /// the caller makes it.
    virtual std::filesystem::path SelectFolder(std::string_view prompt, const std::filesystem::path& openAt = {},
                                               FolderChoice choice = FolderChoice::Existing) = 0;
    /// A file chosen by the user among those with the given extensions (".txt", none: all); empty if cancelled.
    virtual std::filesystem::path GetOpenFile(std::string_view prompt, const std::vector<std::string>& extensions) = 0;

    /// Opens a file or folder in the host's own browser. False if the host could not.
    virtual bool Launch(const std::filesystem::path& item) = 0;

    /// Closes all boxes and dialogs as if dismissed. From then on none is shown: the texts of boxes go to standard
    /// error, and dialogs count as cancelled. After two seconds the process ends, whatever it waits for.
    virtual void endSoon() = 0;

    /// Lets waiting events run, at most every 30 ms: cheap enough to call in the innermost pass of a long loop.
    virtual void Yield() = 0;
};

} // namespace velmarin
