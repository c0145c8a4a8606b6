#include "view/PageImageWindow.h"
#include "controls/BevelButton.h"
#include "controls/MenuPopup.h"
#include "platform/QtText.h"
#include "platform/ScriptedHost.h"
#include "support/DictionaryBuilder.h"
#include "support/TempFolder.h"
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

using namespace std::string_literals;
using test::oneBitBmp;
using test::TempFolder;

const std::vector<std::string> notAPicture{"Error:This is not a picture file."};

/// Records the steps that a main window is asked for.
class RecordedPages : public PagePort {
  public:
    std::vector<std::string> steps; ///< kind, direction and tab
    int tabs = 3;

    bool hasTab(int tab) const override { return tab < tabs; }
    void mNextBack(int direction, int tab) override { steps.push_back(keep("page", direction, tab)); }
    void mUpDown(int direction, int tab) override { steps.push_back(keep("screenful", direction, tab)); }

  private:
    static std::string keep(std::string what, int direction, int tab) {
        return what + " " + std::to_string(direction) + " " + std::to_string(tab);
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
        events.saved = [this](const std::string&, const Result& result) {
            if (!result)
                host.MsgBox(result.failure().message());
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
    /// A folder of two pictures, a text between them, and a hidden picture.
    FolderItem errata() {
        picture("errata/a.bmp", 600, 500);
        files.write("errata/b.txt", "text");
        picture("errata/c.bmp", 700, 400);
        picture("errata/.hidden.bmp", 16, 16);
        return FolderItem(files.path() / "errata");
    }

    template <class Widget> Widget& control(const char* name) {
        return *window->findChild<Widget*>(QString::fromLatin1(name));
    }
    BevelButton& button(const char* name) { return control<BevelButton>(name); }
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

TEST_F(PageImageWindowTest, AFoldersPicturesArePickedFromTheMenu) {
    open().mSetImage(errata());
    show();
    EXPECT_EQ(title(), "errata");
    EXPECT_EQ(window->pImagePUArray(), (std::vector<std::string>{"a.bmp", "b.txt", "c.bmp"}));
    EXPECT_EQ(button("ImagePU").MenuValue(), 0);
    EXPECT_EQ(button("ImagePU").Caption(), "3 image(s) exist(s)");
    EXPECT_EQ(window->pCurrentImageSize(), (Extent{600, 500}));
    pick("ImagePU", 1);
    EXPECT_EQ(host.messages, notAPicture);
    ASSERT_EQ(button("ImagePU").rowCount(), 2) << "what is not a picture leaves the menu";
    EXPECT_EQ(window->pCurrentImageSize(), (Extent{600, 500}));
    pick("ImagePU", 1);
    EXPECT_EQ(window->pCurrentImageSize(), (Extent{700, 400}));
    EXPECT_EQ(title(), "errata");
    EXPECT_EQ(button("ImagePU").MenuValue(), 1);
    EXPECT_TRUE(window->pImagePUArray().empty());

    window->mSetImage(picture("page [*] 7.bmp", 640, 480)); // a file from elsewhere
    EXPECT_EQ(title(), "page [*][*] 7.bmp") << "doubled, so that Qt shows it as it is";
    EXPECT_TRUE(window->pParFol().isNil());
    EXPECT_EQ(button("ImagePU").rowCount(), 0);
    EXPECT_FALSE(button("ImagePU").isEnabled());
    window->mSetImage(errata());
    EXPECT_TRUE(button("ImagePU").isEnabled());
}

TEST_F(PageImageWindowTest, FolderWhoseFirstItemIsNotAPictureSaysSoInTheTipAlone) {
    files.write("mixed/a.txt", "text");
    picture("mixed/b.bmp", 20, 20);
    picture("mixed/inner/x.bmp", 30, 30);
    open().mSetImage(FolderItem(files.path() / "mixed"));
    show();
    EXPECT_TRUE(host.messages.empty());
    EXPECT_EQ(button("ImagePU").rowCount(), 3);
    auto& canvas = control<SmartCanvas>("MainCanvas");
    EXPECT_FALSE(canvas.hasImage());
    EXPECT_EQ(canvas.toolTip(), "a.txt: its content is not a picture in a known format");
    EXPECT_EQ(canvas.accessibleDescription(), canvas.toolTip());
    pick("ImagePU", 1);
    EXPECT_EQ(canvas.toolTip(), "");
    EXPECT_EQ(canvas.accessibleDescription(), "b.bmp");
    pick("ImagePU", 2);
    EXPECT_EQ(title(), "inner") << "a folder within the folder";
    EXPECT_EQ(button("ImagePU").List(0), "x.bmp");
}

TEST_F(PageImageWindowTest, FolderOfHiddenItemsAloneClosesTheWindow) {
    picture("hidden/.a.bmp", 16, 16);
    open().mSetImage(FolderItem(files.path() / "hidden"));
    EXPECT_EQ(closings, 1);
    EXPECT_FALSE(pPageImageShown);
    destroyClosedWindows();
    EXPECT_TRUE(window.isNull());
}

TEST_F(PageImageWindowTest, AFileThatIsNotAPictureIsReportedAndThePictureBeforeItStays) {
    const std::pair<const char*, std::string> cases[] = {{"missing.tif", ""},    {"a.txt", "text"},
                                                         {"a.TIF", oneBitBmp()}, {"a.tiff", oneBitBmp()},
                                                         {"a.JPG", oneBitBmp()}, {"a.bmp", oneBitBmp().substr(0, 40)}};
    open().mSetImage(picture("good.bmp", 640, 480));
    for (const auto& [name, bytes] : cases) {
        SCOPED_TRACE(name);
        host.messages.clear();
        if (!bytes.empty())
            files.write(name, bytes);
        window->mSetImage(FolderItem(files.path() / name));
        EXPECT_EQ(host.messages, notAPicture);
        EXPECT_EQ(title(), name);
        EXPECT_EQ(window->pCurrentImageSize(), (Extent{640, 480}));
        EXPECT_TRUE(control<SmartCanvas>("MainCanvas").hasImage());
    }
}

TEST_F(PageImageWindowTest, ThePickedOrTypedRatioSetsTheSize) {
    const std::string tooSmall = "The selected ratio is too small.", tooBig = "The selected ratio is too big.";
    open().mSetImage(picture("p.bmp", 780, 640));
    show();
    pick("RatioPU", 2);
    EXPECT_EQ(std::pair(ratioText(), info()), std::pair("25"s, tooSmall));
    EXPECT_EQ(window->size(), QSize(580, 505));
    window->mSetImage(picture("p.bmp", 2000, 1600));
    EXPECT_EQ(window->size(), QSize(580, 430)) << "the next picture takes it";
    pick("RatioPU", 5);
    EXPECT_EQ(std::pair(ratioText(), info()), std::pair("50"s, ""s));
    EXPECT_EQ(window->size(), QSize(1000, 830));
    EXPECT_EQ(control<SmartCanvas>("MainCanvas").geometry(), QRect(13, 33, 974, 777));
    for (const auto& [typed, text, said] :
         {std::tuple("3x", "3"s, tooSmall), std::tuple("1509", "150"s, tooBig), std::tuple("", ""s, ""s)}) {
        type(typed);
        QTest::keyClick(&control<QLineEdit>("RatioEF"), Qt::Key_Return);
        EXPECT_EQ(std::pair(ratioText(), info()), std::pair(text, said)) << "digits alone, and three of them";
    }
}

TEST_F(PageImageWindowTest, ButtonsStepThePagesOfTheirMainWindowWhileItHasTheTab) {
    auto pages = std::make_shared<RecordedPages>();
    open().setMainWin(pages, 2);
    show();
    const std::vector<std::string> stepped = {"page 0 2", "page 1 2", "screenful 0 2", "screenful 1 2"};
    for (const int tabs : {3, 2, 0}) {
        pages->tabs = tabs;
        for (const char* name : {"MainWinPage.0", "MainWinPage.1", "UpDown.0", "UpDown.1"})
            click(name);
        EXPECT_EQ(pages->steps, stepped);
    }
    pages.reset();
    click("UpDown.0");
    EXPECT_TRUE(host.messages.empty());
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

TEST_F(PageImageWindowTest, PreferencesThatCannotBeWrittenAreReportedOnceAndTheWindowCloses) {
    std::filesystem::create_directory(preferences.path() / "PageImageW_Pref.txt");
    open();
    window->close();
    window->close();
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
    const auto pages = std::make_shared<RecordedPages>();
    open().mSetImage(errata());
    window->setMainWin(pages, 0);
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
