#include "Started.h"

#include "controls/BevelButton.h"
#include "controls/MenuPopup.h"
#include "controls/PopupMenu.h"
#include "platform/QtText.h"
#include "shell/GroupPicker.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QTest>

#include <gtest/gtest.h>

namespace velmarin::test {

Started::Started() {
    std::filesystem::create_directories(folder_.path() / "DictionaryFolder");
}

Started::Started(std::initializer_list<GroupBuilder> groups) : Started() {
    for (const GroupBuilder& each : groups)
        group(each);
    start();
}

Started::~Started() {
    for (QWidget* widget : QApplication::topLevelWidgets())
        widget->close();
    app_.reset();
    // Windows that destroy themselves later do so now: no event loop comes after a test.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

Started& Started::group(const GroupBuilder& builder) {
    builder.writeTo(folder_.path() / "DictionaryFolder");
    return *this;
}

std::filesystem::path Started::groupFolder(const std::string& name) const {
    return folder_.path() / "DictionaryFolder" / name;
}

Started& Started::start() {
    qputenv("XDG_CONFIG_HOME", toQ((folder_.path() / "config").string()).toUtf8());
    app_ = std::make_unique<App>(host, FolderItem(folder_.path()), "1.0");
    app_->Event_Open();
    QApplication::processEvents();
    return *this;
}

void Started::quit() {
    for (const auto& window : app_->windows().MainWinList())
        window->close();
    app_.reset();
}

MainWindow& Started::window(int index) {
    return *app_->windows().MainWinList().at(static_cast<std::size_t>(index));
}

void Started::pick(const std::string& name, int window) {
    auto* menu = control<PopupMenu>("SelectDicFolPU", window);
    emit menu->aboutToChoose();
    for (int row = 0; row < menu->rowCount(); ++row)
        if (menu->List(row) == name)
            menu->setListIndex(row);
    QApplication::processEvents();
}

void Started::search(const std::string& word, int window) {
    auto* field = control<QLineEdit>("SearchEF", window);
    field->clear();
    QTest::keyClicks(field, toQ(word));
    QTest::keyClick(field, Qt::Key_Return);
    QApplication::processEvents();
}

void Started::key(Qt::Key key, Qt::KeyboardModifiers modifiers, int window) {
    this->window(window).activateWindow();
    QApplication::setActiveWindow(&this->window(window));
    QTest::keyClick(control<QLineEdit>("SearchEF", window), key, modifiers);
    QApplication::processEvents();
}

std::string Started::imageName(int index, int window) {
    return fromQ(control<QLabel>(("ImageNameST." + std::to_string(index)).c_str(), window)->text());
}

void Started::choose(const char* button, int row, int window) {
    auto* menu = control<BevelButton>(button, window);
    ASSERT_TRUE(menu->isEnabled()) << button << " is disabled";
    menu->openMenu();
    QApplication::processEvents();
    QWidget* popup = QApplication::activePopupWidget();
    ASSERT_NE(popup, nullptr) << button << " opened no menu";
    auto* rows = popup->findChild<MenuList*>();
    QTest::keyClick(rows, Qt::Key_Home);
    const bool separatorBefore = menu->List(1).empty() && row > 1;
    for (int i = 0; i < row - (separatorBefore ? 1 : 0); ++i)
        QTest::keyClick(rows, Qt::Key_Down);
    QTest::keyClick(rows, Qt::Key_Return);
    QApplication::processEvents();
}

void Started::click(const char* button, int window) {
    QTest::mouseClick(control<QWidget>(button, window), Qt::LeftButton);
    QApplication::processEvents();
}

DictionaryBuilder fruit(const std::string& name) {
    DictionaryBuilder builder(name);
    const std::vector<std::string> words{"apple", "banana", "cherry", "date", "zzz"};
    for (std::size_t i = 0; i < words.size(); ++i)
        builder.entry(words[i], std::to_string(i + 1) + ".bmp");
    return builder;
}

GroupBuilder fruitGroup(const std::string& name, int dictionaries) {
    GroupBuilder group(name);
    for (int i = 0; i < dictionaries; ++i)
        group.dictionary(fruit(std::string(1, static_cast<char>('A' + i))));
    return group;
}

} // namespace velmarin::test
