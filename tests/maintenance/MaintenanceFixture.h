#pragma once

#include "maintenance/Maintenance.h"
#include "maintenance/WindowsPort.h"
#include "platform/Busy.h"
#include "platform/EventLoopPost.h"
#include "platform/ScriptedHost.h"
#include "support/TempFolder.h"

#include <QApplication>
#include <QTest>

#include <gtest/gtest.h>

namespace velmarin::test {

using Texts = std::vector<std::string>;

/// Main windows that record their calls in order.
class FakeWindows : public WindowsPort {
  public:
    FolderItem dictionaryFolder;
    Texts names;
    std::string groupName;
    bool anyGroup = true;
    Texts calls, newDicPref;
    std::function<void()> onRead = [] {};

    FolderItem pDictionaryFolder() const override { return dictionaryFolder; }
    QWidget* frontWindow() const override { return nullptr; }
    void prepare(QWidget* /*window*/) override {}
    int windowCount() const override { return 2; }
    void resetToNoGroup(int window) override { record("reset", window); }
    Texts dictionaryNames(int /*window*/) const override { return names; }
    std::string pDicGroupName(int /*window*/) const override { return groupName; }
    void setNewDicPref(Texts lines) override { newDicPref = std::move(lines); }
    bool hasGroup(int /*window*/) const override { return anyGroup; }
    void writeOrderAndPick(int window, const FolderItem& group) override {
        record("write and pick " + std::to_string(newDicPref.size()) + " lines", window, group.path());
    }
    void closePageImageWindow() override { calls.emplace_back("close page image window"); }
    void mWritePreferences_DicGroup(int window) override {
        record("write " + std::to_string(newDicPref.size()) + " lines", window);
    }
    void ReadDictionaryFolder(int window, const FolderItem& group) override {
        record("read", window, group.path());
        onRead();
    }
    void readyForSearch(int window) override { record("ready", window); }

  private:
    void record(const std::string& call, int window, const std::filesystem::path& group = {}) {
        calls.push_back(call + " " + std::to_string(window) + group.native());
    }
};

/// The maintenance commands over an empty dictionary folder "DF", with backups in "Desktop".
class MaintenanceFixture : public ::testing::Test {
  protected:
    MaintenanceFixture() {
        std::filesystem::create_directory(folder_.at("DF"));
        windows_.dictionaryFolder = FolderItem(folder_.at("DF"));
    }

    /// The visible dialog with that name, or null.
    static QWidget* shown(const char* name) {
        for (QWidget* each : QApplication::topLevelWidgets()) {
            if (each->objectName() == QLatin1String(name) && each->isVisible())
                return each;
        }
        return nullptr;
    }
    template <class Control> static Control* control(const char* dialog, const char* name) {
        QWidget* window = shown(dialog);
        return window == nullptr ? nullptr : window->findChild<Control*>(QLatin1String(name));
    }
    static void click(QWidget* button) { QTest::mouseClick(button, Qt::LeftButton); }
    void expectNamed(const std::string& message, const Texts& items) const {
        for (const std::string& item : items)
            EXPECT_NE(message.find(folder_.at(item).native()), std::string::npos) << item;
    }

    TempFolder folder_;
    ScriptedHost host_;
    BusyState busy_{eventLoopPost()};
    FakeWindows windows_;
    Maintenance maintenance_{windows_, host_, busy_, FolderItem(folder_.at("Desktop"))};
};

} // namespace velmarin::test
