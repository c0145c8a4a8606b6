#include "Started.h"

#include "controls/BevelButton.h"
#include "controls/QtText.h"
#include "controls/TabPanel.h"
#include "view/SmartCanvas.h"

#include <QAccessible>
#include <QApplication>
#include <QLabel>

#include <gtest/gtest.h>

namespace velmarin::test {
namespace {

TEST(Pages, StepsStayWithinTheBook) {
    Started run({fruitGroup("G", 1)});
    auto* jump = run.control<BevelButton>("BVjump.0");
    EXPECT_EQ(jump->wholeText(), "Page");
    run.click("BVnext.0");
    EXPECT_EQ(run.imageName(0), "") << "no page is shown yet, so there is none to step from";
    run.search("date");
    EXPECT_EQ(jump->MenuValue(), 3);
    EXPECT_EQ(jump->wholeText(), "4.bmp");
    run.click("BVnext.0");
    run.click("BVnext.0");
    EXPECT_EQ(run.imageName(0), "5.bmp");
    EXPECT_EQ(jump->MenuValue(), 4);
    for (int i = 0; i < 6; ++i)
        run.click("BVback.0");
    EXPECT_EQ(run.imageName(0), "1.bmp");
    EXPECT_EQ(jump->MenuValue(), 0);
    run.choose("BVjump.0", 2);
    EXPECT_EQ(run.imageName(0), "3.bmp");
    EXPECT_EQ(run.host.messages, std::vector<std::string>{});
}

TEST(Pages, NamesThatDifferInCaseOrCompositionAreOnePage) {
    Started run({GroupBuilder("G").dictionary(DictionaryBuilder("A")
                                                  .entry("apple", "PAGE1.BMP")
                                                  .entry("banana", "\xc3\xa9.bmp")
                                                  .entry("zzz", "3.bmp")
                                                  .without("mImg/PAGE1.BMP")
                                                  .without("mImg/\xc3\xa9.bmp")
                                                  .picture("page1.bmp")
                                                  .picture("e\xcc\x81.bmp")
                                                  .imageIndex({"3.bmp", "page1.bmp", "e\xcc\x81.bmp"}))});
    run.search("apple");
    EXPECT_EQ(run.imageName(0), "PAGE1.BMP");
    EXPECT_EQ(run.control<BevelButton>("BVjump.0")->MenuValue(), 1);
    run.search("banana");
    EXPECT_EQ(run.control<BevelButton>("BVjump.0")->MenuValue(), 2);
}

TEST(Pages, APageThatCannotBeShownSaysNoPictureAndLeavesNameAndMenu) {
    const struct {
        const char* reason;
        std::string page;
        bool keepsThePage;
        std::string told; ///< in tool tips and to screen readers
    } cases[] = {
        {"a missing file leaves the page before it", "missing.bmp", true, "missing.bmp: there is no such file"},
        {"a file that cannot be decoded clears it", "broken.bmp", false,
         "broken.bmp: its content is not a picture in a known format"},
        {"a name outside the folder is not followed", "../mPimg/e.bmp", true, "../mPimg/e.bmp: there is no such file"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.reason);
        Started run({GroupBuilder("G").dictionary(DictionaryBuilder("A")
                                                      .entry("apple", "1.bmp")
                                                      .entry("banana", c.page)
                                                      .entry("zzz", "3.bmp")
                                                      .without("mImg/" + c.page)
                                                      .picture("broken.bmp", "text")
                                                      .extraPicture("e.bmp")
                                                      .imageIndex({"1.bmp", "3.bmp"}))});
        run.search("apple");
        auto* canvas = run.control<SmartCanvas>("MainCanvas.0");
        const QImage before = canvas->grab().toImage();
        run.search("banana");
        EXPECT_EQ(canvas->hasImage(), c.keepsThePage);
        EXPECT_EQ(run.imageName(0), "1.bmp");
        EXPECT_EQ(run.control<BevelButton>("BVjump.0")->MenuValue(), 0);
        EXPECT_NE(canvas->grab().toImage(), before) << "the page does not say that a picture is missing";
        const auto* label = run.control<QLabel>("ImageNameST.0");
        EXPECT_EQ(fromQ(canvas->toolTip()), c.told);
        EXPECT_EQ(fromQ(label->toolTip()), c.told);
        EXPECT_EQ(fromQ(label->accessibleDescription()), c.told);
        EXPECT_EQ(fromQ(canvas->accessibleDescription()), "A, " + c.told);
        run.search("zzy");
        EXPECT_EQ(run.imageName(0), "1.bmp");
    }
}

TEST(Pages, ThePageIsAPictureThatSaysWhichPageItIs) {
    Started run({GroupBuilder("G").dictionary(fruit("A & B").captions({{"1.bmp", "i"}, {"3.bmp", "3.bmp"}}))});
    const auto* canvas = run.control<SmartCanvas>("MainCanvas.0");
    EXPECT_EQ(canvas->accessibleDescription(), "");
    run.search("apple");
    EXPECT_EQ(canvas->accessibleDescription(), "A & B, i, 1.bmp");
    EXPECT_EQ(canvas->toolTip(), "") << "a whole page needs none";
    run.click("BVnext.0");
    EXPECT_EQ(canvas->accessibleDescription(), "A & B, 3.bmp");
    run.search("banana");
    EXPECT_EQ(canvas->accessibleDescription(), "A & B, 2.bmp") << "a page without a row";
    QAccessibleInterface* page = QAccessible::queryAccessibleInterface(run.control<SmartCanvas>("MainCanvas.0"));
    EXPECT_EQ(page->role(), QAccessible::Graphic);
    EXPECT_EQ(page->text(QAccessible::Name), "Page");
    run.window().close();
    EXPECT_EQ(canvas->accessibleDescription(), "");
}

TEST(Pages, ImageSizeShowsAFitOnlyIfItIsThePagesAndKeepsAnyNumber) {
    const std::vector<std::pair<int, const char*>> fits{
        {-1, "Image size"}, {0, "Adjust by height"}, {1, "Original size"}, {2, "Adjust by width"},
        {3, "Image size"},  {4, "Image size"},       {6, "Image size"},    {2147483647, "Image size"}};
    std::string preferences = "G\t0\t\n";
    for (std::size_t i = 0; i < fits.size(); ++i)
        preferences += std::string(1, static_cast<char>('A' + i)) + "\t" + std::to_string(fits[i].first) + "\n";
    Started run({fruitGroup("G", static_cast<int>(fits.size())).preferences(preferences)});
    run.search("apple");
    for (std::size_t i = 0; i < fits.size(); ++i) {
        const std::string tab = std::to_string(i);
        EXPECT_EQ(fromQ(run.control<BevelButton>(("BVimage." + tab).c_str())->shownText()), fits[i].second) << tab;
        EXPECT_EQ(run.control<SmartCanvas>(("MainCanvas." + tab).c_str())->Mode(), fits[i].first) << tab;
    }
    run.window().close();
    EXPECT_EQ(run.read("DictionaryFolder/G/DictionaryPreferences.txt"), preferences);
    EXPECT_EQ(fromQ(run.control<BevelButton>("BVimage.0")->wholeText()), "Image size") << "a window without a group";
}

TEST(Pages, ADictionaryWithoutAnIndexGetsOneAndIndex2WinsOverIt) {
    Started run({GroupBuilder("G")
                     .dictionary(fruit("A").without("mImg/ImageIndex").picture("notes.txt", "text"))
                     .dictionary(fruit("B").captions({{"2.bmp", "page ii"}, {"1.bmp", "page i"}}))});
    EXPECT_EQ(run.read("DictionaryFolder/G/A/mImg/ImageIndex"), "4\n1.bmp\n2.bmp\n3.bmp\n4.bmp\n5.bmp\n");
    auto* jump = run.control<BevelButton>("BVjump.1");
    EXPECT_EQ(jump->rowCount(), 2);
    run.search("apple");
    EXPECT_EQ(jump->wholeText(), "page i");
    EXPECT_EQ(run.imageName(1), "1.bmp");
}

TEST(History, RemembersWhatWasShownAndWalksIt) {
    Started run({fruitGroup("G", 1)});
    auto* history = run.control<BevelButton>("BVHistory.0");
    const Qt::KeyboardModifiers commandOption = Qt::ControlModifier | Qt::AltModifier;
    run.key(Qt::Key_Right, commandOption);
    run.key(Qt::Key_Left, commandOption);
    run.choose("BVHistory.0", 0);
    EXPECT_EQ(history->rowCount(), 2);

    run.search("apple");
    run.search("APPLE");
    EXPECT_EQ(history->rowCount(), 3) << "landing on the page on show adds nothing";
    run.search("banana");
    run.search("cherry");
    EXPECT_EQ(history->MenuValue(), 4);
    run.key(Qt::Key_Right, commandOption);
    EXPECT_EQ(run.imageName(0), "3.bmp");
    run.key(Qt::Key_Left, commandOption);
    run.key(Qt::Key_Left, commandOption);
    run.key(Qt::Key_Left, commandOption);
    EXPECT_EQ(run.imageName(0), "1.bmp");
    EXPECT_EQ(history->MenuValue(), 2);
    EXPECT_EQ(history->rowCount(), 5) << "walking the history adds nothing to it";
    run.search("date");
    EXPECT_EQ(history->MenuValue(), 5) << "a new page goes to the end, the later ones stay";
    EXPECT_EQ(history->rowCount(), 6);
    run.choose("BVHistory.0", 3);
    EXPECT_EQ(run.imageName(0), "2.bmp");

    run.choose("BVHistory.0", 0);
    EXPECT_EQ(history->rowCount(), 2);
    run.key(Qt::Key_Left, commandOption);
    EXPECT_EQ(run.imageName(0), "2.bmp");
    EXPECT_EQ(run.host.messages, std::vector<std::string>{});
}

TEST(Tabs, CommandsGoRoundAndToTheEndsAndPageCommandsGoToTheTabInFront) {
    Started run({fruitGroup("G", 3)});
    run.search("banana");
    const auto* tabs = run.control<TabPanel>("TB");
    const Qt::KeyboardModifiers commandShift = Qt::ControlModifier | Qt::ShiftModifier;
    for (const auto& [key, front] : {std::pair(Qt::Key_Left, 2), {Qt::Key_Right, 0}, {Qt::Key_Down, 2}}) {
        run.key(key, commandShift);
        EXPECT_EQ(tabs->Value(), front);
    }
    run.key(Qt::Key_Right, Qt::ControlModifier);
    EXPECT_EQ(run.imageName(0), "2.bmp");
    EXPECT_EQ(run.imageName(2), "3.bmp");
    run.key(Qt::Key_Left, Qt::ControlModifier);
    EXPECT_EQ(run.imageName(2), "2.bmp");
    run.key(Qt::Key_Up, commandShift);
    EXPECT_EQ(tabs->Value(), 0);
}

} // namespace
} // namespace velmarin::test
