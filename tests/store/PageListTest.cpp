#include "store/PageList.h"
#include "files/FolderItem.h"
#include "support/TempFolder.h"
#include "text/NilObjectException.h"

#include <gtest/gtest.h>

#include <sys/stat.h>

namespace velmarin {
namespace {

namespace fs = std::filesystem;
using test::TempFolder;
using Names = std::vector<std::string>;

TEST(PageList, HasAsManyPagesAsTheFirstLineSays) {
    const struct {
        const char* reason;
        std::string text;
        Names names;
    } cases[] = {{"OnePage", "0\na.tif\n", {"a.tif"}},
                 {"LinesBeyondThePromiseDoNotCount", "1\na\nb\nc\n", {"a", "b"}},
                 {"MissingLinesAreEmptyNames", "3\na\nb\n", {"a", "b", "", ""}},
                 {"TextForANumberIsZero", "many\na\nb\n", {"a"}},
                 {"NoLineAtAll", "", {""}},
                 {"NegativeHasNoPages", "-1\na\n", {}},
                 {"FractionIsCutOff", "1.9\na\nb\nc\n", {"a", "b"}},
                 {"MinusOneHalfIsZero", "-0.5\na\nb\n", {"a"}},
                 {"OtherLineEnds",
                  "\xEF\xBB\xBF"
                  "2\ra\r\nb\rc",
                  {"a", "b", "c"}},
                 {"TabBelongsToTheName", "0\na\tb\n", {"a\tb"}}};
    for (const auto& each : cases) {
        const TempFolder folder;
        folder.write("ImageIndex", each.text);
        const PageList pages = readPageList(FolderItem(folder.path()));
        EXPECT_EQ(pages.names, each.names) << each.reason;
        EXPECT_EQ(pages.captions, each.names) << each.reason;
    }
}

TEST(PageList, HugeCountGivesTheMostPages) {
    const TempFolder folder;
    for (const char* first : {"2147483647", "99999999999999999999", "200000"}) {
        folder.write("ImageIndex", std::string(first) + "\na\n");
        EXPECT_EQ(readPageList(FolderItem(folder.path())).names.size(), std::size_t{kMostPages}) << first;
    }
}

TEST(PageList, CaptionedIndexWinsOverThePlainOne) {
    const TempFolder folder;
    folder.write("ImageIndex", "0\nplain.tif\n");
    folder.write("imageindex2", "2\na.tif\tpage 1\nb.tif\nc.tif\tiii\trest\n");
    const PageList pages = readPageList(FolderItem(folder.path()));
    EXPECT_EQ(pages.names, (Names{"a.tif", "b.tif", "c.tif"}));
    EXPECT_EQ(pages.captions, (Names{"page 1", "", "iii"}));
}

TEST(PageList, IsMadeAndKeptWhereThereIsNoIndex) {
    const TempFolder folder;
    for (const char* name : {"p2.tif", "P1.tif", "notes.txt"})
        folder.write(name, "");
    EXPECT_EQ(readPageList(FolderItem(folder.path())).names, (Names{"P1.tif", "p2.tif"}));
    EXPECT_EQ(folder.read("ImageIndex"), "1\nP1.tif\np2.tif\n");
}

TEST(PageList, IsUsedWithoutAFileWhereNoneCanBeWritten) {
    const TempFolder folder;
    folder.write("p1.tif", "");
    // A link that leads through a file does not exist, and nothing can be written there.
    fs::create_symlink("p1.tif/no", folder.path() / "ImageIndex");
    const PageList pages = readPageList(FolderItem(folder.path()));
    EXPECT_EQ(pages.names, Names{"p1.tif"});
    EXPECT_EQ(pages.captions, Names{"p1.tif"});
}

TEST(PageList, RaisesWhereThereIsNeitherIndexNorPicture) {
    const TempFolder folder;
    folder.write("empty/notes.txt", "");
    folder.write("dir/ImageIndex/p.tif", "");
    fs::create_directories(folder.path() / "fifo");
    ASSERT_EQ(::mkfifo((folder.path() / "fifo/ImageIndex2").c_str(), 0600), 0);
    for (const char* name : {"empty", "dir", "fifo", "missing", "empty/notes.txt"})
        EXPECT_THROW(readPageList(FolderItem(folder.path() / name)), NilObjectException) << name;
    EXPECT_THROW(readPageList(FolderItem()), NilObjectException);
}

TEST(ImageDictionary, TakesNamesAsAFileSystemThatFoldsThemWould) {
    ImageDictionaryMap map;
    map.set("PAGE1.TIF", 3);
    map.set("caf\xC3\xA9.tif", 5);
    EXPECT_EQ(map.value("page1.tif"), 3);
    EXPECT_EQ(map.value("CAFE\xCC\x81.tif"), 5);
    map.set("page1.tif", 7);
    EXPECT_EQ(map.value("PAGE1.TIF"), 7);
    EXPECT_TRUE(map.has("Page1.tif"));
    EXPECT_FALSE(map.has("page2.tif"));
    EXPECT_EQ(map.value("page2.tif"), 0);
}

} // namespace
} // namespace velmarin
