#pragma once

#include "SideFixture.h"
#include "controls/PopupMenu.h"
#include "controls/TextStyleBevelButton.h"
#include "side/SubWindow.h"
#include "side/TextArea.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QMainWindow>
#include <QPointer>

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

namespace velmarin::test {

/// A side window at a main window.
class WindowFixture : public SideFixture {
  public:
    WindowFixture();
    ~WindowFixture();

    SubWindow& open(Attachment attachment = Attachment::Window);
    SubWindow& side() { return *side_; }
    /// Shuts the window and opens another one.
    SubWindow& reopen();

    template <typename Control> Control& control(const char* name) {
        auto* found = side_->findChild<Control*>(QLatin1String(name));
        if (found == nullptr)
            throw std::runtime_error(std::string("there is no ") + name);
        return *found;
    }
    QLineEdit& FindEF() { return *side_->findBar().FindEF(); }
    TextArea& EF() { return *side_->EF(); }
    /// Types the word in the place of what is there, and presses Return.
    void ask(const QString& word);

    QMainWindow frame;
    QColor nextColor;

  private:
    QPointer<SubWindow> side_;
};

/// A test with a fixture of its own.
class WindowTest : public testing::Test, public WindowFixture {};

} // namespace velmarin::test
