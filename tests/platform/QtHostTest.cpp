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

TEST(QtHost, MessagesAreShownAsPlainTextAndLongOnesInPart) {
    std::string lines;
    for (int line = 0; line < 5000; ++line)
        lines += std::to_string(line) + "\n";
    const struct {
        std::string text;
        QString shown, inFull;
    } cases[] = {{"<b>a</b> & <img src=x>", "<b>a</b> & <img src=x>", ""},
                 {"taken:\rone\r\ntwo\nthree", "taken:\none\ntwo\nthree", ""},
                 {"辞書 a\xFF", QStringLiteral(u"辞書 a\uFFFD"), ""},
                 {std::string("a\0b", 3), QStringLiteral(u"a\uFFFDb"), ""},
                 {lines, toQ(lines.substr(0, lines.find("\n24\n"))) + u'…', toQ(lines)},
                 {std::string(9000, 'x'), QString(2000, 'x') + u'…', QString(9000, 'x')}};
    for (const auto& each : cases) {
        whenUp<QMessageBox>([&each](QMessageBox* box) {
            EXPECT_EQ(box->text(), each.shown);
            EXPECT_EQ(box->textFormat(), Qt::PlainText);
            EXPECT_EQ(box->detailedText(), each.inFull);
            EXPECT_LT(box->height(), 800);
            QTest::mouseClick(box->button(QMessageBox::Ok), Qt::LeftButton);
        });
        QtHost().MsgBox(each.text);
    }
}

TEST(QtHost, OnlyTheYesButtonMeansYes) {
    const std::pair<std::function<void(QMessageBox*)>, Host::Answer> cases[] = {
        {[](QMessageBox* box) { QTest::mouseClick(box->button(QMessageBox::Yes), Qt::LeftButton); }, Host::Answer::Yes},
        {[](QMessageBox* box) { QTest::mouseClick(box->button(QMessageBox::No), Qt::LeftButton); }, Host::Answer::No},
        {[](QMessageBox* box) { QTest::keyClick(box, Qt::Key_Escape); }, Host::Answer::No},
        {[](QMessageBox* box) { box->close(); }, Host::Answer::No}};
    for (const auto& [act, answer] : cases) {
        whenUp<QMessageBox>(act);
        EXPECT_EQ(QtHost().askYesNo("Update?"), answer);
    }
}

TEST(QtHost, KeysAreThoseHeldNow) {
    QWidget window;
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    QtHost host;
    for (const auto held : {Qt::NoModifier, Qt::ShiftModifier, Qt::ControlModifier, Qt::AltModifier}) {
        QTest::keyPress(&window, Qt::Key_A, held);
        EXPECT_EQ(host.AsyncShiftKey(), held == Qt::ShiftModifier);
        EXPECT_EQ(host.AsyncCommandKey(), held == Qt::ControlModifier);
        EXPECT_EQ(host.AsyncOptionKey(), held == Qt::AltModifier);
        QTest::keyRelease(&window, Qt::Key_A);
    }
}

TEST(QtHost, FolderDialogGivesTheFolderAndStartsThereTheNextTime) {
    const test::TempFolder folder;
    const std::filesystem::path chosen = folder.path() / "Latin é";
    std::filesystem::create_directory(chosen);
    QtHost host;
    whenUp<QFileDialog>([&](QFileDialog* dialog) {
        EXPECT_EQ(dialog->findChild<QLabel*>("Prompt")->text(), "Choose a folder");
        dialog->setDirectory(pathToQ(chosen));
        dialog->selectFile(QString());
        QTest::keyClick(dialog, Qt::Key_Return);
    });
    EXPECT_EQ(host.SelectFolder("Choose a folder"), chosen);
    whenUp<QFileDialog>([&](QFileDialog* dialog) {
        EXPECT_EQ(pathFromQ(dialog->directory().absolutePath()), chosen);
        dialog->reject();
    });
    EXPECT_EQ(host.SelectFolder("Choose a folder"), "");
}

TEST(QtHost, TypedFoldersAreTakenOrRefused) {
    using enum Host::FolderChoice;
    const struct {
        const char* typed;
        Host::FolderChoice choice;
        bool taken; ///< otherwise the dialog says why not and stays up
    } cases[] = {{"There", Existing, true},   {"New", Existing, false},      {"There", MayBeNew, true},
                 {"New one", MayBeNew, true}, {"There/New", MayBeNew, true}, {"The \"new\" one", MayBeNew, true},
                 {"", MayBeNew, false},       {"Gone/New", MayBeNew, false}, {"file", MayBeNew, false}};
    for (const auto& each : cases) {
        SCOPED_TRACE(each.typed);
        const test::TempFolder folder;
        std::filesystem::create_directory(folder.path() / "There");
        folder.write("file", "x");
        bool refused = false;
        whenUp<QFileDialog>([&](QFileDialog* dialog) {
            EXPECT_EQ(pathFromQ(dialog->directory().absolutePath()), folder.path());
            auto* name = dialog->findChild<QLineEdit*>("fileNameEdit");
            name->setText(each.typed);
            QTimer::singleShot(0, [&refused] {
                auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
                refused = box != nullptr;
                if (refused)
                    box->reject();
            });
            QTest::keyClick(name, Qt::Key_Return);
            if (dialog->isVisible())
                dialog->reject();
            QCoreApplication::processEvents();
        });
        const std::filesystem::path chosen = QtHost().SelectFolder("Choose", folder.path(), each.choice);
        EXPECT_EQ(chosen, each.taken ? folder.path() / each.typed : "");
        EXPECT_EQ(refused, !each.taken);
    }
}

TEST(QtHost, FileDialogOffersTheExtensionsFirst) {
    const test::TempFolder folder;
    folder.write("words.txt", "x");
    whenUp<QFileDialog>([&](QFileDialog* dialog) {
        EXPECT_EQ(dialog->nameFilters(), (QStringList{"Usual files (*.txt *.dic)", "All files (*)"}));
        dialog->setDirectory(pathToQ(folder.path()));
        dialog->selectFile("words.txt");
        static_cast<QDialog*>(dialog)->accept();
    });
    EXPECT_EQ(QtHost().GetOpenFile("Choose", {".txt", ".dic"}), folder.path() / "words.txt");
}

/// A host whose clock is set by hand, and an event that counts its runs.
struct YieldTest : ::testing::Test {
    std::chrono::steady_clock::time_point now = std::chrono::steady_clock::now();
    QtHost host{[this] { return now; }};
    int pumped = 0;

    void SetUp() override { QCoreApplication::processEvents(); }
};

TEST_F(YieldTest, PumpsAtMostEveryThirtyMilliseconds) {
    const std::pair<int, bool> steps[] = {{0, true}, {29, false}, {1, true}, {10, false}, {19, false}, {1, true}};
    for (const auto& [milliseconds, pumps] : steps) {
        now += std::chrono::milliseconds(milliseconds);
        pumped = 0;
        QTimer::singleShot(0, [this] { ++pumped; });
        host.Yield();
        EXPECT_EQ(pumped > 0, pumps) << "after " << milliseconds << " ms";
    }
}

TEST_F(YieldTest, LoopInsideAPumpedHandlerDoesNotPumpAgain) {
    QTimer::singleShot(0, [this] {
        QTimer::singleShot(0, [this] { ++pumped; });
        now += std::chrono::seconds(1);
        host.Yield();
        EXPECT_EQ(pumped, 0);
    });
    host.Yield();
    now += std::chrono::seconds(1);
    host.Yield();
    EXPECT_EQ(pumped, 1);
}

} // namespace
} // namespace velmarin
