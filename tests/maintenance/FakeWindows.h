#pragma once

#include "maintenance/WindowsPort.h"

#include <functional>
#include <string>
#include <vector>

namespace velmarin::test {

/// Main windows that record their calls in order.
class FakeWindows : public WindowsPort {
  public:
    FolderItem dictionaryFolder;
    int windows = 2;
    std::vector<std::string> names;
    std::string groupName;
    bool anyGroup = true;

    std::vector<std::string> calls;
    std::vector<std::string> newDicPref;

    /// Runs when a group is read.
    std::function<void()> onRead;

    FolderItem pDictionaryFolder() const override { return dictionaryFolder; }
    QWidget* frontWindow() const override { return nullptr; }
    void prepare(QWidget* /*window*/) override {}
    int windowCount() const override { return windows; }
    void resetToNoGroup(int window) override { calls.push_back("reset " + std::to_string(window)); }
    std::vector<std::string> dictionaryNames(int /*window*/) const override { return names; }
    std::string pDicGroupName(int /*window*/) const override { return groupName; }
    void setNewDicPref(std::vector<std::string> lines) override {
        calls.emplace_back("pNewDicPref");
        newDicPref = std::move(lines);
    }
    bool hasGroup(int /*window*/) const override { return anyGroup; }
    void writeOrderAndPick(int window, const FolderItem& group) override {
        calls.push_back("write and pick " + std::to_string(window) + " " + group.path().native());
    }
    void closePageImageWindow() override { calls.emplace_back("close page image window"); }
    void mWritePreferences_DicGroup(int window) override { calls.push_back("write " + std::to_string(window)); }
    void ReadDictionaryFolder(int window, const FolderItem& group) override {
        calls.push_back("read " + std::to_string(window) + " " + group.path().native());
        if (onRead)
            onRead();
    }
    void readyForSearch(int window) override { calls.push_back("ready " + std::to_string(window)); }
};

} // namespace velmarin::test
