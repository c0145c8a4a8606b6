#pragma once

#include "controls/PopupMenu.h"
#include "controls/TextStyleBevelButton.h"
#include "platform/Busy.h"
#include "platform/ScriptedHost.h"
#include "side/MainWindowPort.h"
#include "side/SubWindow.h"
#include "side/TextArea.h"
#include "support/TempFolder.h"

#include <QMainWindow>

#include <gtest/gtest.h>

#include <chrono>
#include <string>
#include <vector>

namespace velmarin::test {

/// A main window that records its calls.
class RecordedMainWindow : public MainWindowPort {
  public:
    RecordedMainWindow() { frame.setGeometry(100, 100, 838, 809); }

    QMainWindow frame;
    FolderItem group;
    std::vector<std::string> log;
    /// The files that could not be written.
    std::vector<std::string> notWritten;
    std::function<void()> onSearchAll;

    QMainWindow* window() override { return &frame; }
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

/// A group on disk with one main window, a dictionary service that knows "amor", and what side windows need.
/// WORDS is missing until `installWords`.
class SideFixture {
  public:
    SideFixture();
    ~SideFixture();

    SubWindow& open(Hanging hanging = Hanging::Window);
    SubWindow& side() { return *side_; }
    /// Opens a window whose Return key looks words up.
    SubWindow& openForLookUp();
    /// Shuts the window and opens another one.
    SubWindow& reopen();

    /// The program `words` as a shell script.
    void installWords(const std::string& script) const;
    /// A user dictionary of these lines in the group's folder of them.
    void addUserDictionary(const std::string& name, const std::string& source) const;
    /// Picks a user dictionary by the row, as a user does.
    void useUserDictionary(int row);

    template <typename Control> Control& control(const char* name) {
        auto* found = side_->findChild<Control*>(QLatin1String(name));
        if (found == nullptr)
            throw std::runtime_error(std::string("there is no ") + name);
        return *found;
    }
    QLineEdit& FindEF() { return *side_->findBar().FindEF(); }
    TextArea& EF() { return *side_->EF(); }
    std::string text();
    /// Types the word in the place of what is there, and presses Return.
    void ask(const QString& word);

    /// Runs what was put off, as the event loop would.
    void runPosted();

    TempFolder groupFolder;
    TempFolder preferences;
    TempFolder words;
    TempFolder dictd;
    ScriptedHost host;
    std::vector<BusyState::Action> posted;
    BusyState busy{[this](BusyState::Action action) { posted.push_back(std::move(action)); }};
    RecordedMainWindow main;
    std::chrono::steady_clock::time_point now{};
    QColor nextColour;

  private:
    QPointer<SubWindow> side_;
};

/// A test with a fixture of its own.
class SideTest : public testing::Test, public SideFixture {};

/// The block that the service's answer for "amor" gives.
extern const char* const kAmorBlock;

} // namespace velmarin::test
