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

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QScreen>
#include <QTest>

#include <sys/stat.h>

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
    EXPECT_EQ(button("ImagePU").rowCount(), 3);
    EXPECT_EQ(button("ImagePU").MenuValue(), 0);
    EXPECT_EQ(button("ImagePU").Caption(), "3 image(s) exist(s)");
    EXPECT_TRUE(button("ImagePU").isEnabled());
    EXPECT_EQ(window->pCurrentImageSize(), (Extent{600, 500}));
    EXPECT_EQ(control<SmartCanvas>("MainCanvas").Mode(), 0);
    EXPECT_TRUE(host.messages.empty());
}

TEST_F(PageImageWindowTest, FolderWhoseFirstItemIsNoPictureSaysNothing) {
    files.write("mixed/a.txt", "no picture");
    picture("mixed/b.bmp", 20, 20);
    open().mSetImage(FolderItem(files.path() / "mixed"));
    EXPECT_TRUE(host.messages.empty());
    EXPECT_EQ(button("ImagePU").rowCount(), 2);
    EXPECT_FALSE(control<SmartCanvas>("MainCanvas").hasImage());
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
    window->mSetImage(errata());
    EXPECT_EQ(window->pImagePUArray().size(), 3u);
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

struct NoPictureCase {
    const char* name;
    const char* file;
    std::string bytes;
};
class NoPicture : public PageImageWindowTest, public ::testing::WithParamInterface<NoPictureCase> {};

TEST_P(NoPicture, IsToldOfAndThePictureBeforeItStays) {
    open().mSetImage(picture("good.bmp", 640, 480));
    if (!GetParam().bytes.empty())
        files.write(GetParam().file, GetParam().bytes);
    window->mSetImage(FolderItem(files.path() / GetParam().file));
    EXPECT_EQ(host.messages, (std::vector<std::string>{"Error:This is not a picture file."}));
    EXPECT_EQ(title(), GetParam().file);
    EXPECT_EQ(window->pCurrentImageSize(), (Extent{640, 480}));
    EXPECT_TRUE(control<SmartCanvas>("MainCanvas").hasImage());
}

INSTANTIATE_TEST_SUITE_P(PageImageWindow, NoPicture,
                         ::testing::Values(NoPictureCase{"Missing", "missing.tif", ""},
                                           NoPictureCase{"Text", "a.txt", "no picture"},
                                           NoPictureCase{"OtherFormatCalledTif", "a.TIF", oneBitBmp()},
                                           NoPictureCase{"OtherFormatCalledTiff", "a.tiff", oneBitBmp()},
                                           NoPictureCase{"OtherFormatCalledJpeg", "a.JPG", oneBitBmp()},
                                           NoPictureCase{"CutShort", "a.bmp", oneBitBmp().substr(0, 40)}),
                         [](const auto& info) { return info.param.name; });

struct LoadCase {
    const char* name;
    const char* ratio;
    int width, height;
    QSize window;
};
class LoadAtRatio : public PageImageWindowTest, public ::testing::WithParamInterface<LoadCase> {};

TEST_P(LoadAtRatio, GivesTheWindowItsSizeAndThePageTheRest) {
    const LoadCase& row = GetParam();
    open();
    show();
    type(row.ratio);
    window->mSetImage(picture("p.bmp", row.width, row.height));
    EXPECT_EQ(window->size(), row.window);
    EXPECT_EQ(control<SmartCanvas>("MainCanvas").geometry(),
              QRect(13, 33, row.window.width() - 26, row.window.height() - 53));
}

INSTANTIATE_TEST_SUITE_P(PageImageWindow, LoadAtRatio,
                         ::testing::Values(LoadCase{"Whole", "100", 640, 480, {640, 510}},
                                           LoadCase{"ZeroIsWhole", "0", 640, 480, {640, 510}},
                                           LoadCase{"EmptyIsWhole", "", 640, 480, {640, 510}},
                                           LoadCase{"Half", "50", 1400, 1000, {700, 530}},
                                           LoadCase{"HigherThanTheScreen", "50", 1000, 1500, {580, 780}},
                                           LoadCase{"BeyondTheScreen", "100", 2100, 2970, {2100, 3000}},
                                           LoadCase{"LeastSize", "20", 2000, 600, {580, 400}},
                                           LoadCase{"TooNarrow", "30", 1000, 1000, {580, 610}}),
                         [](const auto& info) { return info.param.name; });

struct RatioCase {
    const char* name;
    int row;
    const char* text;
    QSize window;
    const char* info;
};
class PickedRatio : public PageImageWindowTest, public ::testing::WithParamInterface<RatioCase> {};

TEST_P(PickedRatio, FillsTheFieldAndSetsTheSize) {
    open().mSetImage(picture("p.bmp", 780, 640));
    show();
    pick("RatioPU", 0);
    pick("RatioPU", GetParam().row);
    EXPECT_EQ(ratioText(), GetParam().text);
    EXPECT_EQ(window->size(), GetParam().window);
    EXPECT_EQ(info(), GetParam().info);
}

INSTANTIATE_TEST_SUITE_P(
    PageImageWindow, PickedRatio,
    ::testing::Values(RatioCase{"TooSmall", 2, "25", {580, 505}, "The selected ratio is too small."},
                      RatioCase{"HalfClearsTheMessage", 5, "50", {580, 505}, ""},
                      RatioCase{"ThreeQuarters", 8, "75", {585, 510}, ""},
                      RatioCase{"Whole", 11, "100", {780, 670}, ""}),
    [](const auto& info) { return info.param.name; });

TEST_F(PageImageWindowTest, RatioBeforeAnyPictureGivesTheLeastSize) {
    open();
    show();
    pick("RatioPU", 3);
    EXPECT_EQ(window->size(), QSize(580, 400));
    EXPECT_EQ(info(), "The selected ratio is too small.");
    EXPECT_EQ(ratioText(), "30");
}

TEST_F(PageImageWindowTest, ReturnTakesTheTypedRatioAndTheFieldHoldsThreeDigits) {
    open().mSetImage(picture("p.bmp", 780, 640));
    show();
    pick("RatioPU", 11);
    const QSize whole = window->size();
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
    EXPECT_EQ(window->size(), whole);
}

TEST_F(PageImageWindowTest, ButtonsStepThePagesOfTheirMainWindow) {
    const auto stepper = std::make_shared<RecordingStepper>();
    open().setMainWin(stepper, 2);
    show();
    for (const char* name : {"MainWinPage.0", "MainWinPage.1", "UpDown.0", "UpDown.1"})
        click(name);
    EXPECT_EQ(stepper->steps, (std::vector<std::tuple<std::string, int, int>>{
                                  {"page", 0, 2}, {"page", 1, 2}, {"screenful", 0, 2}, {"screenful", 1, 2}}));
}

TEST_F(PageImageWindowTest, ButtonsDoNothingOnceTheirMainWindowOrItsTabIsGone) {
    auto stepper = std::make_shared<RecordingStepper>();
    open().setMainWin(stepper, 2);
    show();
    stepper->tabs = 2;
    click("MainWinPage.1");
    click("UpDown.1");
    EXPECT_TRUE(stepper->steps.empty());
    stepper.reset();
    click("MainWinPage.0");
    click("UpDown.0");
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

struct PreferencesCase {
    const char* name;
    std::string file;
    QPoint place;
    const char* ratio;
};
class Preferences : public PageImageWindowTest, public ::testing::WithParamInterface<PreferencesCase> {};

TEST_P(Preferences, GivePlaceAndRatioAndAreWrittenAnewAtTheEnd) {
    preferences.write("PageImageW_Pref.txt", GetParam().file);
    open();
    EXPECT_EQ(window->pos(), GetParam().place);
    EXPECT_EQ(ratioText(), GetParam().ratio);
    window->close();
    const QPoint place = GetParam().place;
    EXPECT_EQ(preferences.read("PageImageW_Pref.txt"),
              std::to_string(place.x()) + "\n" + std::to_string(place.y()) + "\n" + GetParam().ratio + "\n");
}

INSTANTIATE_TEST_SUITE_P(
    PageImageWindow, Preferences,
    ::testing::Values(PreferencesCase{"AsWritten", "120\n45\n30\n", {120, 45}, "30"},
                      PreferencesCase{"OtherLineEnds", "120\r\n45\r30", {120, 45}, "30"},
                      PreferencesCase{"LeftOfTheScreen", "-20.9\n-7\n0\n", {-20, -7}, "0"},
                      PreferencesCase{"OneLine", "120\n", {120, 0}, ""}, PreferencesCase{"Empty", "", {0, 0}, ""},
                      PreferencesCase{"NoNumbers", "a\nb\n\n", {0, 0}, ""},
                      PreferencesCase{"NumbersOfNoScreen", "9999999999\n-9999999999\n100\n", {32767, -32768}, "100"},
                      PreferencesCase{"MoreThanThreeDigits", "1\n2\n12345\n", {1, 2}, "123"}),
    [](const auto& info) { return info.param.name; });

TEST_F(PageImageWindowTest, ReopenedWindowIsWhereItWasWithItsRatio) {
    open().mSetImage(picture("p.bmp", 640, 480));
    EXPECT_TRUE(pPageImageShown);
    EXPECT_EQ(ratioText(), "100");
    show();
    window->move(60, 70);
    type("40");
    window->close();
    EXPECT_FALSE(pPageImageShown);
    destroyClosedWindows();
    ASSERT_TRUE(window.isNull());
    open();
    EXPECT_TRUE(pPageImageShown);
    EXPECT_EQ(window->pos(), QPoint(60, 70));
    EXPECT_EQ(ratioText(), "40");
}

TEST_F(PageImageWindowTest, PreferencesThatAreNoFileCountAsNone) {
    ASSERT_EQ(mkfifo((preferences.path() / "PageImageW_Pref.txt").c_str(), 0600), 0);
    open();
    EXPECT_EQ(ratioText(), "100");
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

struct ClosingCase {
    const char* name;
    std::function<void(PageImageWindow&)> act;
};
class Closing : public PageImageWindowTest, public ::testing::WithParamInterface<ClosingCase> {};

TEST_P(Closing, ClosesOnceAndDestroysTheWindow) {
    open().mSetImage(picture("p.bmp", 640, 480));
    show();
    GetParam().act(*window);
    EXPECT_EQ(closings, 1);
    EXPECT_FALSE(window->isVisible());
    destroyClosedWindows();
    EXPECT_TRUE(window.isNull());
}

INSTANTIATE_TEST_SUITE_P(
    PageImageWindow, Closing,
    ::testing::Values(
        ClosingCase{"Escape", [](auto& window) { QTest::keyClick(&window, Qt::Key_Escape); }},
        ClosingCase{"EscapeInTheField",
                    [](auto& window) {
                        auto* field = window.template findChild<QLineEdit*>();
                        field->setFocus();
                        QTest::keyClick(field, Qt::Key_Escape);
                    }},
        ClosingCase{"CtrlW", [](auto& window) { QTest::keyClick(&window, Qt::Key_W, Qt::ControlModifier); }},
        ClosingCase{"Button",
                    [](auto& window) { QTest::mouseClick(window.template findChild<QPushButton*>(), Qt::LeftButton); }},
        ClosingCase{"ReturnOnTheButton",
                    [](auto& window) {
                        auto* button = window.template findChild<QPushButton*>();
                        button->setFocus();
                        QTest::keyClick(button, Qt::Key_Return);
                    }}),
    [](const auto& info) { return info.param.name; });

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
        EXPECT_FALSE(focused->accessibleName().isEmpty() && focused->objectName() != "PushButton1") << reached.back();
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
