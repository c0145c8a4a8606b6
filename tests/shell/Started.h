#pragma once

#include "controls/BevelButton.h"
#include "platform/QtText.h"
#include "controls/TabPanel.h"
#include "platform/ScriptedHost.h"
#include "shell/App.h"
#include "shell/MainWindow.h"
#include "support/DictionaryBuilder.h"
#include "support/TempFolder.h"
#include "view/SmartCanvas.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QTest>

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace velmarin::test {

/// The program in a folder of its own, with a scripted host, driven by the events that a user makes.
class Started {
  public:
    /// Builds the groups, calls `before` and starts.
    explicit Started(const std::vector<GroupBuilder>& groups = {},
                     const std::function<void(const TempFolder&)>& before = {});
    ~Started();
    Started(const Started&) = delete;
    Started& operator=(const Started&) = delete;

    std::filesystem::path groupFolder(const std::string& name) const {
        return files.path() / "DictionaryFolder" / name;
    }
    App& app() { return *app_; }
    MainWindow& window(int index = 0) { return *app_->windows().MainWinList().at(static_cast<std::size_t>(index)); }

    /// A control by the name that it has in the layout.
    template <class Widget> Widget& control(const char* name, int window = 0) {
        auto* found = this->window(window).findChild<Widget*>(QString::fromLatin1(name));
        if (found == nullptr)
            throw std::runtime_error(std::string("no control is called ") + name);
        return *found;
    }
    BevelButton& button(const char* name) { return control<BevelButton>(name); }
    QLabel& label(const char* name) { return control<QLabel>(name); }
    QLineEdit& field(int window = 0) { return control<QLineEdit>("SearchEF", window); }
    TabPanel& tabs() { return control<TabPanel>("TB"); }
    SmartCanvas& canvas() { return control<SmartCanvas>("MainCanvas.0"); }
    /// The name of the page image that a tab says it shows.
    std::string imageName(int tab = 0);

    void pick(const std::string& group, int window = 0);
    /// Types a word into the search field and presses Return.
    void search(const std::string& word, int window = 0);
    /// Presses a key in the search field of the first window, which comes to the front.
    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    /// Chooses a row of a menu button.
    void choose(const char* button, int row, int window = 0);
    void click(const char* button);

    TempFolder files;
    ScriptedHost host;

  private:
    std::unique_ptr<App> app_;
};

DictionaryBuilder fruit(const std::string& name);
/// A group of dictionaries "A", "B", ... each with the entries apple, banana, cherry, date and a closing one, on pages
/// "1.bmp" to "5.bmp".
GroupBuilder fruitGroup(const std::string& name, int dictionaries);

/// The window of that class that is open; null if there is none.
template <class Window> Window* openWindow() {
    for (QWidget* widget : QApplication::topLevelWidgets())
        if (auto* found = qobject_cast<Window*>(widget); found != nullptr && found->isVisible())
            return found;
    return nullptr;
}

} // namespace velmarin::test
