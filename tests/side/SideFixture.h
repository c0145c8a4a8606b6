#pragma once

#include "platform/Busy.h"
#include "platform/ScriptedHost.h"
#include "side/MainWindowPort.h"
#include "side/SideModel.h"
#include "side/UserDictionary.h"
#include "support/TempFolder.h"

#include <chrono>
#include <filesystem>
#include <string>
#include <utility>
#include <vector>

namespace velmarin::test {

/// A main window that records its calls.
class RecordedMainWindow : public MainWindowPort {
  public:
    QMainWindow* frame = nullptr;
    FolderItem group;
    std::vector<std::string> log;
    /// The files that could not be written.
    std::vector<std::string> notWritten;
    std::function<void()> onSearchAll;

    QMainWindow* window() override { return frame; }
    FolderItem pDictionaryGroupFolder() override { return group; }
    void setSearchText(std::string_view text) override { log.push_back("text " + std::string(text)); }
    void focusSearch(bool selectAll) override { log.emplace_back(selectAll ? "focus all" : "focus"); }
    void setOKBTDefault(bool isDefault) override { log.emplace_back(isDefault ? "default" : "no default"); }
    void searchAll(const std::string& word) override {
        log.push_back("search " + word);
        if (onSearchAll)
            onSearchAll();
    }
    void showProgress() override { log.emplace_back("bar"); }
    void setProgressMaximum(int maximum) override { log.push_back("max " + std::to_string(maximum)); }
    void setProgressValue(int value) override { log.push_back("value " + std::to_string(value)); }
    void showProgressFull() override { log.emplace_back("full"); }
    void hideProgress() override { log.emplace_back("no bar"); }
    void noteWritten(const std::string& path, const Result& result) override {
        if (!result)
            notWritten.push_back(path);
    }
};

/// A group on disk with one main window, and a dictionary service that knows "amor". WORDS is missing until
/// `installWords`.
class SideFixture {
  public:
    SideFixture() {
        main.group = FolderItem(groupFolder.path());
        dictd.write("lat.index", "amor\tA\tE\n");
        dictd.write("lat.dict", "love");
    }

    SideServices services() {
        return {.host = host,
                .busy = busy,
                .preferencesFolder = FolderItem(preferences.path()),
                .desktop = FolderItem(desktop.path()),
                .dictionaries = DictionaryService(FolderItem(dictd.path())),
                .wordsFolder = words.path().string() + "/",
                .clock = [this] { return now; }};
    }
    /// The program `words` as a shell script.
    void installWords(const std::string& script) const {
        std::filesystem::permissions(words.write("words", "#!/bin/sh\n" + script), std::filesystem::perms::owner_all);
    }
    /// A user dictionary of these lines in the group's folder.
    void addUserDictionary(const std::string& name, const std::string& source) const {
        const std::filesystem::path folder = groupFolder.at("UserDictionaries") / name;
        std::filesystem::create_directories(folder);
        SilentProgress progress;
        const TempFolder data;
        buildUserDictionary(FolderItem(data.write("source", source)), FolderItem(folder), progress,
                            EarlierPair::Refused);
    }
    /// Runs what waits in the event loop.
    void runPosted() {
        while (!posted.empty())
            for (const BusyState::Action& action : std::exchange(posted, {}))
                action();
    }

    TempFolder groupFolder;
    TempFolder preferences;
    TempFolder words;
    TempFolder dictd;
    TempFolder desktop;
    ScriptedHost host;
    std::vector<BusyState::Action> posted;
    BusyState busy{[this](BusyState::Action action) { posted.push_back(std::move(action)); }};
    RecordedMainWindow main;
    std::chrono::steady_clock::time_point now{};
};

/// The answer of the service for "amor".
inline constexpr const char* kAmorBlock = "\n✜✜✜✜✜✜✜✜ Dictionary.app ✜✜✜✜✜✜✜✜\n\nlat\n\nlove\n\n";

} // namespace velmarin::test
