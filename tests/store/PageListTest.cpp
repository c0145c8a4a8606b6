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

TEST(PageList, CaptionedIndexWinsOverThePlainOne) {
    const TempFolder folder;
    folder.write("ImageIndex", "0\nplain.tif\n");
    folder.write("imageindex2", "2\na.tif\tpage 1\nb.tif\nc.tif\tiii\trest\n");
    const PageList pages = readPageList(FolderItem(folder.path()));
    EXPECT_EQ(pages.names, (Names{"a.tif", "b.tif", "c.tif"}));
    EXPECT_EQ(pages.captions, (Names{"page 1", "", "iii"}));
}

TEST(PageList, IsUsedWithoutAFileIfNoneCanBeWritten) {
    const TempFolder folder;
    folder.write("p1.tif", "");
    folder.link("ImageIndex", "p1.tif/no");
    const PageList pages = readPageList(FolderItem(folder.path()));
    EXPECT_EQ(pages.names, Names{"p1.tif"});
    EXPECT_EQ(pages.captions, Names{"p1.tif"});
}

TEST(PageList, ThrowsWithoutIndexAndPicture) {
    const TempFolder folder;
    folder.write("empty/notes.txt", "");
    folder.write("dir/ImageIndex/p.tif", "");
    fs::create_directories(folder.at("fifo"));
    folder.fifo("fifo/ImageIndex2");
    for (const char* name : {"empty", "dir", "fifo", "missing", "empty/notes.txt"})
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
    constexpr auto kNone = std::nullopt;
    const std::string pcx = "\n\5\1" + std::string(126, '\0');
    const struct {
        std::string bytes;
        const char* extension;
        std::optional<PictureFormat> format;
    } rows[] = {{"BM", "JPEG", Jpeg},
                {"", "png", Png},
                {"BM", "tif", Bmp},
                {"\xff\xd8\xff", "tif", Jpeg},
                {"\x89PNG", "", Png},
                {"II*\0"s, "bmp", Tiff},
                {"MM\0+"s, "", Tiff},
                {"\xff\x4f\xff\x51", "", Jpeg2000},
                {"GIF89a", "", Gif},
                {"RIFF1234WEBPV", "", WebP},
                {"RIFF1234WEBP", "", kNone},
                {"P1 ", "", Pnm},
                {"P6 ", "", Pnm},
                {"P7 ", "", kNone},
                {"P0 ", "", kNone},
                {"P6", "", kNone},
                {pcx, "", Pcx},
                {"\n\6" + pcx.substr(2), "", kNone},
                {pcx.substr(0, 128), "", kNone},
                {pict(0), "", Pict},
                {pict(512), "", Pict},
                {pict(0).substr(0, 13), "pict", kNone},
                {"BM", "tga", Bmp},
                {"?", "TGA", Tga}};
    for (const auto& row : rows)
        EXPECT_EQ(pictureFormat(row.bytes, row.extension), row.format) << row.bytes.substr(0, 20) << row.extension;
    EXPECT_EQ(pictStart(pict(512)), 512u);
    EXPECT_EQ(pictStart(pict(0)), 0u);
}

} // namespace
} // namespace velmarin
