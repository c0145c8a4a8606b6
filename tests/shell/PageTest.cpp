#include "Started.h"

#include "controls/BevelButton.h"
#include "platform/QtText.h"
#include "view/SmartCanvas.h"

#include <QAccessible>
#include <QApplication>
#include <QLabel>

#include <gtest/gtest.h>

#include <functional>

namespace velmarin::test {
namespace {

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

TEST(Pages, ButtonsMenusAndKeysStepAndTheMenusFollow) {
    Started run({fruitGroup("G", 2)});
    const Qt::KeyboardModifiers command = Qt::ControlModifier, shift = command | Qt::ShiftModifier;
    const Qt::KeyboardModifiers option = command | Qt::AltModifier;
    const struct {
        const char* reason;
        std::function<void()> act;
        const char* name;
        int jump, history;
    } steps[] = {
        {"a search", [&] { run.search("banana"); }, "2.bmp", 1, 2},
        {"next", [&] { run.click("BVnext.0"); }, "3.bmp", 2, 3},
        {"back", [&] { run.click("BVback.0"); }, "2.bmp", 1, 4},
        {"a row of the page menu", [&] { run.choose("BVjump.0", 4); }, "5.bmp", 4, 5},
        {"Command+Left", [&] { run.key(Qt::Key_Left, command); }, "4.bmp", 3, 6},
        {"Command+Right", [&] { run.key(Qt::Key_Right, command); }, "5.bmp", 4, 7},
        {"Command+Option+Left", [&] { run.key(Qt::Key_Left, option); }, "4.bmp", 3, 6},
        {"Command+Option+Right", [&] { run.key(Qt::Key_Right, option); }, "5.bmp", 4, 7},
        {"a row of the history", [&] { run.choose("BVHistory.0", 3); }, "3.bmp", 2, 3},
        {"the next tab", [&] { run.key(Qt::Key_Right, shift); }, "3.bmp", 2, 3},
        {"a step there", [&] { run.key(Qt::Key_Right, command); }, "3.bmp", 2, 3},
        {"the first tab", [&] { run.key(Qt::Key_Up, shift); }, "3.bmp", 2, 3},
        {"Delete", [&] { run.choose("BVHistory.0", 0); }, "3.bmp", 2, 0},
    };
    for (const auto& step : steps) {
        SCOPED_TRACE(step.reason);
        step.act();
        EXPECT_EQ(run.imageName(0), step.name);
        EXPECT_EQ(run.control<BevelButton>("BVjump.0")->MenuValue(), step.jump);
        EXPECT_EQ(run.control<BevelButton>("BVHistory.0")->MenuValue(), step.history);
    }
    EXPECT_EQ(run.imageName(1), "3.bmp");
    EXPECT_EQ(run.control<BevelButton>("BVHistory.0")->rowCount(), 2);
}

} // namespace
} // namespace velmarin::test
