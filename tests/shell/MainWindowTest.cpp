#include "Started.h"

#include "controls/ListBox.h"
#include "shell/SideButton.h"

#include <QAccessible>
#include <QCheckBox>
#include <QEnterEvent>

namespace velmarin::test {
namespace {

QAccessibleInterface* heard(QWidget* widget) {
    return QAccessible::queryAccessibleInterface(widget);
}

TEST(Pages, EachSaysWhichItIsAndWhyItCannotBeShown) {
    DictionaryBuilder dictionary("A & B");
    dictionary.entry("a", "1.bmp").entry("b", "gone.bmp").entry("c", "broken.bmp").entry("d", "2.bmp").entry("z", "");
    dictionary.without("mImg/gone.bmp").picture("broken.bmp", "text").captions({{"1.bmp", "i"}, {"2.bmp", "2.bmp"}});
    Started run({GroupBuilder("G").dictionary(dictionary)});
    SmartCanvas& canvas = run.canvas();
    QLabel& label = run.label("ImageNameST.0");
    const struct {
        const char *word, *page, *problem;
        bool shown;
    } cases[] = {{"a", "i, 1.bmp", "", true},
                 {"b", "gone.bmp", ": there is no such file", true},
                 {"d", "2.bmp", "", true},
                 {"c", "broken.bmp", ": its content is not a picture in a known format", false}};
    QImage before;
    for (const auto& c : cases) {
        SCOPED_TRACE(c.word);
        const bool whole = *c.problem == '\0';
        const QString told = QString(c.page) + c.problem;
        run.search(c.word);
        EXPECT_EQ(fromQ(canvas.accessibleDescription()), fromQ("A & B, " + told));
        EXPECT_EQ(canvas.toolTip(), whole ? "" : told);
        EXPECT_EQ(label.toolTip(), told);
        EXPECT_EQ(label.accessibleDescription(), whole ? "Name of the page image" : told);
        EXPECT_EQ(canvas.hasImage(), c.shown);
        EXPECT_NE(std::exchange(before, canvas.grab().toImage()), canvas.grab().toImage()) << "no \"No Picture\"";
    }
    EXPECT_EQ(heard(&canvas)->role(), QAccessible::Graphic);
    EXPECT_EQ(heard(&canvas)->text(QAccessible::Name), "Page");
    run.window().close();
    EXPECT_EQ(canvas.accessibleDescription(), "");
}

TEST(Pages, ImageSizeShowsAFitOnlyIfItIsThePagesAndKeepsAnyNumber) {
    const std::string preferences = "G\t0\t\nA\t-1\nB\t0\nC\t1\nD\t2\nE\t3\nF\t2147483647\n";
    Started run({fruitGroup("G", 6).preferences(preferences)});
    QStringList shown;
    for (int tab = 0; tab < 6; ++tab)
        shown << run.button(("BVimage." + std::to_string(tab)).c_str()).shownText();
    EXPECT_EQ(fromQ(shown.join('|')),
              "Image size|Adjust by height|Original size|Adjust by width|Image size|Image size");
    run.search("apple");
    EXPECT_EQ(run.canvas().Mode(), -1);
    run.window().close();
    EXPECT_EQ(run.files.read("DictionaryFolder/G/DictionaryPreferences.txt"), preferences);
    EXPECT_EQ(fromQ(run.button("BVimage.0").wholeText()), "Image size") << "a window without a group";
}

TEST(Pages, ButtonsMenusAndKeysStepAndTheMenusFollow) {
    Started run({fruitGroup("G", 2)});
    const Qt::KeyboardModifiers command = Qt::ControlModifier, shift = command | Qt::ShiftModifier;
    const struct {
        const char* reason;
        std::function<void()> act;
        const char* state; ///< of the first tab: its page and the values of the page menu and the history
    } steps[] = {
        {"a search", [&] { run.search("banana"); }, "2.bmp 1 2"},
        {"next", [&] { run.click("BVnext.0"); }, "3.bmp 2 3"},
        {"back", [&] { run.click("BVback.0"); }, "2.bmp 1 4"},
        {"a row of the page menu", [&] { run.choose("BVjump.0", 4); }, "5.bmp 4 5"},
        {"Command+Left", [&] { run.key(Qt::Key_Left, command); }, "4.bmp 3 6"},
        {"Command+Right", [&] { run.key(Qt::Key_Right, command); }, "5.bmp 4 7"},
        {"Command+Option+Left", [&] { run.key(Qt::Key_Left, command | Qt::AltModifier); }, "4.bmp 3 6"},
        {"Option+Right", [&] { run.key(Qt::Key_Right, Qt::AltModifier); }, "5.bmp 4 7"},
        {"a row of the history", [&] { run.choose("BVHistory.0", 3); }, "3.bmp 2 3"},
        {"a step in the next tab", [&] { run.key(Qt::Key_Right, shift), run.click("BVnext.1"); }, "3.bmp 2 3"},
        {"the first tab", [&] { run.key(Qt::Key_Up, shift); }, "3.bmp 2 3"},
        {"Delete", [&] { run.choose("BVHistory.0", 0); }, "3.bmp 2 0"},
    };
    for (const auto& step : steps) {
        step.act();
        EXPECT_EQ(run.imageName() + " " + std::to_string(run.button("BVjump.0").MenuValue()) + " " +
                      std::to_string(run.button("BVHistory.0").MenuValue()),
                  step.state)
            << step.reason;
    }
    EXPECT_EQ(run.imageName(1), "3.bmp");
    EXPECT_EQ(run.tabs().Value(), 0);
    EXPECT_EQ(run.button("BVHistory.0").rowCount(), 2);
}

TEST(Pages, ArrowsScrollByStepsAndButtonsAndCommandsByScreens) {
    Started run({GroupBuilder("G").dictionary(
        DictionaryBuilder("A").entry("apple", "1.bmp").entry("zzz", "2.bmp").picture("1.bmp", oneBitBmp(400, 4000)))});
    run.key(Qt::Key_Down);
    EXPECT_EQ(run.host.messages, std::vector<std::string>{}) << "no page, nothing to scroll";
    run.search("apple");
    const auto top = [&run] {
        std::array<int, 4> place{};
        run.canvas().view().GetScrollPosition(place);
        return place[3];
    };
    const int step = run.canvas().height() / 50;
    run.key(Qt::Key_Down);
    EXPECT_EQ(top(), step);
    run.key(Qt::Key_Up);
    EXPECT_EQ(top(), 0);
    run.key(Qt::Key_Down, Qt::AltModifier);
    EXPECT_EQ(top(), 0);
    run.click("BVdown.0");
    EXPECT_GT(top(), 10 * step);
    run.click("BVup.0");
    EXPECT_EQ(top(), 0);
    run.key(Qt::Key_Down, Qt::ControlModifier);
    EXPECT_GT(top(), 10 * step);
    run.key(Qt::Key_Up, Qt::ControlModifier);
    EXPECT_EQ(top(), 0);
}

TEST(ListMode, AClickOnARowShowsItsPageOrWhyNotAndLeavesTheKeyboardToTheField) {
    Started run({fruitGroup("Many", 25), fruitGroup("More", 22)});
    run.pick("Many");
    run.search("banana");
    std::filesystem::remove(run.groupFolder("Many") / "C" / "mImg" / "2.bmp");
    auto& rows = run.control<ListBox>("LB");
    QApplication::setActiveWindow(&run.window());
    run.field().setFocus();
    const auto clickRow = [&rows](int row) {
        QTest::mouseClick(rows.viewport(), Qt::LeftButton, {}, rows.visualRect(rows.model()->index(row, 0)).center());
    };
    clickRow(3);
    EXPECT_GE(run.tabs().x(), rows.geometry().right());
    EXPECT_EQ(run.tabs().caption(0), "D");
    EXPECT_TRUE(run.canvas().hasImage());
    EXPECT_TRUE(run.field().hasFocus());
    const QLabel& info = run.label("InfoST");
    EXPECT_EQ(info.text(), "");
    clickRow(2);
    EXPECT_EQ(info.text(), "We cant finde the picture. This dictionary has some probleme: C");
    EXPECT_EQ(info.toolTip(), info.text() + "\n2.bmp: there is no such file");
    EXPECT_GE(info.height(), info.fontMetrics().height());
    run.app().mMakeNewMainWin();
    run.pick("More", 1);
    run.search("banana", 1);
    EXPECT_EQ(rows.rowCount(), 22) << "the rows of a second window go to the first one's list";
    EXPECT_EQ(rows.ListIndex(), 0);
}

TEST(Search, NoClickTakesTheKeyboardAndTabReachesEveryControlByName) {
    Started run({fruitGroup("G", 2)});
    run.search("banana");
    QApplication::setActiveWindow(&run.window());
    run.field().setFocus();
    run.field().clear();
    QStringList clicked, reached;
    for (auto* widget : run.window().centralWidget()->findChildren<QWidget*>()) {
        const bool takesClicks =
            widget->inherits("QAbstractButton") || widget->inherits("QComboBox") || widget->inherits("QTabBar");
        if (!takesClicks || !widget->isVisible() || !widget->isEnabled())
            continue;
        clicked << widget->objectName();
        QTest::mouseClick(widget, Qt::LeftButton);
        if (QWidget* popup = QApplication::activePopupWidget())
            QTest::keyClick(popup->focusWidget(), Qt::Key_Escape);
        EXPECT_TRUE(run.field().hasFocus()) << fromQ(widget->objectName());
    }
    run.window().parts().sideButton->close();
    QApplication::processEvents();
    QApplication::setActiveWindow(&run.window());
    for (int i = 0; i < clicked.size() + 1; ++i) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        reached << QApplication::focusWidget()->objectName();
        EXPECT_NE(heard(QApplication::focusWidget())->text(QAccessible::Name), "") << fromQ(reached.last());
    }
    for (const QString& name : clicked)
        EXPECT_TRUE(reached.contains(name)) << fromQ(name) << " of " << fromQ(reached.join(' '));
}

TEST(Search, LeavesTheWordSelectedAndTheAcknowledgementGone) {
    Started run({fruitGroup("G", 1)});
    const QLabel& about = run.label("AboutST");
    run.search("");
    EXPECT_TRUE(about.isVisible()) << "an empty field searches nothing";
    run.search("banana");
    EXPECT_FALSE(about.isVisible());
    EXPECT_EQ(run.field().selectedText(), "banana");
    EXPECT_FALSE(run.control<QWidget>("PB").isVisible());
    run.field().setText("date");
    QTest::keyClick(&run.control<QCheckBox>("SeparatelyCB"), Qt::Key_Return);
    EXPECT_EQ(run.imageName(), "4.bmp") << "Return outside the field searches too";
}

TEST(Search, WhatTheUserDoesDuringItFollowsItsEnd) {
    const struct {
        const char* reason;
        std::function<void(Started&)> act;
        const char *field, *selected, *page;
    } cases[] = {
        {"typing", [](Started& run) { QTest::keyClicks(&run.field(), "cherry"); }, "cherry", "", "2.bmp"},
        {"a search", [](Started& run) { run.search("cherry"); }, "cherry", "cherry", "3.bmp"},
        {"a close", [](Started& run) { run.window().close(); }, "To execute a search, select a dictionary.", "", ""},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.reason);
        Started run({fruitGroup("G", 3)});
        bool acted = false;
        run.host.onYield = [&] {
            if (std::exchange(acted, true))
                return;
            c.act(run);
            EXPECT_EQ(run.imageName(0), "2.bmp");
            EXPECT_EQ(run.imageName(2), "");
        };
        run.search("banana");
        EXPECT_EQ(run.field().text(), c.field);
        EXPECT_EQ(run.field().selectedText(), c.selected);
        const int last = run.tabs().PanelCount() - 1;
        EXPECT_EQ(run.imageName(last), c.page);
        EXPECT_EQ(run.window().isVisible(), last == 2);
    }
}

TEST(Logo, CanBeReadOnLightAndOnDarkDesktops) {
    Started run({fruitGroup("G", 1)});
    QLabel& logo = run.label("LOGO");
    for (const int ground : {240, 42}) {
        QPalette colors = run.window().palette();
        colors.setColor(QPalette::Window, QColor(ground, ground, ground));
        run.window().setPalette(colors);
        for (int picture = 0; picture < 2; ++picture) {
            const QImage shown = logo.grab({48, 0, 48, 28}).toImage().convertToFormat(QImage::Format_Grayscale8);
            const auto isRead = [ground](int value) { return std::abs(value - ground) > 80; };
            EXPECT_GT(std::count_if(shown.bits(), shown.bits() + shown.sizeInBytes(), isRead), 30)
                << "picture " << picture << " on " << ground;
            QEnterEvent enter(QPointF(5, 5), QPointF(5, 5), QPointF(5, 5));
            QApplication::sendEvent(&logo, &enter);
        }
    }
}

} // namespace
} // namespace velmarin::test
