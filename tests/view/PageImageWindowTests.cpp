#include "controls/BevelButton.h"
#include "controls/MenuPopup.h"
#include "controls/QtText.h"
#include "platform/ScriptedHost.h"
#include "support/DictionaryBuilder.h"
#include "support/TempFolder.h"
#include "text/NilObjectException.h"
#include "view/PageImageWindow.h"
#include "view/SmartCanvas.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QScreen>
#include <QTest>

#include <functional>
#include <tuple>
#include <vector>

namespace velmarin {
namespace {

using test::oneBitBmp;
using test::TempFolder;

/// A main window's pages: keeps what it is told.
class RecordingStepper : public PageStepper {
  public:
    std::vector<std::tuple<std::string, int, int>> steps;
    int tabs = 3;
    std::function<void()> before = [] {};

    bool hasTab(int tab) const override { return tab < tabs; }
    void mNextBack(int direction, int tab) override { keep("page", direction, tab); }
    void mUpDown(int direction, int tab) override { keep("screenful", direction, tab); }

  private:
    void keep(const char* what, int direction, int tab) {
        before();
        steps.emplace_back(what, direction, tab);
    }
};

class PageImageWindowTest : public ::testing::Test {
  protected:
    ~PageImageWindowTest() override {
        delete window;
        destroyClosedWindows();
    }

    PageImageWindow& open() {
        PageImageWindowEvents events;
        events.opened = [this] { pPageImageShown = true; };
        events.closed = [this] {
            pPageImageShown = false;
            ++closings;
        };
        events.saved = [this](const std::string&, const WriteResult& result) {
            if (!result)
                host.MsgBox(result.reason);
        };
        window = new PageImageWindow(host, FolderItem(preferences.path()), events);
        return *window;
    }
    void show() {
        window->show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(window));
    }
    static void destroyClosedWindows() { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }

    FolderItem picture(const std::string& name, int width, int height) {
        return FolderItem(files.write(name, oneBitBmp(width, height)));
    }
    /// A folder called "errata" of two pictures with a text between them, and what is not seen.
    FolderItem errata() {
        picture("errata/a.bmp", 600, 500);
        files.write("errata/b.txt", "no picture");
        picture("errata/c.bmp", 700, 400);
        picture("errata/.hidden.bmp", 16, 16);
        return FolderItem(files.path() / "errata");
    }

    template <class Widget> Widget& control(const char* name) {
        auto* found = window->findChild<Widget*>(QString::fromLatin1(name));
        if (found == nullptr)
            throw std::runtime_error(std::string("no control is called ") + name);
        return *found;
    }
    BevelButton& button(const char* name) { return control<BevelButton>(name); }
    // Qt's own handlers of a click are built without exceptions, and leak a little when one passes: tests of what is
    // raised emit `clicked` themselves.
    void click(const char* name) { QTest::mouseClick(&control<QAbstractButton>(name), Qt::LeftButton); }
    /// Picks a row as a user does.
    void pick(const char* menu, int row) {
        QTest::mousePress(&button(menu), Qt::LeftButton);
        auto* list = QApplication::activePopupWidget()->findChild<MenuList*>();
        list->scrollTo(list->model()->index(row, 0));
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                          list->visualRect(list->model()->index(row, 0)).center());
    }
    void type(const char* text) {
        auto& field = control<QLineEdit>("RatioEF");
        field.setFocus();
        field.selectAll();
        QTest::keyClick(&field, Qt::Key_Delete);
        QTest::keyClicks(&field, QString::fromLatin1(text));
    }
    std::string ratioText() { return fromQ(control<QLineEdit>("RatioEF").text()); }
    std::string info() { return fromQ(control<QLabel>("InfoST").text()); }
    std::string title() { return fromQ(window->windowTitle()); }

    ScriptedHost host;
    TempFolder files, preferences;
    QPointer<PageImageWindow> window;
    bool pPageImageShown = false;
    int closings = 0;
};

TEST_F(PageImageWindowTest, FolderFillsTheMenuWithItsVisibleItemsAndShowsTheFirst) {
    open().mSetImage(errata());
    EXPECT_EQ(title(), "errata");
    EXPECT_EQ(window->pImagePUArray(), (std::vector<std::string>{"a.bmp", "b.txt", "c.bmp"}));
    EXPECT_EQ(button("ImagePU").MenuValue(), 0);
    EXPECT_EQ(button("ImagePU").Caption(), "3 image(s) exist(s)");
    EXPECT_TRUE(button("ImagePU").isEnabled());
    EXPECT_EQ(window->pCurrentImageSize(), (Extent{600, 500}));
    EXPECT_EQ(control<SmartCanvas>("MainCanvas").Mode(), 0);
    EXPECT_TRUE(host.messages.empty());
}

TEST_F(PageImageWindowTest, FolderWhoseFirstItemIsNoPictureSaysSoInTheTipAlone) {
    files.write("mixed/a.txt", "no picture");
    picture("mixed/b.bmp", 20, 20);
    open().mSetImage(FolderItem(files.path() / "mixed"));
    show();
    EXPECT_TRUE(host.messages.empty());
    EXPECT_EQ(button("ImagePU").rowCount(), 2);
    auto& canvas = control<SmartCanvas>("MainCanvas");
    EXPECT_FALSE(canvas.hasImage());
    EXPECT_EQ(canvas.toolTip(), "a.txt: its content is not a picture in a known format");
    EXPECT_EQ(canvas.accessibleDescription(), canvas.toolTip());
    pick("ImagePU", 1);
    EXPECT_EQ(canvas.toolTip(), "");
    EXPECT_EQ(canvas.accessibleDescription(), "b.bmp");
}

TEST_F(PageImageWindowTest, FolderOfHiddenItemsAloneClosesTheWindow) {
    picture("hidden/.a.bmp", 16, 16);
    open().mSetImage(FolderItem(files.path() / "hidden"));
    EXPECT_EQ(closings, 1);
    EXPECT_FALSE(pPageImageShown);
    EXPECT_TRUE(window->pImagePUArray().empty());
    destroyClosedWindows();
    EXPECT_TRUE(window.isNull());
}

TEST_F(PageImageWindowTest, PickShowsItsPictureAndKeepsMenuAndTitle) {
    open().mSetImage(errata());
    show();
    pick("ImagePU", 2);
    EXPECT_EQ(window->pCurrentImageSize(), (Extent{700, 400}));
    EXPECT_EQ(title(), "errata");
    EXPECT_EQ(button("ImagePU").rowCount(), 3);
    EXPECT_EQ(button("ImagePU").MenuValue(), 2);
    EXPECT_TRUE(window->pImagePUArray().empty());
}

TEST_F(PageImageWindowTest, PickThatIsNoPictureIsToldOfAndLeavesTheMenu) {
    open().mSetImage(errata());
    show();
    pick("ImagePU", 1);
    EXPECT_EQ(host.messages, (std::vector<std::string>{"Error:This is not a picture file."}));
    ASSERT_EQ(button("ImagePU").rowCount(), 2);
    EXPECT_EQ(button("ImagePU").List(1), "c.bmp");
    EXPECT_EQ(window->pCurrentImageSize(), (Extent{600, 500}));
    EXPECT_TRUE(control<SmartCanvas>("MainCanvas").hasImage());
    pick("ImagePU", 1);
    EXPECT_EQ(window->pCurrentImageSize(), (Extent{700, 400}));
}

TEST_F(PageImageWindowTest, FolderWithinAFolderOpensWhenItIsPicked) {
    picture("outer/a.bmp", 20, 20);
    picture("outer/inner/x.bmp", 30, 30);
    open().mSetImage(FolderItem(files.path() / "outer"));
    show();
    pick("ImagePU", 1);
    EXPECT_EQ(title(), "inner");
    EXPECT_EQ(button("ImagePU").List(0), "x.bmp");
    EXPECT_EQ(window->pCurrentImageSize(), (Extent{30, 30}));
}

TEST_F(PageImageWindowTest, FileFromOutsideEndsTheFolder) {
    open().mSetImage(errata());
    window->mSetImage(picture("page [*] 7.bmp", 640, 480));
    EXPECT_EQ(title(), "page [*][*] 7.bmp") << "doubled, so that Qt shows it as it is";
    EXPECT_TRUE(window->pParFol().isNil());
    EXPECT_EQ(button("ImagePU").rowCount(), 0);
    EXPECT_FALSE(button("ImagePU").isEnabled());
    EXPECT_EQ(window->pCurrentImageSize(), (Extent{640, 480}));
    window->mSetImage(errata());
    EXPECT_TRUE(button("ImagePU").isEnabled());
}

TEST_F(PageImageWindowTest, AFileThatIsNoPictureIsToldOfAndThePictureBeforeItStays) {
    const std::pair<const char*, std::string> noPictures[] = {
        {"missing.tif", ""},     {"a.txt", "no picture"}, {"a.TIF", oneBitBmp()},
        {"a.tiff", oneBitBmp()}, {"a.JPG", oneBitBmp()},  {"a.bmp", oneBitBmp().substr(0, 40)}};
    open().mSetImage(picture("good.bmp", 640, 480));
    for (const auto& [name, bytes] : noPictures) {
        SCOPED_TRACE(name);
        host.messages.clear();
        if (!bytes.empty())
            files.write(name, bytes);
        window->mSetImage(FolderItem(files.path() / name));
        EXPECT_EQ(host.messages, (std::vector<std::string>{"Error:This is not a picture file."}));
        EXPECT_EQ(title(), name);
        EXPECT_EQ(window->pCurrentImageSize(), (Extent{640, 480}));
        EXPECT_TRUE(control<SmartCanvas>("MainCanvas").hasImage());
    }
}

TEST_F(PageImageWindowTest, APictureGivesTheWindowItsSizeAndThePageTheRest) {
    struct Load {
        const char* ratio;
        int width, height;
        QSize window;
    };
    open();
    show();
    for (const Load& load : {Load{"100", 640, 480, {640, 510}}, Load{"", 640, 480, {640, 510}},
                             Load{"50", 1000, 1500, {580, 780}}, Load{"20", 2000, 600, {580, 400}}}) {
        type(load.ratio);
        window->mSetImage(picture("p.bmp", load.width, load.height));
        EXPECT_EQ(window->size(), load.window) << load.ratio;
        EXPECT_EQ(control<SmartCanvas>("MainCanvas").geometry(),
                  QRect(13, 33, load.window.width() - 26, load.window.height() - 53));
    }
}

TEST_F(PageImageWindowTest, APickedRatioFillsTheFieldAndSetsTheSize) {
    struct Pick {
        int row;
        const char* text;
        QSize window;
        const char* info;
    };
    open().mSetImage(picture("p.bmp", 780, 640));
    show();
    for (const Pick& each : {Pick{2, "25", {580, 505}, "The selected ratio is too small."},
                             Pick{5, "50", {580, 505}, ""}, Pick{11, "100", {780, 670}, ""}}) {
        pick("RatioPU", each.row);
        EXPECT_EQ(ratioText(), each.text);
        EXPECT_EQ(window->size(), each.window);
        EXPECT_EQ(info(), each.info);
    }
}

TEST_F(PageImageWindowTest, ReturnTakesTheTypedRatioAndTheFieldHoldsThreeDigits) {
    open().mSetImage(picture("p.bmp", 780, 640));
    show();
    type("3x0");
    QTest::keyClick(&control<QLineEdit>("RatioEF"), Qt::Key_Return);
    EXPECT_EQ(ratioText(), "30");
    EXPECT_EQ(info(), "The selected ratio is too small.");
    type("1509");
    QTest::keyClick(&control<QLineEdit>("RatioEF"), Qt::Key_Return);
    EXPECT_EQ(ratioText(), "150");
    EXPECT_EQ(info(), "The selected ratio is too big.");
    type("");
    QTest::keyClick(&control<QLineEdit>("RatioEF"), Qt::Key_Return);
    EXPECT_EQ(info(), "");
}

TEST_F(PageImageWindowTest, ButtonsStepThePagesOfTheirMainWindowAsLongAsItHasTheTab) {
    auto stepper = std::make_shared<RecordingStepper>();
    open().setMainWin(stepper, 2);
    show();
    const auto clickAll = [this] {
        for (const char* name : {"MainWinPage.0", "MainWinPage.1", "UpDown.0", "UpDown.1"})
            click(name);
    };
    clickAll();
    stepper->tabs = 2;
    clickAll();
    EXPECT_EQ(stepper->steps, (std::vector<std::tuple<std::string, int, int>>{
                                  {"page", 0, 2}, {"page", 1, 2}, {"screenful", 0, 2}, {"screenful", 1, 2}}));
    stepper.reset();
    clickAll();
    EXPECT_TRUE(host.messages.empty());
}

TEST_F(PageImageWindowTest, MainWindowMayCloseWhileItSteps) {
    auto stepper = std::make_shared<RecordingStepper>();
    RecordingStepper* const raw = stepper.get();
    std::size_t steps = 0;
    raw->before = [&] {
        stepper.reset();
        steps = raw->steps.size() + 1;
    };
    open().setMainWin(stepper, 0);
    click("MainWinPage.1");
    EXPECT_EQ(steps, 1u);
}

TEST_F(PageImageWindowTest, PreferencesGivePlaceAndRatioAndAreWrittenAtTheEnd) {
    struct Kept {
        std::string file;
        QPoint place;
        const char* ratio;
    };
    for (const Kept& kept :
         {Kept{"120\n45\n30\n", {120, 45}, "30"}, Kept{"120\r\n45\r30", {120, 45}, "30"},
          Kept{"-20.9\n-7\n0\n", {-20, -7}, "0"}, Kept{"120\n", {120, 0}, ""}, Kept{"a\nb\n\n", {0, 0}, ""},
          Kept{"9999999999\n-9999999999\n100\n", {32767, -32768}, "100"}, Kept{"1\n2\n12345\n", {1, 2}, "123"}}) {
        SCOPED_TRACE(kept.file);
        preferences.write("PageImageW_Pref.txt", kept.file);
        open();
        EXPECT_EQ(window->pos(), kept.place);
        EXPECT_EQ(ratioText(), kept.ratio);
        window->close();
        destroyClosedWindows();
        EXPECT_EQ(preferences.read("PageImageW_Pref.txt"),
                  std::to_string(kept.place.x()) + "\n" + std::to_string(kept.place.y()) + "\n" + kept.ratio + "\n");
    }
    open();
    show();
    window->move(60, 70);
    type("40");
    window->close();
    EXPECT_EQ(preferences.read("PageImageW_Pref.txt"), "60\n70\n40\n") << "as it was left";
}

TEST_F(PageImageWindowTest, PreferencesThatCannotBeWrittenAreToldOfOnceAndTheWindowCloses) {
    std::filesystem::create_directory(preferences.path() / "PageImageW_Pref.txt");
    open();
    show();
    window->close();
    window->close();
    EXPECT_FALSE(window->isVisible());
    ASSERT_EQ(host.messages.size(), 1u);
    EXPECT_NE(host.messages.front().find("PageImageW_Pref.txt"), std::string::npos);
    EXPECT_EQ(closings, 1);
}

TEST_F(PageImageWindowTest, EveryWayToCloseDestroysTheWindowOnce) {
    const auto key = [this](QWidget* widget, Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        widget->setFocus();
        QTest::keyClick(widget, key, modifiers);
    };
    const std::function<void()> ways[] = {
        [&] { key(window, Qt::Key_Escape); },
        [&] { key(&control<QLineEdit>("RatioEF"), Qt::Key_Escape); },
        [&] { key(window, Qt::Key_W, Qt::ControlModifier); },
        [&] { click("PushButton1"); },
        [&] { key(&control<QPushButton>("PushButton1"), Qt::Key_Return); },
    };
    for (const auto& close : ways) {
        closings = 0;
        open().mSetImage(picture("p.bmp", 640, 480));
        show();
        EXPECT_TRUE(pPageImageShown);
        close();
        EXPECT_EQ(closings, 1);
        EXPECT_FALSE(pPageImageShown || window->isVisible());
        destroyClosedWindows();
        EXPECT_TRUE(window.isNull());
    }
}

TEST_F(PageImageWindowTest, TabReachesEveryControlInTheOrderOfTheLayoutAndEachSaysWhatItIs) {
    const auto stepper = std::make_shared<RecordingStepper>();
    open().mSetImage(errata());
    window->setMainWin(stepper, 0);
    show();
    button("ImagePU").setFocus();
    std::vector<std::string> reached;
    for (int i = 0; i < 8; ++i) {
        QWidget* focused = window->focusWidget();
        reached.push_back(fromQ(focused->objectName()));
        EXPECT_NE(QAccessible::queryAccessibleInterface(focused)->text(QAccessible::Name), "") << reached.back();
        EXPECT_FALSE(focused->toolTip().isEmpty()) << reached.back();
        QTest::keyClick(focused, Qt::Key_Tab);
    }
    EXPECT_EQ(reached, (std::vector<std::string>{"ImagePU", "RatioEF", "RatioPU", "MainWinPage.0", "MainWinPage.1",
                                                 "UpDown.0", "UpDown.1", "PushButton1"}));
    EXPECT_EQ(window->focusWidget(), &button("ImagePU"));
    control<QLineEdit>("RatioEF").setFocus();
    click("UpDown.0");
    EXPECT_EQ(window->focusWidget(), &control<QLineEdit>("RatioEF")) << "a click takes no focus";
}

} // namespace
} // namespace velmarin
