#include "workshop/WorkshopWindow.h"
#include "ScriptedBook.h"
#include "platform/QtText.h"
#include "platform/ScriptedHost.h"
#include "support/TempFolder.h"
#include "view/Encoders.h"
#include "view/SmartCanvas.h"
#include "workshop/NewBookDialog.h"
#include "workshop/NoticeBar.h"
#include "workshop/WorkshopDesk.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QTreeView>

#include <gtest/gtest.h>

namespace velmarin::test {
namespace {

class Shown {
  public:
    Shown() {
        window.show();
        QApplication::setActiveWindow(&window);
        QApplication::processEvents();
    }
    explicit Shown(const std::string& rows, const std::function<void(ScriptedBook&)>& prepare = {}) : Shown() {
        auto made = std::make_unique<ScriptedBook>();
        book = made.get();
        if (prepare)
            prepare(*book);
        window.openBook(std::move(made), draftOf(rows));
        QApplication::processEvents();
    }

    template <typename T> T& control(const char* name) {
        T* found = window.findChild<T*>(QLatin1String(name));
        if (found == nullptr)
            throw std::runtime_error(std::string("there is no ") + name);
        return *found;
    }
    std::string text(const char* label) { return fromQ(control<QLabel>(label).text()); }
    std::string field(const char* name) { return fromQ(control<QLineEdit>(name).text()); }
    std::string fields() { return field("FirstEF") + "|" + field("LastEF") + "|" + field("NumberEF"); }
    /// The page whose words the fields have, and the one that is selected in the list.
    std::string pages() {
        const QModelIndex row = control<QTreeView>("PagesLB").currentIndex();
        return field("NumberEF") + " " + fromQ(row.siblingAtColumn(0).data().toString());
    }
    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
        QApplication::processEvents();
    }
    void type(const char* text) { QTest::keyClicks(QApplication::focusWidget(), QLatin1String(text)); }
    std::string rows() { return rowsOf(window.desk()->model().draft()); }

    ScriptedHost host;
    WorkshopWindow window{host};
    ScriptedBook* book = nullptr;
};

TEST(WorkshopWindow, APersonSetsTheDoubtfulPagesByKeys) {
    Shown run("a+ m? d? e? g+ x?");
    EXPECT_EQ(run.pages(), "2 2");
    run.type("b"); // the guess is selected, so that typing replaces it
    run.key(Qt::Key_Return);
    EXPECT_EQ(run.rows(), "a+ b! c~ e? g+ x?");
    EXPECT_EQ(run.pages() + " " + run.fields(), "4 4 e|e|4");
    EXPECT_EQ(run.text("CountsST"), "2 certain, 1 mended, 2 doubtful, 1 set: 2 to look at");
    run.key(Qt::Key_F8);
    EXPECT_EQ(run.rows(), "a+ b! c~ -! g+ x?");
    EXPECT_EQ(run.pages(), "6 6");
    run.key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(run.rows() + " " + run.fields(), "a+ b! c~ e? g+ x? e|e|4");
    run.key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(run.rows(), "a+ m? d? e? g+ x?") << "what was mended in consequence goes back with it";
    run.key(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    run.key(Qt::Key_Up);
    run.key(Qt::Key_Up);
    EXPECT_EQ(run.pages(), "1 1");
    run.key(Qt::Key_F3, Qt::ShiftModifier);
    run.key(Qt::Key_Return);
    run.key(Qt::Key_Return);
    EXPECT_TRUE(run.window.desk()->notice().text().startsWith(QStringLiteral("No page is left to look at.")));
    EXPECT_EQ(rowsOf(run.book->savedDraft), "a+ b! c~ e! g+ x!");
}

TEST(WorkshopWindow, WhatIsTypedIsJudgedAtOnceAndKeptOnTheWay) {
    Shown run("a+ m? d+ e?", [](ScriptedBook& book) {
        book.guesses["2.tif"] = {
            .page = "2.tif", .first = {{"m", 0.5}, {"n", 0.2}, {"b<", 0.2}}, .last = {{"m", 0.6}, {"c", 0.1}}};
    });
    const auto message = [&run](const char* name) {
        return fromQ(run.control<QLineEdit>(name).accessibleDescription());
    };
    EXPECT_EQ(message("FirstEF"), "⚠ comes after ‘d’ on page 3");
    run.type("b");
    EXPECT_EQ(message("FirstEF"), "✓ in order");
    run.key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(run.field("FirstEF") + run.rows(), "ma+ m? d+ e?") << "a field takes back its own typing first";
    run.key(Qt::Key_2, Qt::AltModifier);
    run.key(Qt::Key_3, Qt::AltModifier);
    EXPECT_EQ(run.fields(), "b<|c|2");
    run.key(Qt::Key_Escape);
    EXPECT_EQ(run.fields(), "m|m|2");
    run.type("b");
    run.key(Qt::Key_Down);
    EXPECT_EQ(run.rows() + " " + run.pages(), "a+ b! d+ e? 3 3");
    QTest::keyClicks(&run.control<QLineEdit>("LastEF"), QStringLiteral("k"));
    run.control<QTreeView>("PagesLB").setCurrentIndex(run.control<QTreeView>("PagesLB").model()->index(0, 0));
    EXPECT_EQ(run.pages(), "1 1");
    EXPECT_EQ(run.window.desk()->model().draft().pages[2].last, "dk");
}

TEST(WorkshopWindow, AFullDiskIsToldUntilTheDraftIsSaved) {
    Shown run("a? c?", [](ScriptedBook& book) { book.full = true; });
    run.key(Qt::Key_Return);
    NoticeBar& notice = run.window.desk()->notice();
    ASSERT_TRUE(notice.isVisible());
    EXPECT_TRUE(notice.text().contains(QStringLiteral("No space left on device")));
    run.window.close();
    EXPECT_TRUE(run.window.isVisible()) << "the answer is No";
    EXPECT_EQ(run.host.questions.size(), 1U);
    run.book->full = false;
    QTest::mouseClick(notice.findChild<QPushButton*>(QStringLiteral("NoticeActionBT")), Qt::LeftButton);
    EXPECT_FALSE(notice.isVisible());
    EXPECT_EQ(rowsOf(run.book->savedDraft), "a! c?");
    run.window.close();
    EXPECT_FALSE(run.window.isVisible());
}

/// A scan of white pages.
void writeScan(const TempFolder& files, int pages) {
    for (int page = 1; page <= pages; ++page)
        files.write("scan/p" + std::to_string(page) + ".png", *encodePicture(Picture::make(400, 600, 1), "png"));
}

TEST(WorkshopWindow, AScanBecomesABookThatIsFoundAgain) {
    const TempFolder files;
    writeScan(files, 3);
    {
        Shown run;
        QTimer::singleShot(0, &run.window, [] {
            auto* dialog = qobject_cast<NewBookDialog*>(QApplication::activeModalWidget());
            QTest::keyClick(dialog->findChild<QLineEdit*>(QStringLiteral("FolderEF")), Qt::Key_Return);
        });
        run.window.open(files.at("scan"));
        ASSERT_NE(run.window.desk(), nullptr);
        ASSERT_TRUE(QTest::qWaitFor([&] { return run.rows() == "-+ -+ -+"; }, 20000)) << run.rows();
        QApplication::setActiveWindow(&run.window);
        run.type("abacus");
        run.key(Qt::Key_Return);
        run.key(Qt::Key_F4);
        EXPECT_TRUE(QTest::qWaitFor([&] { return run.control<SmartCanvas>("WholePage").hasImage(); }));
        EXPECT_TRUE(run.window.close());
        EXPECT_EQ(run.host.messages, std::vector<std::string>{});
    }
    EXPECT_NE(files.read("scan book/draft.tsv").find("p1.png\t\tabacus\t\t100\tset"), std::string::npos)
        << files.read("scan book/draft.tsv");
    Shown again;
    again.window.open(files.at("scan")); // its book is known by its place
    ASSERT_NE(again.window.desk(), nullptr);
    EXPECT_EQ(again.rows(), "abacus! -+ -+");
    again.window.open(files.at("nothing"));
    ASSERT_EQ(again.host.messages.size(), 1U);
    EXPECT_NE(again.host.messages[0].find("there is no such file or folder"), std::string::npos);
}

} // namespace
} // namespace velmarin::test
