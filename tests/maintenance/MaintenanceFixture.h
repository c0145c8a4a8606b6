#pragma once

#include "FakeWindows.h"
#include "maintenance/Maintenance.h"
#include "platform/Busy.h"
#include "platform/EventLoopPost.h"
#include "platform/ScriptedHost.h"
#include "support/TempFolder.h"

#include <QApplication>
#include <QTest>

#include <gtest/gtest.h>

namespace velmarin::test {

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

    TempFolder folder_;
    ScriptedHost host_;
    BusyState busy_{eventLoopPost()};
    FakeWindows windows_;
    Maintenance maintenance_{windows_, host_, busy_, FolderItem(folder_.at("Desktop"))};
};

} // namespace velmarin::test
