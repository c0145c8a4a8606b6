#include "Started.h"

#include "controls/BevelButton.h"
#include "controls/ProgressBar.h"
#include "controls/TabPanel.h"
#include "platform/QtText.h"
#include "search/QueryBar.h"
#include "shell/SideButton.h"
#include "view/SmartCanvas.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QTabBar>
#include <QTest>

#include <gtest/gtest.h>

namespace velmarin::test {
namespace {

TEST(Search, TheCheckBoxDecidesWhichTabsAreSearched) {
    Started run({fruitGroup("G", 2)});
    run.control<QCheckBox>("SeparatelyCB")->click();
    run.search("banana");
    EXPECT_EQ(run.imageName(0), "2.bmp");
    EXPECT_EQ(run.imageName(1), "");
}

TEST(Search, NoClickTakesTheKeyboardAndTabReachesEveryControl) {
    Started run({fruitGroup("G", 2)});
    run.search("banana");
    QApplication::setActiveWindow(&run.window());
    auto* field = run.control<QLineEdit>("SearchEF");
    field->setFocus();
    field->clear();
    QStringList clicked;
    for (QWidget* widget : run.window().centralWidget()->findChildren<QWidget*>()) {
        const bool takesClicks = qobject_cast<QAbstractButton*>(widget) != nullptr ||
                                 qobject_cast<QComboBox*>(widget) != nullptr ||
                                 qobject_cast<QTabBar*>(widget) != nullptr;
        if (!takesClicks || !widget->isVisible() || !widget->isEnabled())
            continue;
        clicked << widget->objectName();
        QTest::mouseClick(widget, Qt::LeftButton);
        if (QWidget* popup = QApplication::activePopupWidget())
            QTest::keyClick(popup->focusWidget(), Qt::Key_Escape);
        EXPECT_TRUE(field->hasFocus()) << fromQ(widget->objectName());
    }
    run.window().parts().sideButton->close();
    QApplication::processEvents();
    QApplication::setActiveWindow(&run.window());
    QStringList reached;
    for (int i = 0; i < clicked.size() + 1; ++i) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        reached << QApplication::focusWidget()->objectName();
    }
    for (const QString& name : clicked)
        EXPECT_TRUE(reached.contains(name)) << fromQ(name) << " of " << fromQ(reached.join(' '));
}

TEST(Search, LeavesTheWordSelectedAndTheAcknowledgementGone) {
    Started run({fruitGroup("G", 1)});
    auto* about = run.control<QLabel>("AboutST");
    run.search("");
    EXPECT_TRUE(about->isVisible()) << "an empty field searches nothing";
    run.search("banana");
    EXPECT_FALSE(about->isVisible());
    EXPECT_EQ(run.control<QLineEdit>("SearchEF")->selectedText(), "banana");
    EXPECT_FALSE(run.control<ProgressBar>("PB")->isVisible());
}

TEST(Search, WhatIsTypedWhileItRunsIsTheNextWord) {
    Started run({fruitGroup("G", 3)});
    auto* field = run.control<QLineEdit>("SearchEF");
    std::string letters = "cherry";
    run.host.onYield = [&] {
        if (!letters.empty())
            QTest::keyClicks(field, toQ(letters));
        letters.clear();
    };
    run.search("banana");
    EXPECT_EQ(field->text(), "cherry");
    EXPECT_FALSE(field->hasSelectedText());
}

TEST(Search, ReturnOutsideTheFieldSearchesToo) {
    Started run({fruitGroup("G", 1)});
    run.control<QLineEdit>("SearchEF")->setText("date");
    QTest::keyClick(run.control<QCheckBox>("SeparatelyCB"), Qt::Key_Return);
    EXPECT_EQ(run.imageName(0), "4.bmp");
}

TEST(Search, ASecondSearchDuringTheFirstWaitsForItsEnd) {
    Started run({fruitGroup("G", 3)});
    bool pressed = false;
    run.host.onYield = [&] {
        if (!std::exchange(pressed, true)) {
            run.control<QLineEdit>("SearchEF")->setText("cherry");
            run.window().parts().queryBar->OKBT_Action();
            EXPECT_EQ(run.imageName(0), "2.bmp");
        }
    };
    run.search("banana");
    EXPECT_TRUE(pressed);
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(run.imageName(i), "3.bmp") << "tab " << i;
}

TEST(Search, ClosingDuringASearchWaitsForItsEnd) {
    Started run({fruitGroup("G", 3)});
    run.host.onYield = [&] {
        run.window().close();
        EXPECT_EQ(run.window().group().pDictionaryItem.size(), 3U);
    };
    run.search("banana");
    QApplication::processEvents();
    EXPECT_FALSE(run.window().isVisible());
}

TEST(SearchField, UpAndDownScrollThePageUnlessCommandOrOptionIsHeld) {
    Started run({GroupBuilder("G").dictionary(
        DictionaryBuilder("A").entry("apple", "1.bmp").entry("zzz", "2.bmp").picture("1.bmp", oneBitBmp(400, 4000)))});
    auto* field = run.control<QLineEdit>("SearchEF");
    QTest::keyClick(field, Qt::Key_Down);
    EXPECT_EQ(run.host.messages, std::vector<std::string>{}) << "no page, nothing to scroll";
    run.search("apple");
    auto* canvas = run.control<SmartCanvas>("MainCanvas.0");
    const int step = canvas->height() / 50;
    const auto top = [&] {
        std::array<int, 4> place{};
        canvas->view().GetScrollPosition(place);
        return place[3];
    };
    QTest::keyClick(field, Qt::Key_Down);
    EXPECT_EQ(top(), step);
    QTest::keyClick(field, Qt::Key_Up);
    EXPECT_EQ(top(), 0);
    QTest::keyClick(field, Qt::Key_Down, Qt::AltModifier);
    EXPECT_EQ(top(), 0);
}

} // namespace
} // namespace velmarin::test
