#include "workshop/DictionaryCorrector.h"
#include "workshop/TryIt.h"

#include "support/DictionaryBuilder.h"
#include "support/TempFolder.h"
#include "support/Tree.h"

#include <gtest/gtest.h>

namespace velmarin {
namespace {

namespace fs = std::filesystem;

constexpr CorrectionKind kPage = CorrectionKind::Page, kHeadword = CorrectionKind::Headword,
                         kMissing = CorrectionKind::Missing;

struct CorrectionsTest : ::testing::Test {
    /// Lines of ind, each with a page of its own, from p1.bmp; files with the line ends of different systems.
    void make(const std::string& ind, const std::string& txt) {
        dictionary = FolderItem(test::DictionaryBuilder("Birds")
                                    .entries({"a", "b", "c", "d"})
                                    .member("ind", ind)
                                    .member("txt", txt)
                                    .writeTo(files.path() / "DictionaryFolder/English"));
        open();
    }
    void open() {
        const Result opened = DictionaryCorrector::open(dictionary, FolderItem(files.at("Corrections")), corrector);
        ASSERT_TRUE(opened) << opened.failure().message();
    }
    MaintenanceResult save() { return corrector.save(FolderItem(files.at("Desktop"))); }
    std::string member(const std::string& name) const { return test::readFile(dictionary.path() / name); }

    const std::string ind = "\xEF\xBB\xBF"
                            "auk\r\nhen__DLM__n.\rowl\njay\n\U0010FFFD";
    const std::string txt = "<@_p1.bmp_>\r\nsee <@_p2.bmp_> <^_e.tif_>\n<@_p3.bmp_>\r<@_p4.bmp_>\n<@_p4.bmp_>";
    test::TempFolder files;
    FolderItem dictionary;
    DictionaryCorrector corrector;
};

TEST_F(CorrectionsTest, ChangeTheirLinesAndNoOthers) {
    const std::string end = "\U0010FFFD", bom = "\xEF\xBB\xBF";
    const struct {
        const char* what;
        Correction correction;
        std::string indAfter, txtAfter; ///< empty: refused
    } cases[] = {
        {"a page",
         {kPage, "hen", "p3.bmp", "p2.bmp"},
         ind,
         "<@_p1.bmp_>\r\nsee <@_p3.bmp_> <^_e.tif_>\n<@_p3.bmp_>\r<@_p4.bmp_>\n<@_p4.bmp_>"},
        {"another page than it opens", {kPage, "hen", "p3.bmp", "p1.bmp"}, "", ""},
        {"no page of the dictionary", {kPage, "hen", "p9.bmp", "p2.bmp"}, "", ""},
        {"no headword", {kPage, "wren", "p3.bmp", "p2.bmp"}, "", ""},
        {"a headword in its place",
         {kHeadword, "heron", "p2.bmp", "hen"},
         bom + "auk\r\nheron__DLM__n.\rowl\njay\n" + end,
         txt},
        {"one that sorts elsewhere",
         {kHeadword, "oxpecker", "p2.bmp", "hen"},
         bom + "auk\r\nowl\njay\noxpecker__DLM__n.\r" + end,
         "<@_p1.bmp_>\r\n<@_p3.bmp_>\r<@_p4.bmp_>\nsee <@_p2.bmp_> <^_e.tif_>\n<@_p4.bmp_>"},
        {"one that is there", {kHeadword, "owl", "p2.bmp", "hen"}, "", ""},
        {"one with a mark", {kHeadword, "he__DLM__n", "p2.bmp", "hen"}, "", ""},
        {"a missing one in the order of pages",
         {kMissing, "dove", "p2.bmp"},
         bom + "auk\r\ndove\r\nhen__DLM__n.\rowl\njay\n" + end,
         "<@_p1.bmp_>\r\n<@_p2.bmp_>\r\nsee <@_p2.bmp_> <^_e.tif_>\n<@_p3.bmp_>\r<@_p4.bmp_>\n<@_p4.bmp_>"},
        {"a missing one on a page far away",
         {kMissing, "dove", "p4.bmp"},
         bom + "auk\r\ndove\r\ndove __DLM__after dove\r\nhen__DLM__n.\rowl\njay\n" + end,
         "<@_p1.bmp_>\r\n<@_p4.bmp_>\r\n<@_p1.bmp_>\r\nsee <@_p2.bmp_> <^_e.tif_>\n<@_p3.bmp_>\r<@_p4.bmp_>\n"
         "<@_p4.bmp_>"},
        {"after the closing line", {kMissing, "\U0010FFFDx", "p4.bmp"}, "", ""},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        make(ind, txt);
        EXPECT_EQ(bool(corrector.correct(c.correction)), !c.indAfter.empty());
        EXPECT_EQ(corrector.text().indBytes(), c.indAfter.empty() ? ind : c.indAfter);
        EXPECT_EQ(corrector.text().txtBytes(), c.indAfter.empty() ? txt : c.txtAfter);
        EXPECT_TRUE(c.indAfter.empty() || isDone(c.correction, corrector.text()));
        corrector.undo();
        EXPECT_EQ(corrector.text().indBytes() + corrector.text().txtBytes(), ind + txt);
    }
}

TEST_F(CorrectionsTest, AreDueAgainAfterAnUpdate) {
    make(ind, txt);
    for (const Correction& each : {Correction{kPage, "hen", "p1.bmp", "p2.bmp"},
                                   {kHeadword, "egret", "p1.bmp", "hen"},
                                   {kPage, "egret", "p3.bmp", "p1.bmp"},
                                   {kMissing, "emu", "p2.bmp"}})
        ASSERT_TRUE(corrector.correct(each)) << each.headword;
    const std::string indAfter = corrector.text().indBytes(), txtAfter = corrector.text().txtBytes();
    ASSERT_TRUE(save().failures.empty());
    EXPECT_TRUE(corrector.due().empty());
    EXPECT_EQ(member("ind") + member("txt"), indAfter + txtAfter);
    EXPECT_EQ(files.read("Desktop/Birds-Oldversion-0/ind") + files.read("Desktop/Birds-Oldversion-0/txt"), ind + txt);

    make(ind, txt); // as an update does
    const std::vector<Correction> due = corrector.due();
    ASSERT_EQ(due.size(), corrector.kept().size());
    for (const Correction& each : due)
        ASSERT_TRUE(corrector.correct(each)) << each.headword;
    ASSERT_TRUE(save().failures.empty());
    EXPECT_EQ(member("ind") + member("txt"), indAfter + txtAfter);

    make("auk\nhen\n\U0010FFFD", "<@_p1.bmp_>\n<@_p4.bmp_>\n<@_p4.bmp_>"); // the maker has found another page
    EXPECT_EQ(corrector.due(), (std::vector<Correction>{{kMissing, "emu", "p2.bmp"}}));
}

TEST_F(CorrectionsTest, AreNotWrittenOverWhatHasChanged) {
    make(ind, txt);
    ASSERT_TRUE(corrector.correct({kPage, "hen", "p3.bmp", "p2.bmp"}));
    test::writeFile(dictionary.path() / "txt", txt + "\n");
    const test::Tree before = test::treeOf(dictionary.path());
    const MaintenanceResult result = save();
    ASSERT_EQ(result.failures.size(), 1U);
    EXPECT_NE(result.failures[0].reason.find("changed meanwhile"), std::string::npos) << result.failures[0].reason;
    EXPECT_EQ(test::treeOf(dictionary.path()), before);

    files.link("link", dictionary.path());
    const Result opened = DictionaryCorrector::open(FolderItem(files.at("link")), FolderItem(files.path()), corrector);
    ASSERT_FALSE(opened);
    EXPECT_NE(opened.failure().reason.find(dictionary.path().string()), std::string::npos);
}

TEST(TryItTest, SaysWhatAWordWouldOpen) {
    const std::vector<BookPage> pages{{"p1.tif", "7"}, {"p2.tif"}, {"p3.tif"}};
    const KeyRule rule = *KeyRule::parse("-", "");
    const std::vector<BookEntry> entries{{"re-form", 0}, {"regal", 1}, {"regal", 1, true}, {"zoo", 2}, {"rut", 2}};
    const TryIt dictionary(entries, planIndex(entries, rule, {}), pages, {});
    const struct {
        const char *word, *says;
    } cases[] = {
        {"Re-Form", "“Re-Form” opens page 7 (p1.tif). It is a headword."},
        {"reform", "“reform” opens page 7 (p1.tif). It comes between “re-form” and “regal”."},
        {"regal", "“regal” opens page p2.tif. It is a headword."},
        {"regale", "“regale” opens page p2.tif. It comes between “regal” and “rut”."},
        {"rut", "“rut” opens page p3.tif. It is a headword."},
        {"sun", "“sun” opens page p3.tif. It comes after the last headword, “rut”."},
        {"abc", "“abc” opens no page: it comes before the first headword, “re-form”."},
    };
    for (const auto& c : cases)
        EXPECT_EQ(sentenceOf(c.word, dictionary.find(c.word)), c.says);
}

} // namespace
} // namespace velmarin
