#include "making/NewDictionary.h"

#include "support/DictionaryBuilder.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <functional>

namespace velmarin {
namespace {

namespace fs = std::filesystem;

struct NewDictionaryTest : ::testing::Test {
    NewDictionaryTest() {
        for (const char* page : {"p1.bmp", "p2.bmp"})
            files.write(fs::path("scan") / page, test::oneBitBmp());
        files.write("extra/e.bmp", test::oneBitBmp());
        fs::create_directory(files.path() / "group");
        book.pages = {{"p1.bmp"}, {"p2.bmp", "1"}};
        book.pageFolder = FolderItem(files.path() / "scan");
        book.extraPageFolder = FolderItem(files.path() / "extra");
        book.lines = {{"aa", "", 0}, {"bb", "b-b", 1, {"e.bmp"}}};
    }
    Result write() { return writeNewDictionary(book, FolderItem(files.path() / "group"), "Birds"); }

    test::TempFolder files;
    NewDictionary book;
};

TEST_F(NewDictionaryTest, HasAllMembers) {
    book.order = {.SpanishMode = true, .IJUVMode = false, .FormatFom = "000"};
    book.independent = true;
    ASSERT_TRUE(write());
    const struct {
        const char *member, *text;
    } members[] = {
        {"FW", ""},
        {"Spanish", ""},
        {"Format", "000\ntrue\n"},
        {"ind", "aa\nbb__DLM__b-b\n\U0010FFFD__DLM__end\n"},
        {"txt", "<@_p1.bmp_>\n<@_p2.bmp_><^_e.bmp_>\n<@_p2.bmp_>\n"},
        {"mImg/ImageIndex2", "1\np1.bmp\tp1.bmp\np2.bmp\t1\n"},
    };
    for (const auto& each : members)
        EXPECT_EQ(files.read(fs::path("group/Birds") / each.member), each.text) << each.member;
    EXPECT_EQ(files.read("group/Birds/mImg/p2.bmp"), test::oneBitBmp());
    EXPECT_EQ(files.read("group/Birds/mPimg/e.bmp"), test::oneBitBmp());
    EXPECT_FALSE(fs::exists(files.path() / "group/Birds/IJUV"));
}

TEST_F(NewDictionaryTest, LeavesNothingIfItFails) {
    const struct {
        const char* what;
        std::function<void(NewDictionary&)> spoil;
        const char* reason;
    } cases[] = {
        {"no pages", [](auto& b) { b.pages.clear(); }, "it has no pages"},
        {"a missing page", [](auto& b) { b.pages[1].file = "p3.bmp"; }, "p3.bmp\""},
        {"a name that ends its mark", [](auto& b) { b.pages[0].file = "a_>.bmp"; },
         "cannot be written in a dictionary"},
        {"a missing extra page", [](auto& b) { b.lines[0].errata = {"f.bmp"}; }, "f.bmp\""},
        {"no folder of extra pages", [](auto& b) { b.extraPageFolder = {}; }, "no folder has the extra page \"e.bmp\""},
    };
    const NewDictionary whole = book;
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        book = whole;
        c.spoil(book);
        const Result result = write();
        ASSERT_FALSE(result);
        EXPECT_TRUE(fs::is_empty(files.path() / "group"));
        EXPECT_NE((result.failure().message() + result.failure().reason).find(c.reason), std::string::npos)
            << result.failure().message();
    }
    book = whole;
    files.write("group/Birds/notes", "mine");
    EXPECT_FALSE(write());
    EXPECT_EQ(files.read("group/Birds/notes"), "mine");
}

} // namespace
} // namespace velmarin
