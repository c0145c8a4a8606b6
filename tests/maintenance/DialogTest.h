#pragma once

#include "FakeWindows.h"
#include "maintenance/Maintenance.h"
#include "platform/Busy.h"
#include "platform/EventLoopPost.h"
#include "platform/ScriptedHost.h"
#include "support/TempFolder.h"

#include <QApplication>
#include <QPointer>
#include <QTest>

#include <gtest/gtest.h>

namespace velmarin::test {

/// A dictionary folder with nothing in it, a desktop, and the commands over them.
class DialogTest : public ::testing::Test {
  protected:
    DialogTest() {
        std::filesystem::create_directory(at("DF"));
        windows_.dictionaryFolder = FolderItem(at("DF"));
    }

    std::filesystem::path at(const std::filesystem::path& name) const { return folder_.path() / name; }

    /// The dialog of that name that is up; null where there is none.
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
    Maintenance maintenance_{windows_, host_, busy_, FolderItem(at("Desktop"))};
};

} // namespace velmarin::test
