#pragma once

#include "platform/Busy.h"
#include "platform/ScriptedHost.h"
#include "side/AnswerText.h"
#include "side/MainWindowPort.h"
#include "side/SideDisplay.h"
#include "side/SideModel.h"
#include "side/UserDictionary.h"
#include "support/TempFolder.h"
#include "text/FindReplace.h"

#include <chrono>
#include <filesystem>
#include <optional>
#include <string>
#include <tuple>
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
                            ExistingDictionary::Refuse);
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

/// A text without a widget, whose positions count bytes.
class RecordedText : public AnswerText {
  public:
    std::string text;
    int start = 0, length = 0;
    TextColor color{};
    double size = 12.7;
    bool bold = false;
    /// Each insertion with its style.
    std::vector<std::tuple<TextColor, double, bool, std::string>> inserted;
    std::vector<int> scrolledTo;

    int textLength() const override { return static_cast<int>(text.size()); }
    void clearText() override { text.clear(), select(0, 0); }
    void assignWithAppended(std::string_view more) override {
        text += more;
        select(textLength(), 0);
    }
    std::optional<TextHit> findWord(int from, std::string_view word) const override {
        const std::size_t at = InStr(static_cast<std::size_t>(std::max(from, 1)), text, word);
        return word.empty() || at == 0 ? std::nullopt
                                       : std::optional(TextHit{static_cast<int>(at), static_cast<int>(word.size())});
    }
    void select(int from, int count) override { start = from, length = count; }
    void setSelText(std::string_view more) override {
        text.replace(static_cast<std::size_t>(start), static_cast<std::size_t>(length), more);
        start += static_cast<int>(more.size());
        length = 0;
        inserted.push_back({color, size, bold, std::string(more)});
    }
    void setSelTextColor(TextColor given) override { color = given; }
    void clearSelTextColor() override { color = {}; }
    double SelTextSize() const override { return size; }
    void setSelTextSize(double points) override { size = points; }
    void setSelBold(bool given) override { bold = given; }
    void scrollToLineOf(int position) override { scrolledTo.push_back(position); }
};

/// Records what it is told.
class RecordedDisplay : public SideDisplay {
  public:
    std::optional<SubwindowSettings> settings;
    bool textStyleApplied = false;
    std::vector<FindTarget> targets;
    std::string word;
    bool missed = false;
    TextColor hitColor;
    std::vector<std::string> userDictionaries;
    int userDictionary = -1;
    std::vector<bool> sourcesOn = SubwindowSettings().sourcesOn;
    bool waits = false;
    int released = 0;

    void showSettings(const SubwindowSettings& shown) override { settings = shown; }
    void applyTextStyle() override { textStyleApplied = true; }
    void showSource(std::size_t row, bool isOn) override { sourcesOn[row] = isOn; }
    void showTarget(FindTarget target) override { targets.push_back(target); }
    void showWord(const std::string& shown) override { word = shown; }
    void showMiss(bool miss) override { missed = miss; }
    void showHitColor(TextColor color) override { hitColor = color; }
    void clearUserDictionaries() override { userDictionaries.clear(); }
    void addUserDictionary(const std::string& name) override { userDictionaries.push_back(name); }
    void chooseUserDictionary(int row) override { userDictionary = row; }
    void showWait(const std::string&) override { waits = true; }
    void hideWait() override { waits = false; }
    void release() override { ++released; }
};

/// The rows of the source table.
enum Source : std::size_t { Service, Latin, User };

/// A model with its settings read.
class ModelFixture : public SideFixture {
  public:
    SideModel& open() {
        model.emplace(display, text, main, services());
        model->open();
        return *model;
    }
    /// A model whose Return key looks words up in these sources, by their first letters.
    SideModel& openForLookUp(std::string_view sources = "S") {
        SubwindowSettings settings;
        settings.target = FindTarget::LookUp;
        for (const Source source : {Service, Latin, User})
            settings.sourcesOn[source] = sources.find("SLU"[source]) != std::string_view::npos;
        settings.userDicRow = 0;
        groupFolder.write("Subwindow", subwindowText(settings));
        return open();
    }
    /// Types the word and presses Return.
    void ask(const std::string& word) {
        model->FindEF_TextChange(word);
        model->FindBV_Action();
    }

    RecordedText text;
    RecordedDisplay display;
    std::optional<SideModel> model;
};

} // namespace velmarin::test
