#include "workshop/CorrectionWindow.h"
#include "workshop/MakeDialog.h"
#include "workshop/NewBookDialog.h"

#include "platform/QtText.h"
#include "platform/ScriptedHost.h"
#include "support/DictionaryBuilder.h"
#include "support/TempFolder.h"

#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

#include <stdexcept>

namespace velmarin {
namespace {

namespace fs = std::filesystem;

template <typename Widget> Widget& control(QWidget& window, const char* name) {
    auto* found = window.findChild<Widget*>(QLatin1String(name));
    if (found == nullptr)
        throw std::runtime_error(name);
    return *found;
}

void type(QWidget& window, const char* name, const char* text) {
    auto& line = control<QLineEdit>(window, name);
    line.setFocus();
    line.selectAll();
    QTest::keyClicks(&line, QString::fromUtf8(text));
}

TEST(NewBookDialogTest, ChangesHowABookIsRead) {
    const test::TempFolder files;
    files.write("scan/p1.bmp", test::oneBitBmp());
    BookFolder book;
    ASSERT_TRUE(book.openFor(FolderItem(files.at("scan")), FolderItem(files.at("book"))));
    BookSettings settings = book.settings();
    settings.languages = {"lat", "eng"};
    settings.wordLists = {"/old"};
    ASSERT_TRUE(book.saveSettings(settings));
    ScriptedHost host;
    host.files = {"/bad\xFF", "/new"};
    NewBookDialog dialog(book.source(), {"deu", "eng", "lat"}, host, nullptr);
    dialog.showBook(book);
    auto& add = control<QPushButton>(dialog, "AddWordListBT");
    add.click();
    add.click();
    EXPECT_EQ(host.messages.size(), 1U);
    control<QListWidget>(dialog, "WordListsLB").item(0)->setCheckState(Qt::Unchecked);
    control<QListWidget>(dialog, "LanguagesLB").item(1)->setCheckState(Qt::Checked); // German
    dialog.choice().applyTo(settings);
    EXPECT_EQ(settings.languages, (std::vector<std::string>{"lat", "eng", "deu"}));
    EXPECT_EQ(settings.wordLists, std::vector<std::string>{"/new"});
}

TEST(MakeDialogTest, MakesTheDictionaryThatItSays) {
    const test::TempFolder files;
    for (const char* page : {"p1.bmp", "p2.bmp", "p3.bmp"})
        files.write(fs::path("scan") / page, test::oneBitBmp());
    files.write("DictionaryFolder/English/Taken/FW", "");
    BookFolder book;
    ASSERT_TRUE(book.openFor(FolderItem(files.at("scan")), FolderItem(files.at("book"))));
    ASSERT_TRUE(book.saveDraft({{{"p1.bmp", "1", "a-b", "ac", 90, PageState::Certain},
                                 {"p2.bmp", "2", "xx", "ad", 90, PageState::Certain},
                                 {"p3.bmp", "3", "z", "b", 90, PageState::Set}}}));
    ScriptedHost host;
    MakeDialog dialog(book, FolderItem(files.at("DictionaryFolder")), host, nullptr);
    std::string group, word;
    QObject::connect(&dialog, &MakeDialog::made, &dialog, [&](const std::string& of, const std::string& first) {
        group = of;
        word = first;
    });
    dialog.show();

    type(dialog, "NameEF", "Taken");
    EXPECT_FALSE(control<QPushButton>(dialog, "MakeBT").isEnabled());
    type(dialog, "NameEF", "Words");
    type(dialog, "TitleEF", "All Words");
    type(dialog, "IgnoreEF", "-");
    type(dialog, "AlikeEF", "z=ae");
    const std::string text = "“xx” on page 2 (p2.bmp), after “ac” and before “ad”";
    const auto& summary = control<QPlainTextEdit>(dialog, "SummaryEF");
    EXPECT_TRUE(QTest::qWaitFor([&] { return summary.toPlainText().contains(toQ(text)); })) << text;
    host.onYield = [&] { QTest::mouseClick(&control<QPushButton>(dialog, "CancelBT"), Qt::LeftButton); };
    QTest::keyClick(&control<QLineEdit>(dialog, "AlikeEF"), Qt::Key_Return);
    EXPECT_EQ(std::distance(fs::directory_iterator(files.at("DictionaryFolder/English")), {}), 1) << "cancelled";
    host.onYield = {};
    QTest::keyClick(&control<QLineEdit>(dialog, "AlikeEF"), Qt::Key_Return);

    EXPECT_EQ(group, "English");
    EXPECT_EQ(word, "a-b");
    EXPECT_TRUE(host.messages.empty());
    EXPECT_EQ(files.read("DictionaryFolder/English/Words/About"), "Title: All Words\n");
    EXPECT_EQ(files.read("DictionaryFolder/English/Words/ind").substr(0, 14), "a-b\na-b __DLM_");
    EXPECT_EQ(book.settings().alike, "z=ae");
}

TEST(CorrectionWindowTest, CorrectsThePageOfAWordByKeys) {
    const test::TempFolder files;
    const FolderItem dictionary(test::DictionaryBuilder("Birds")
                                    .entries({"auk", "hen", "owl", "\U0010FFFD"})
                                    .writeTo(files.path() / "DictionaryFolder/English"));
    ScriptedHost host;
    CorrectionWindow window(host, FolderItem(files.at("Corrections")), FolderItem(files.at("Desktop")));
    ASSERT_TRUE(window.open(dictionary, "hen"));
    window.show();
    auto& word = control<QLineEdit>(window, "WordEF");
    QTest::keyClick(&word, Qt::Key_Down);
    QTest::keyClick(&word, Qt::Key_Return);
    type(window, "WordEF", "ibis");
    QTest::keyClick(&word, Qt::Key_Up);
    QTest::keyClick(&word, Qt::Key_Return);
    type(window, "WordEF", "owl");
    type(window, "HeadwordEF", "oxeye");
    QTest::keyClick(&control<QLineEdit>(window, "HeadwordEF"), Qt::Key_Return);
    ASSERT_EQ(window.corrector().unsaved().size(), 3U);
    QTest::mouseClick(&control<QPushButton>(window, "UndoBT"), Qt::LeftButton);
    EXPECT_EQ(window.corrector().unsaved().size(), 2U);
    QTest::mouseClick(&control<QPushButton>(window, "SaveBT"), Qt::LeftButton);
    EXPECT_EQ(files.read("DictionaryFolder/English/Birds/ind"),
              "auk\nhen\nibis\nibis __DLM__after ibis\nowl\n\U0010FFFD\n");
    EXPECT_EQ(host.messages, std::vector<std::string>());
    EXPECT_TRUE(window.close());
}

} // namespace
} // namespace velmarin
