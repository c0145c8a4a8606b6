#include "platform/QtHost.h"

#include "platform/QtText.h"
#include "support/TempFolder.h"

#include <QApplication>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

#include <memory>

namespace velmarin {
namespace {

/// Does `act` with the box or dialog that comes up next.
template <typename Dialog, typename Act> void whenUp(Act act) {
    QTimer::singleShot(0, [act] {
        auto* dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        act(dialog);
    });
}

TEST(QtHost, MessagesAreShownAsPlainText) {
    const struct {
        const char* name;
        std::string text;
        QString shown;
    } cases[] = {{"Markup", "<b>a</b> & <img src=x>", "<b>a</b> & <img src=x>"},
                 {"CarriageReturn", "taken:\rEnglish\rLatin", "taken:\nEnglish\nLatin"},
                 {"BothLineEnds", "one\r\ntwo\nthree", "one\ntwo\nthree"},
                 {"Japanese", "\xE8\xBE\x9E\xE6\x9B\xB8", QStringLiteral(u"\u8F9E\u66F8")},
                 {"InvalidUtf8", "a\xFF", QStringLiteral(u"a\uFFFD")},
                 {"Nul", std::string("a\0b", 3), QStringLiteral(u"a\uFFFDb")}};
    for (const auto& each : cases) {
        SCOPED_TRACE(each.name);
        QtHost host;
        QString shown;
        Qt::TextFormat format = Qt::AutoText;
        whenUp<QMessageBox>([&](QMessageBox* box) {
            shown = box->text();
            format = box->textFormat();
            QTest::mouseClick(box->button(QMessageBox::Ok), Qt::LeftButton);
        });
        host.MsgBox(each.text);
        EXPECT_EQ(shown, each.shown);
        EXPECT_EQ(format, Qt::PlainText);
    }
}

TEST(QtHost, LongMessageIsShownInPartWithTheWholeOneClickAway) {
    std::string text;
    for (int line = 0; line < 5000; ++line)
        text += "dictionary " + std::to_string(line) + "\n";
    QtHost host;
    QString shown, whole;
    int height = 0;
    whenUp<QMessageBox>([&](QMessageBox* box) {
        shown = box->text();
        whole = box->detailedText();
        height = box->height();
        box->reject();
    });
    host.MsgBox(text);
    EXPECT_TRUE(shown.startsWith("dictionary 0\n"));
    EXPECT_LT(shown.count('\n'), 30);
    EXPECT_LT(height, 800);
    EXPECT_EQ(whole, toQ(text));
}

TEST(QtHost, QuestionsAreAnsweredAsTheUserDoes) {
    const struct {
        const char* name;
        std::function<void(QMessageBox*)> act;
        Host::Answer answer;
    } cases[] = {{"Yes", [](QMessageBox* box) { QTest::mouseClick(box->button(QMessageBox::Yes), Qt::LeftButton); },
                  Host::Answer::Yes},
                 {"No", [](QMessageBox* box) { QTest::mouseClick(box->button(QMessageBox::No), Qt::LeftButton); },
                  Host::Answer::No},
                 {"Escape", [](QMessageBox* box) { QTest::keyClick(box, Qt::Key_Escape); }, Host::Answer::No},
                 {"CloseButton", [](QMessageBox* box) { box->close(); }, Host::Answer::No}};
    for (const auto& each : cases) {
        SCOPED_TRACE(each.name);
        QtHost host;
        whenUp<QMessageBox>(each.act);
        EXPECT_EQ(host.askYesNo("Update?"), each.answer);
    }
}

TEST(QtHost, KeysAreThoseHeldNow) {
    QWidget window;
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    QtHost host;
    const auto held = [&](Qt::KeyboardModifiers modifiers) {
        QTest::keyPress(&window, Qt::Key_A, modifiers);
        const auto keys = std::vector<bool>{host.AsyncShiftKey(), host.AsyncCommandKey(), host.AsyncOptionKey()};
        QTest::keyRelease(&window, Qt::Key_A);
        return keys;
    };
    EXPECT_EQ(held(Qt::NoModifier), (std::vector<bool>{false, false, false}));
    EXPECT_EQ(held(Qt::ShiftModifier), (std::vector<bool>{true, false, false}));
    EXPECT_EQ(held(Qt::ControlModifier), (std::vector<bool>{false, true, false}));
    EXPECT_EQ(held(Qt::AltModifier), (std::vector<bool>{false, false, true}));
}

TEST(QtHost, FolderDialogGivesTheFolderAndStartsThereTheNextTime) {
    const test::TempFolder folder;
    std::filesystem::create_directory(folder.path() / "Latin \xC3\xA9");
    QtHost host;
    whenUp<QFileDialog>([&](QFileDialog* dialog) {
        EXPECT_EQ(dialog->findChild<QLabel*>("Prompt")->text(), "Choose a folder");
        dialog->setDirectory(pathToQ(folder.path() / "Latin \xC3\xA9"));
        dialog->selectFile(QString());
        QTest::keyClick(dialog, Qt::Key_Return);
    });
    EXPECT_EQ(host.SelectFolder("Choose a folder"), folder.path() / "Latin \xC3\xA9");
    whenUp<QFileDialog>([&](QFileDialog* dialog) {
        EXPECT_EQ(pathFromQ(dialog->directory().absolutePath()), folder.path() / "Latin \xC3\xA9");
        dialog->reject();
    });
    EXPECT_EQ(host.SelectFolder("Choose a folder"), "");
}

constexpr auto kExisting = Host::FolderChoice::Existing;
constexpr auto kMayBeNew = Host::FolderChoice::MayBeNew;
TEST(QtHost, TypedFoldersAreTakenOrRefused) {
    const struct {
        const char* name;
        const char* typed;
        Host::FolderChoice choice;
        const char* chosen; ///< in the folder that is open; null: the dialog refuses it and stays up
    } cases[] = {{"There", "There", kExisting, "There"},
                 {"NewWhereItMustExist", "New", kExisting, nullptr},
                 {"ThereWhereItMayBeNew", "There", kMayBeNew, "There"},
                 {"New", "New one", kMayBeNew, "New one"},
                 {"NewInsideAnother", "There/New", kMayBeNew, "There/New"},
                 {"InNone", "Gone/New", kMayBeNew, nullptr},
                 {"File", "file", kMayBeNew, nullptr}};
    for (const auto& each : cases) {
        SCOPED_TRACE(each.name);
        const test::TempFolder folder;
        std::filesystem::create_directory(folder.path() / "There");
        folder.write("file", "x");
        bool refused = false;
        whenUp<QFileDialog>([&](QFileDialog* dialog) {
            EXPECT_EQ(pathFromQ(dialog->directory().absolutePath()), folder.path());
            auto* name = dialog->findChild<QLineEdit*>("fileNameEdit");
            name->setText(each.typed);
            QTimer::singleShot(0, [&refused] {
                if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
                    refused = true;
                    box->reject();
                }
            });
            QTest::keyClick(name, Qt::Key_Return);
            if (dialog->isVisible())
                dialog->reject();
            QCoreApplication::processEvents();
        });
        QtHost host;
        const std::filesystem::path chosen = host.SelectFolder("Choose", folder.path(), each.choice);
        EXPECT_EQ(chosen, each.chosen == nullptr ? std::filesystem::path() : folder.path() / each.chosen);
        EXPECT_EQ(refused, each.chosen == nullptr);
    }
}

TEST(QtHost, FileDialogOffersTheExtensionsFirst) {
    const test::TempFolder folder;
    folder.write("words.txt", "x");
    QtHost host;
    whenUp<QFileDialog>([&](QFileDialog* dialog) {
        EXPECT_EQ(dialog->nameFilters(), (QStringList{"Usual files (*.txt *.dic)", "All files (*)"}));
        dialog->setDirectory(pathToQ(folder.path()));
        dialog->selectFile("words.txt");
        static_cast<QDialog*>(dialog)->accept();
    });
    EXPECT_EQ(host.GetOpenFile("Choose", {".txt", ".dic"}), folder.path() / "words.txt");
}

/// A host whose clock is set by hand, and an event that counts its runs.
struct YieldTest : ::testing::Test {
    std::chrono::steady_clock::time_point now = std::chrono::steady_clock::now();
    QtHost host{[this] { return now; }};
    int pumped = 0;

    void SetUp() override { QCoreApplication::processEvents(); }
    void postEvent() {
        QMetaObject::invokeMethod(
            qApp, [this] { ++pumped; }, Qt::QueuedConnection);
    }
};

TEST_F(YieldTest, PumpsAtMostEveryThirtyMilliseconds) {
    struct Step {
        int milliseconds;
        bool pumps;
    };
    for (const Step step : {Step{0, true}, Step{29, false}, Step{1, true}, Step{10, false}, Step{19, false},
                            Step{1, true}, Step{0, false}, Step{1000, true}}) {
        now += std::chrono::milliseconds(step.milliseconds);
        pumped = 0;
        postEvent();
        host.Yield();
        EXPECT_EQ(pumped > 0, step.pumps) << "after " << step.milliseconds << " ms";
    }
}

TEST_F(YieldTest, LoopInsideAPumpedHandlerDoesNotPumpAgain) {
    QMetaObject::invokeMethod(
        qApp,
        [this] {
            postEvent();
            now += std::chrono::seconds(1);
            host.Yield();
            EXPECT_EQ(pumped, 0);
        },
        Qt::QueuedConnection);
    host.Yield();
    now += std::chrono::seconds(1);
    host.Yield();
    EXPECT_EQ(pumped, 1);
}

} // namespace
} // namespace velmarin
