#pragma once

#include "platform/Busy.h"
#include "platform/ScriptedHost.h"
#include "search/WindowModel.h"
#include "support/DictionaryBuilder.h"
#include "support/TempFolder.h"
#include "text/NilObjectException.h"
#include "text/StringFields.h"

#include <gtest/gtest.h>

#include <deque>
#include <functional>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace velmarin::test {

/// What one tab was last told. As in SmartCanvas, a missing file leaves the page before it and a `broken` one clears
/// it.
struct ScriptedPage : PageDisplay {
    std::set<std::string> broken;
    std::string page, name, title, problem, history, errata, jumpRows;
    bool noPicture = false, paging = false, stale = false;
    int fit = -1, fitValue = -1, jumpValue = 0, historyValue = 0, scrolled = -1;

    void showEmptyTab() override { *this = ScriptedPage(); }
    PageOutcome showPage(const FolderItem& file, int shownFit) override {
        fit = shownFit;
        stale = noPicture = false;
        if (!file.Exists())
            return {.shown = false, .anyPage = !page.empty(), .problem = "missing"};
        const bool shown = !broken.contains(file.Name());
        page = shown ? file.path().parent_path().parent_path().filename().string() + "/" + file.Name() : "";
        return {.shown = shown, .anyPage = shown, .problem = shown ? "" : "broken"};
    }
    void showNoPicture() override { noPicture = true; }
    void dropPage() override { page = "", stale = true; }
    void fitPage(int shownFit) override { fit = shownFit, stale = true; }
    void refreshPage() override { stale = false; }
    void mJumpScroll_vertical(int direction) override { scrolled = direction; }
    void showPageName(const std::string& text) override { name = text; }
    void describePage(const std::string& dictionary, const std::string& text, const std::string& trouble) override {
        title = dictionary + "/" + text, problem = trouble;
    }
    void enablePaging(bool enabled) override { paging = enabled; }
    void showJumpRows(const std::vector<std::string>& rows) override { jumpRows = Join(rows, ","), jumpValue = 0; }
    void showJumpValue(int menuValue) override { jumpValue = menuValue; }
    void clearHistory() override { history = "", historyValue = 0; }
    void addHistoryRow(const std::string& text) override { history += text; }
    void showHistoryValue(int menuValue) override { historyValue = menuValue; }
    void showErrata(const std::vector<std::string>& names) override { errata = Join(names, ","); }
    void showFitValue(int menuValue) override { fitValue = menuValue; }
};

struct Step {
    std::string action, state;
    const char* reason = "";
};

/// A main window without widgets: its model, and displays that keep what they were told.
class ScriptedWindow : TabDisplay, HitDisplay, SearchDisplay {
  public:
    /// @param first the application's first window; this one if null
    explicit ScriptedWindow(ScriptedWindow* first = nullptr)
        : model(host, busy,
                [this, first]() -> HitModel& { return first == nullptr ? model.hits : first->model.hits; }) {
        model.tabs.showIn(*this);
        model.hits.showIn(*this);
        model.search.showIn(*this);
    }

    /// Writes and opens the group. False if a dictionary could not be read.
    bool open(const GroupBuilder& group) {
        model.opener.read(FolderItem(group.writeTo(folder.path())));
        try {
            model.opener.mInitialize();
        } catch (const NilObjectException&) {
            return false;
        }
        return true;
    }
    /// What a user does: a verb of the table and its object, such as "search WORD" or "jump ROW".
    void act(const std::string& action) {
        const std::size_t blank = action.find(' ');
        const std::string object = blank == std::string::npos ? "" : action.substr(blank + 1);
        PageTabs& tabs = model.tabs;
        const auto row = [&] { return std::stoi(object); };
        const std::map<std::string, std::function<void()>> verbs{
            {"search", [&] { model.search.search(object); }},
            {"next", [&] { tabs.mNextBack(1, tabs.front()); }},
            {"back", [&] { tabs.mNextBack(0, tabs.front()); }},
            {"jump", [&] { tabs.BVjump_Action(tabs.front(), row()); }},
            {"history", [&] { tabs.BVHistory_Action(tabs.front(), row()); }},
            {"older", [&] { tabs.ImageHistory_Action(0); }},
            {"newer", [&] { tabs.ImageHistory_Action(1); }},
            {"erratum", [&] { tabs.BVErrata_Action(tabs.front(), row()); }},
            {"fit", [&] { shown().fitValue = row(), tabs.BVimage_Action(tabs.front(), row()); }},
            {"row", [&] { model.hits.LB_Change(row()); }},
            {"front", [&] { tabs.noteFront(row()); }},
            {"left", [&] { tabs.TabBackNext_Action(0); }},
            {"right", [&] { tabs.TabBackNext_Action(1); }},
            {"first", [&] { tabs.TabTopTail_Action(0); }},
            {"last", [&] { tabs.TabTopTail_Action(1); }},
        };
        verbs.at(action.substr(0, blank))();
    }
    /// "DICTIONARY/PAGE LABEL JUMPVALUE HISTORYVALUE:PAGES [ERRATA]" of the tab in front, then what is unusual: another
    /// title, caption or fit than that of the page, a problem, a state, and the last word of the message below.
    std::string state() {
        const ScriptedPage& shown = this->shown();
        const std::string& caption = captions.at(static_cast<std::size_t>(model.tabs.front()));
        const auto some = [](bool told, const std::string& text) { return told ? " " + text : std::string(); };
        const bool otherTab = !shown.page.empty() && shown.page.substr(0, shown.page.find('/')) != caption;
        return orNone(shown.page) + " " + orNone(shown.name) + " " + std::to_string(shown.jumpValue) +
               some(shown.historyValue != 0 || !shown.history.empty(),
                    std::to_string(shown.historyValue) + ":" + shown.history) +
               some(!shown.errata.empty(), "[" + shown.errata + "]") + some(shown.title != shown.page, shown.title) +
               some(otherTab, "tab " + caption) +
               some(!shown.page.empty() && shown.fit != shown.fitValue, "fit " + std::to_string(shown.fit)) +
               some(shown.noPicture, "No Picture") + some(!shown.problem.empty(), shown.problem) +
               some(!shown.paging, "off") + some(shown.stale, "stale") +
               some(!info.empty(), "!" + info.substr(info.rfind(' ') + 1));
    }
    void walk(const std::vector<Step>& steps) {
        for (const Step& step : steps) {
            act(step.action);
            EXPECT_EQ(state(), step.state) << step.action << ": " << step.reason;
        }
        EXPECT_EQ(host.messages, std::vector<std::string>{});
    }
    ScriptedPage& shown() { return pages.at(static_cast<std::size_t>(model.tabs.front())); }
    /// The names of the pages of all tabs.
    std::string names() const {
        std::string all;
        for (const ScriptedPage& each : pages)
            all += (all.empty() ? "" : " ") + orNone(each.name);
        return all;
    }

    TempFolder folder;
    ScriptedHost host;
    BusyState busy{[](const BusyState::Action&) {}};
    WindowModel model;
    std::deque<ScriptedPage> pages;
    std::vector<std::string> captions, rows;
    int front = 0, selected = -1;
    std::string opened; ///< the erratum: the file, if it exists, and the tab in front
    bool listShown = false;
    std::string info, infoReason;
    std::vector<int> progress; ///< the maximum, each value, and -1 as the bar is hidden

  private:
    static std::string orNone(const std::string& text) { return text.empty() ? "-" : text; }
    PageDisplay& addTab(const std::string& caption) override {
        return captions.push_back(caption), pages.emplace_back();
    }
    void removeLaterTabs() override { pages.resize(1), captions.resize(1); }
    void setTabFailure(int, const std::string&) override {}
    void setTabCaption(int tab, const std::string& text) override { captions.at(static_cast<std::size_t>(tab)) = text; }
    void bringTabToFront(int tab) override { front = tab; }
    void openErratum(const FolderItem& file, int frontTab) override {
        const std::string path = file.path().lexically_relative(folder.path()).string();
        opened = (file.Exists() ? path : "no file") + " " + std::to_string(frontTab);
    }
    void showList() override { listShown = true; }
    void clearRows() override { rows.clear(), selected = -1; }
    void addRow(const std::string& text) override { rows.push_back(text); }
    void selectRow(int row) override { selected = row; }
    void showInfo(const std::string& text, const std::string& reason) override { info = text, infoReason = reason; }
    void showSeparately(bool) override {}
    void showProgress(int maximum) override { progress = {maximum}; }
    void setProgress(int value) override { progress.push_back(value); }
    void hideProgress() override { progress.push_back(-1); }
};

/// The entries apple, banana, cherry, date and a closing one, on the pages "1" to "5".
inline DictionaryBuilder fruit(const std::string& name) {
    DictionaryBuilder builder(name);
    return builder.entry("apple", "1").entry("banana", "2").entry("cherry", "3").entry("date", "4").entry("zzz", "5");
}
/// A group of `first` and of fruits "B", "C" and so on.
inline GroupBuilder fruits(const std::string& name, int count, const DictionaryBuilder& first = fruit("A")) {
    GroupBuilder group(name);
    group.dictionary(first);
    for (int i = 1; i < count; ++i)
        group.dictionary(fruit(std::string(1, static_cast<char>('A' + i))));
    return group;
}

} // namespace velmarin::test
