#pragma once

#include "platform/Busy.h"
#include "platform/ScriptedHost.h"
#include "search/WindowModel.h"
#include "support/DictionaryBuilder.h"
#include "support/TempFolder.h"

#include <deque>
#include <set>
#include <string>
#include <vector>

namespace velmarin::test {

/// What the page controls of one tab were last told. A page can be shown if its file exists and is not `broken`; a
/// missing file leaves the page before it, a broken one clears the page, as SmartCanvas does.
struct ScriptedPage : PageDisplay {
    std::set<std::string> broken;
    std::string page, name, title, problem, history, errata, jumpRows;
    bool noPicture = false, paging = false, stale = false;
    int fit = -1, fitValue = -1, jumpValue = 0, historyValue = 0, scrolled = -1;

    void showEmptyTab() override { *this = ScriptedPage(); }
    PageOutcome showPage(const FolderItem& file, int shownFit) override;
    void showNoPicture() override { noPicture = true; }
    void dropPage() override { page = "", stale = true; }
    void fitPage(int shownFit) override { fit = shownFit, stale = true; }
    void refreshPage() override { stale = false; }
    void mJumpScroll_vertical(int direction) override { scrolled = direction; }
    void showPageName(const std::string& text) override { name = text; }
    void describePage(const std::string& dictionary, const std::string& text, const std::string& trouble) override;
    void enablePaging(bool enabled) override { paging = enabled; }
    void showJumpRows(const std::vector<std::string>& rows) override { jumpRows = joined(rows), jumpValue = 0; }
    void showJumpValue(int menuValue) override { jumpValue = menuValue; }
    void clearHistory() override { history = "", historyValue = 0; }
    void addHistoryRow(const std::string& text) override { history += text; }
    void showHistoryValue(int menuValue) override { historyValue = menuValue; }
    void showErrata(const std::vector<std::string>& names) override { errata = joined(names); }
    void showFitValue(int menuValue) override { fitValue = menuValue; }

    static std::string joined(const std::vector<std::string>& texts);
};

/// An action as ScriptedWindow::act takes it, and the state after it.
struct Step {
    std::string action;
    std::string state;
    const char* reason = "";
};

/// A main window without widgets: its model, and displays that keep what they were told.
class ScriptedWindow : TabDisplay, HitDisplay, SearchDisplay {
  public:
    /// @param first the application's first window; this one if null
    explicit ScriptedWindow(ScriptedWindow* first = nullptr);

    /// Writes the group and opens it. False if it is told that a dictionary could not be read.
    bool open(const GroupBuilder& group);
    /// What a user does in the tab in front: "search WORD", "next", "back", "jump ROW", "history ROW", "older",
    /// "newer", "erratum ROW", "fit ROW"; "row ROW" in the hit list; "front TAB", "left", "right", "first", "last"
    /// among the tabs.
    void act(const std::string& action);
    /// The page in front as "DICTIONARY/PAGE", its name in the label and the jump value, with "-" for none; the history
    /// as "VALUE:PAGES" and the [errata], unless empty; and what is unusual: another title, caption or fit than that of
    /// the page, "No Picture", a problem, controls that are "off", a "stale" display, and the last word of the message
    /// below.
    std::string state() const;
    /// Does one action after the other, and compares the states.
    void walk(const std::vector<Step>& steps);
    /// The names of the pages of all tabs, with blanks between them; "-" if there is none.
    std::string names() const;

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
    PageDisplay& addTab(const std::string& caption) override;
    void removeLaterTabs() override { pages.resize(1), captions.resize(1); }
    void setTabCaption(int tab, const std::string& text) override { captions.at(static_cast<std::size_t>(tab)) = text; }
    void bringTabToFront(int tab) override { front = tab; }
    void openErratum(const FolderItem& file, int frontTab) override;
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
DictionaryBuilder fruit(const std::string& name);
/// A group of `first` and of fruits "B", "C" and so on.
GroupBuilder fruits(const std::string& name, int count, const DictionaryBuilder& first = fruit("A"));

} // namespace velmarin::test
