#include "ScriptedWindow.h"

#include "text/NilObjectException.h"

#include <gtest/gtest.h>

#include <functional>
#include <map>

namespace velmarin::test {

PageOutcome ScriptedPage::showPage(const FolderItem& file, int shownFit) {
    fit = shownFit;
    stale = noPicture = false;
    if (!file.Exists())
        return {.shown = false, .anyPage = !page.empty(), .problem = "missing"};
    const bool shown = !broken.contains(file.Name());
    page = shown ? file.path().parent_path().parent_path().filename().string() + "/" + file.Name() : "";
    return {.shown = shown, .anyPage = shown, .problem = shown ? "" : "broken"};
}

void ScriptedPage::describePage(const std::string& dictionary, const std::string& text, const std::string& trouble) {
    title = dictionary + "/" + text;
    problem = trouble;
}

std::string ScriptedPage::joined(const std::vector<std::string>& texts) {
    std::string all;
    for (const std::string& text : texts)
        all += (all.empty() ? "" : ",") + text;
    return all;
}

ScriptedWindow::ScriptedWindow(ScriptedWindow* first)
    : model(host, busy, [this, first]() -> HitModel& { return first == nullptr ? model.hits : first->model.hits; }) {
    model.tabs.showIn(*this);
    model.hits.showIn(*this);
    model.search.showIn(*this);
}

bool ScriptedWindow::open(const GroupBuilder& group) {
    model.opener.read(FolderItem(group.writeTo(folder.path())));
    try {
        model.opener.mInitialize();
    } catch (const NilObjectException&) {
        return false;
    }
    return true;
}

void ScriptedWindow::act(const std::string& action) {
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
        {"fit",
         [&] {
             pages.at(static_cast<std::size_t>(tabs.front())).fitValue = row(); // as a menu does by itself
             tabs.BVimage_Action(tabs.front(), row());
         }},
        {"row", [&] { model.hits.LB_Change(row()); }},
        {"front", [&] { tabs.noteFront(row()); }},
        {"left", [&] { tabs.TabBackNext_Action(0); }},
        {"right", [&] { tabs.TabBackNext_Action(1); }},
        {"first", [&] { tabs.TabTopTail_Action(0); }},
        {"last", [&] { tabs.TabTopTail_Action(1); }},
    };
    verbs.at(action.substr(0, blank))();
}

std::string ScriptedWindow::state() const {
    const auto front = static_cast<std::size_t>(model.tabs.front());
    const ScriptedPage& shown = pages.at(front);
    const auto some = [](bool told, const std::string& text) { return told ? " " + text : std::string(); };
    const auto orNone = [](const std::string& text) { return text.empty() ? "-" : text; };
    const std::string dictionary = shown.page.substr(0, shown.page.find('/'));
    return orNone(shown.page) + " " + orNone(shown.name) + " " + std::to_string(shown.jumpValue) +
           some(shown.historyValue != 0 || !shown.history.empty(),
                std::to_string(shown.historyValue) + ":" + shown.history) +
           some(!shown.errata.empty(), "[" + shown.errata + "]") + some(shown.title != shown.page, shown.title) +
           some(!shown.page.empty() && captions[front] != dictionary, "tab " + captions[front]) +
           some(!shown.page.empty() && shown.fit != shown.fitValue, "fit " + std::to_string(shown.fit)) +
           some(shown.noPicture, "No Picture") + some(!shown.problem.empty(), shown.problem) +
           some(!shown.paging, "off") + some(shown.stale, "stale") +
           some(!info.empty(), "!" + info.substr(info.rfind(' ') + 1));
}

void ScriptedWindow::walk(const std::vector<Step>& steps) {
    for (const Step& step : steps) {
        act(step.action);
        EXPECT_EQ(state(), step.state) << step.action << ": " << step.reason;
    }
    EXPECT_EQ(host.messages, std::vector<std::string>{});
}

std::string ScriptedWindow::names() const {
    std::string all;
    for (const ScriptedPage& each : pages)
        all += (all.empty() ? "" : " ") + (each.name.empty() ? "-" : each.name);
    return all;
}

PageDisplay& ScriptedWindow::addTab(const std::string& caption) {
    captions.push_back(caption);
    return pages.emplace_back();
}

void ScriptedWindow::openErratum(const FolderItem& file, int frontTab) {
    const std::string path = file.path().lexically_relative(folder.path()).string();
    opened = (file.Exists() ? path : "no file") + " " + std::to_string(frontTab);
}

DictionaryBuilder fruit(const std::string& name) {
    DictionaryBuilder builder(name);
    return builder.entry("apple", "1").entry("banana", "2").entry("cherry", "3").entry("date", "4").entry("zzz", "5");
}

GroupBuilder fruits(const std::string& name, int count, const DictionaryBuilder& first) {
    GroupBuilder group(name);
    group.dictionary(first);
    for (int i = 1; i < count; ++i)
        group.dictionary(fruit(std::string(1, static_cast<char>('A' + i))));
    return group;
}

} // namespace velmarin::test
