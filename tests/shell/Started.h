#pragma once

#include "platform/ScriptedHost.h"
#include "search/ControlSet.h"
#include "shell/App.h"
#include "shell/MainWindow.h"
#include "support/DictionaryBuilder.h"
#include "support/TempFolder.h"

#include <QString>

#include <initializer_list>
#include <memory>
#include <string>
#include <vector>

namespace velmarin::test {

/// The program in a folder of its own, with a scripted host: groups are built first, then it is started, then driven
/// by the events that a user makes.
class Started {
  public:
    Started();
    /// Builds these groups and starts.
    explicit Started(std::initializer_list<GroupBuilder> groups);
    ~Started();
    Started(const Started&) = delete;
    Started& operator=(const Started&) = delete;

    Started& group(const GroupBuilder& builder);
    std::filesystem::path folder() const { return folder_.path(); }
    std::filesystem::path groupFolder(const std::string& name) const;
    std::string read(const std::filesystem::path& name) const { return folder_.read(name); }
    TempFolder& files() { return folder_; }

    Started& start();
    /// Ends the run as the menu does, and drops the application.
    void quit();

    App& app() { return *app_; }
    MainWindow& window(int index = 0);
    ScriptedHost host;

    /// A control by the name that it has in the layout.
    template <class Widget> Widget* control(const char* name, int window = 0) {
        auto* found = this->window(window).findChild<Widget*>(QString::fromLatin1(name));
        if (found == nullptr)
            throw std::runtime_error(std::string("no control is called ") + name);
        return found;
    }

    /// Picks a group as a user does.
    void pick(const std::string& name, int window = 0);
    /// Types a word into the search field and presses Return.
    void search(const std::string& word, int window = 0);
    /// Presses a key with modifiers in the window in front.
    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier, int window = 0);

    /// The name of the page image that tab `index` says it shows.
    std::string imageName(int index, int window = 0);
    /// Chooses a row of a menu button as a user does.
    void choose(const char* button, int row, int window = 0);
    void click(const char* button, int window = 0);

  private:
    TempFolder folder_;
    std::unique_ptr<App> app_;
};

/// A group of dictionaries "A", "B", ... each with the entries apple, banana, cherry, date and a closing one, on pages
/// "1.bmp" to "5.bmp".
GroupBuilder fruitGroup(const std::string& name, int dictionaries);
DictionaryBuilder fruit(const std::string& name);

} // namespace velmarin::test
