#include "store/PageList.h"
#include "store/ImageIndex.h"
#include "store/PictureFormats.h"
#include "support/TempFolder.h"
#include "text/NilObjectException.h"

#include <gtest/gtest.h>

namespace velmarin {
namespace {

namespace fs = std::filesystem;
using namespace std::string_literals;
using test::TempFolder;
using Names = std::vector<std::string>;

TEST(PageList, HasAsManyPagesAsTheFirstLineSays) {
    const struct {
        const char* reason;
        std::string text;
        Names names;
    } cases[] = {
        {"lines beyond the count", "1\na\nb\nc\n", {"a", "b"}},
        {"missing lines are empty names", "3\na\nb\n", {"a", "b", "", ""}},
        {"text for a number is zero", "many\na\nb\n", {"a"}},
        {"no line", "", {""}},
        {"negative", "-1\na\n", {}},
        {"fraction is cut off", "1.9\na\nb\nc\n", {"a", "b"}},
        {"minus one half is zero", "-0.5\na\nb\n", {"a"}},
        {"byte order mark, other line ends", "\xEF\xBB\xBF\x32\ra\r\nb\rc", {"a", "b", "c"}},
        {"TAB belongs to the name", "0\na\tb\n", {"a\tb"}},
        {"huge", "99999999999999999999\n", Names(kMostPages)},
    };
    for (const auto& each : cases) {
        const TempFolder folder;
        folder.write("ImageIndex", each.text);
        const PageList pages = readPageList(FolderItem(folder.path()));
        EXPECT_TRUE(pages.names == each.names && pages.captions == each.names) << each.reason;
    }
}

TEST(PageList, CaptionedIndexWinsAndAMissingOneIsMade) {
    const TempFolder folder;
    folder.write("ImageIndex", "0\nplain.tif\n");
    folder.write("imageindex2", "2\na.tif\tpage 1\nb.tif\nc.tif\tiii\trest\n");
    const PageList pages = readPageList(FolderItem(folder.path()));
    EXPECT_EQ(pages.names, (Names{"a.tif", "b.tif", "c.tif"}));
    EXPECT_EQ(pages.captions, (Names{"page 1", "", "iii"}));
    folder.write("new/p1.tif", "");
    folder.link("new/ImageIndex", "p1.tif/no"); // cannot be written
    const PageList made = readPageList(FolderItem(folder.at("new")));
    EXPECT_TRUE(made.names == Names{"p1.tif"} && made.captions == made.names);
}

TEST(PageList, ThrowsWithoutIndexAndPicture) {
    const TempFolder folder;
    folder.write("empty/notes.txt", "");
    folder.write("dir/ImageIndex/p.tif", "");
    fs::create_directories(folder.at("fifo"));
    folder.fifo("fifo/ImageIndex2");
    fs::create_directories(folder.at("bad"));
    folder.unreadable("bad/ImageIndex");
    for (const char* name : {"empty", "dir", "fifo", "bad", "missing", "empty/notes.txt"})
        EXPECT_THROW(readPageList(FolderItem(folder.at(name))), NilObjectException) << name;
    EXPECT_THROW(readPageList(FolderItem()), NilObjectException);
}

TEST(ImageIndex, IsMadeOfThePicturesByName) {
    const TempFolder folder;
    for (const char* name : {"p10.tif", "P2.JPEG", "p1.Png", "b.pict", "c.TIFF", "d.jpg", "e.bmp", "f.webp",
                             "notes.txt", "tif", ".hidden.png", "two\nlines.bmp", "folder.bmp/x", "elsewhere/x.dat"})
        folder.write(name, "");
    folder.link("alias.pct", "elsewhere/x.dat");
    folder.link("gone.tif", "nowhere");
    EXPECT_EQ(readPageList(FolderItem(folder.path())).names.front(), "alias.pct");
    EXPECT_EQ(folder.read("ImageIndex"), "7\nalias.pct\nb.pict\nc.TIFF\nd.jpg\ne.bmp\np1.Png\np10.tif\nP2.JPEG\n");
}

TEST(ImageIndex, WithoutPictureOrFolderIsNotWritten) {
    const TempFolder folder;
    folder.write("in/notes.txt", "");
    folder.write("asked/p.png", "");
    folder.write("full/p.png", "");
    fs::create_directories(folder.at("full/ImageIndex"));
    for (const FolderItem& item : {FolderItem(), FolderItem(folder.at("in")), FolderItem(folder.at("full"))})
        EXPECT_FALSE(mFiMod_MakeImageIndex(item));
    EXPECT_FALSE(fs::exists(folder.at("in/ImageIndex")));
    EXPECT_FALSE(mFiMod_MakeImageIndex(FolderItem(), [] { return FolderItem(); }));
    EXPECT_TRUE(mFiMod_MakeImageIndex(FolderItem(), [&] { return FolderItem(folder.at("asked")); }));
    EXPECT_EQ(folder.read("asked/ImageIndex"), "0\np.png\n");
}

TEST(ImageDictionary, TakesNamesAsAFileSystemThatFoldsThem) {
    ImageDictionaryMap map;
    map.set("PAGE1.TIF", 3);
    map.set("caf\xC3\xA9.tif", 5);
    EXPECT_EQ(map.value("CAFE\xCC\x81.tif"), 5);
    map.set("page1.tif", 7);
    EXPECT_EQ(map.value("PAGE1.TIF"), 7);
    EXPECT_TRUE(map.has("Page1.tif"));
    EXPECT_FALSE(map.has("page2.tif"));
    EXPECT_EQ(map.value("page2.tif"), 0);
}

std::string pict(std::size_t headerBytes) {
    return std::string(headerBytes + 10, '\0') + "\0\x11\x02\xff"s;
}

TEST(PictureFormat, IsThatOfTheExtensionOrElseOfTheContent) {
    using enum PictureFormat;
    const std::string pcx = "\n\5\1" + std::string(126, '\0');
    const struct {
        std::optional<PictureFormat> format;
        const char* extension;
        std::vector<std::string> contents;
    } rows[] = {
        {Jpeg, "JPEG", {"BM"}},
        {Png, "png", {""}},
        {Bmp, "tif", {"BM"}},
        {Jpeg, "tif", {"\xff\xd8\xff"}},
        {Tiff, "bmp", {"II*\0"s, "MM\0+"s}},
        {Bmp, "tga", {"BM"}},
        {Tga, "TGA", {"?"}},
        {Png, "", {"\x89PNG"}},
        {Jpeg2000, "", {"\xff\x4f\xff\x51"}},
        {Gif, "", {"GIF89a"}},
        {WebP, "", {"RIFF1234WEBPV"}},
        {Pnm, "", {"P1 ", "P6 "}},
        {Pcx, "", {pcx}},
        {Pict, "", {pict(0), pict(512)}},
        {std::nullopt, "pict", {pict(0).substr(0, 13), "RIFF1234WEBP", "P7 ", "P0 ", "P6"}},
        {std::nullopt, "", {"\n\6" + pcx.substr(2), pcx.substr(0, 128)}},
    };
    for (const auto& row : rows)
        for (const std::string& bytes : row.contents)
            EXPECT_EQ(pictureFormat(bytes, row.extension), row.format) << bytes.substr(0, 20) << row.extension;
    EXPECT_EQ(pictStart(pict(512)), 512u);
    EXPECT_EQ(pictStart(pict(0)), 0u);
}

} // namespace
} // namespace velmarin
