#include "side/UserDictionaryMaker.h"

#include "files/SystemCalls.h"
#include "platform/Busy.h"
#include "platform/Host.h"
#include "side/MainWindowPort.h"
#include "side/ProgressPort.h"
#include "side/UserDictionary.h"
#include "store/FileType.h"
#include "text/NumberText.h"

namespace velmarin {

namespace {

constexpr std::string_view kAskForData = "Select a data file for a Dictionary. ";
constexpr std::string_view kAskForFolder = "Create a folder as new Dictionary.";
constexpr std::string_view kMade = "A user dictionary was ceated. Put the dictionary or its alias in the "
                                   "UserDictionary found in the DictionaryFolder.";

/// Shows a build in the main window. After a failure the message and the bar are removed.
class ShownInMainWindow : public ProgressPort {
  public:
    ShownInMainWindow(MainWindowPort& window, Host& host) : window_(window), host_(host) {}
    ~ShownInMainWindow() override {
        if (done_)
            return;
        window_.setSearchText("");
        window_.hideProgress();
    }
    ShownInMainWindow(const ShownInMainWindow&) = delete;
    ShownInMainWindow& operator=(const ShownInMainWindow&) = delete;

    void message(std::string_view text) override { window_.setSearchText(text); }
    void showBar() override { window_.showProgress(); }
    void setMaximum(int maximum) override { window_.setProgressMaximum(maximum); }
    void setValue(int value) override { window_.setProgressValue(value); }
    void yield() override { host_.Yield(); }
    void done() {
        done_ = true;
        window_.showProgressFull();
    }

  private:
    MainWindowPort& window_;
    Host& host_;
    bool done_ = false;
};

std::string notUtf8Message(std::int64_t lines) {
    if (lines == 1)
        return "1 line of the data is not in UTF-8. It was copied byte for byte, but some of its letters cannot be "
               "shown.";
    return Str(lines) + " lines of the data are not in UTF-8. They were copied byte for byte, but some of their "
                        "letters cannot be shown.";
}

/// A new folder is removed again if the build fails.
BuildResult build(const FolderItem& source, const FolderItem& folder, bool isNew, ProgressPort& progress,
                  const FolderItem& desktop) {
    const BuildResult result = buildUserDictionary(source, folder, progress, EarlierPair::Saved, desktop);
    std::error_code ignored;
    if (!result.ok && isNew)
        std::filesystem::remove(folder.path(), ignored);
    return result;
}

} // namespace

void makeUserDictionaryByDialog(const FolderItem& groupFolder, MainWindowPort& mainWindow, Host& host, BusyState& busy,
                                const FolderItem& desktop) {
    const FolderItem dictionaries = groupFolder.Child(kUserDictionariesFolder);
    if (!dictionaries.Exists() && !dictionaries.CreateAsFolder())
        host.MsgBox("The folder " + dictionaries.path().native() + " could not be made: " + errorInWords(errno));
    host.MsgBox(kAskForData);
    const std::filesystem::path source = host.GetOpenFile(kAskForData, pText.extensions);
    if (source.empty())
        return;
    host.MsgBox(kAskForFolder);
    const std::filesystem::path chosen =
        host.SelectFolder(kAskForFolder, dictionaries.path(), Host::FolderChoice::MayBeNew);
    if (chosen.empty())
        return;
    const FolderItem folder(chosen);
    const bool isNew = !folder.Exists();
    if (isNew && !folder.CreateAsFolder()) {
        host.MsgBox("The folder " + chosen.native() + " could not be made: " + errorInWords(errno));
        return;
    }

    BuildResult result;
    {
        const Busy guard(busy);
        ShownInMainWindow progress(mainWindow, host);
        result = build(FolderItem(source), folder, isNew, progress, desktop);
        if (result.ok)
            progress.done();
    }
    if (!result.ok) {
        host.MsgBox(result.reason);
        return;
    }
    if (result.linesNotUtf8 > 0)
        host.MsgBox(notUtf8Message(result.linesNotUtf8));
    host.MsgBox(kMade);
    if (!host.Launch(groupFolder.path()))
        host.MsgBox("The folder could not be opened: " + groupFolder.path().native());
}

} // namespace velmarin
