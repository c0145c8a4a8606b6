#include "Started.h"

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

Started::Started(const std::vector<GroupBuilder>& groups, const std::function<void(const TempFolder&)>& before) {
    std::filesystem::create_directory(files.path() / "DictionaryFolder");
    for (const GroupBuilder& group : groups)
        group.writeTo(files.path() / "DictionaryFolder");
    if (before)
        before(files);
    qputenv("XDG_CONFIG_HOME", toQ((files.path() / "config").string()).toUtf8());
    app_ = std::make_unique<App>(host, FolderItem(files.path()), "1.0");
    app_->Event_Open();
    QApplication::processEvents();
}

Started::~Started() {
    for (QWidget* widget : QApplication::topLevelWidgets())
        widget->close();
    app_.reset();
    // Windows that destroy themselves later do so now: no event loop comes after a test.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

std::string Started::imageName(int tab) {
    return fromQ(label(("ImageNameST." + std::to_string(tab)).c_str()).text());
}

void Started::pick(const std::string& group, int window) {
    auto& menu = control<PopupMenu>("SelectDicFolPU", window);
    emit menu.aboutToChoose();
    for (int row = 0; row < menu.rowCount(); ++row)
        if (menu.List(row) == group)
            menu.setListIndex(row);
    QApplication::processEvents();
}

void Started::search(const std::string& word, int window) {
    field(window).clear();
    QTest::keyClicks(&field(window), toQ(word));
    QTest::keyClick(&field(window), Qt::Key_Return);
    QApplication::processEvents();
}

void Started::key(Qt::Key key, Qt::KeyboardModifiers modifiers) {
    QApplication::setActiveWindow(&window());
    QTest::keyClick(&field(), key, modifiers);
    QApplication::processEvents();
}

void Started::choose(const char* button, int row, int window) {
    auto& menu = control<BevelButton>(button, window);
    menu.openMenu();
    QWidget* popup = QApplication::activePopupWidget();
    ASSERT_NE(popup, nullptr) << button << " opened no menu";
    auto* rows = popup->findChild<MenuList*>();
    rows->setCurrentIndex(rows->model()->index(row, 0));
    QTest::keyClick(rows, Qt::Key_Return);
    QApplication::processEvents();
}

void Started::click(const char* button) {
    QTest::mouseClick(&control<QWidget>(button), Qt::LeftButton);
    QApplication::processEvents();
}

DictionaryBuilder fruit(const std::string& name) {
    DictionaryBuilder builder(name);
    builder.entry("apple", "1.bmp").entry("banana", "2.bmp").entry("cherry", "3.bmp").entry("date", "4.bmp");
    return builder.entry("zzz", "5.bmp");
}

GroupBuilder fruitGroup(const std::string& name, int dictionaries) {
    GroupBuilder group(name);
    for (int i = 0; i < dictionaries; ++i)
        group.dictionary(fruit(std::string(1, static_cast<char>('A' + i))));
    return group;
}

} // namespace velmarin::test
