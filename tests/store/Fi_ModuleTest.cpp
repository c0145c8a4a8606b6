#include "store/Fi_Module.h"
#include "store/DataModule.h"
#include "support/CollectedMessages.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>

#include <sys/stat.h>

namespace velmarin {
namespace {

namespace fs = std::filesystem;
using test::CollectedMessages;
using test::TempFolder;
using Texts = std::vector<std::string>;

TEST(FileNames, ExtensionIsWhatFollowsTheLastPoint) {
    struct Case {
        const char* name;
        const char* extension;
        const char* rest;
    };
    for (const Case& c : {Case{"", "", ""}, Case{"name", "", "name"}, Case{"a.tif", "tif", "a"},
                          Case{"a.b.TIFF", "TIFF", "a.b"}, Case{"name.", "", "name"}, Case{".hidden", "hidden", ""},
                          Case{".", "", ""}, Case{"\xC3\xA9.\xC3\xA9", "\xC3\xA9", "\xC3\xA9"}}) {
        EXPECT_EQ(mFiMod_GetExtensionFromFileName(c.name), c.extension) << c.name;
        EXPECT_EQ(mFiMod_RemoveExtesionFromFileName(c.name), c.rest) << c.name;
    }
}

struct UniqueCase {
    const char* reason;
    Texts taken;
    std::string name;
    std::string unique;
};

class UniqueFileName : public testing::TestWithParam<UniqueCase> {};

TEST_P(UniqueFileName, IsTheFirstFreeOne) {
    const TempFolder folder;
    for (const std::string& name : GetParam().taken)
        folder.write(name, "");
    EXPECT_EQ(mFiMod_GetUniqueFileName(GetParam().name, FolderItem(folder.path())), GetParam().unique);
}

std::string times(int count, const std::string& text) {
    std::string all;
    while (count-- > 0)
        all += text;
    return all;
}

const std::string kLong = times(40, "x");
const std::string kAccents = times(40, "\xC3\xA9");

INSTANTIATE_TEST_SUITE_P(
    Names, UniqueFileName,
    testing::Values(
        UniqueCase{"FreeLongNameStays", {}, kLong + ".tif", kLong + ".tif"},
        UniqueCase{"TakenGetsANumberBeforeItsExtension", {"a.tif"}, "a.tif", "a_1.tif"},
        UniqueCase{"NumbersGoOn", {"a.tif", "a_1.tif", "a_2.tif"}, "a.tif", "a_3.tif"},
        UniqueCase{"WithoutExtension", {"Latin"}, "Latin", "Latin_1"},
        UniqueCase{"PointAtTheEndIsDropped", {"a."}, "a.", "a"},
        UniqueCase{"OtherCaseIsTaken", {"A.TIF"}, "a.tif", "a_1.tif"},
        UniqueCase{"LongIsCutTo31Bytes", {kLong + ".tif"}, kLong + ".tif", times(27, "x") + ".tif"},
        UniqueCase{"OneByteTooLongIsCut", {times(28, "x") + ".tif"}, times(28, "x") + ".tif", times(27, "x") + ".tif"},
        UniqueCase{"FittingIsNotCutButItsNumberedFormIs",
                   {times(27, "x") + ".tif"},
                   times(27, "x") + ".tif",
                   times(25, "x") + "_1.tif"},
        UniqueCase{"NumberedFormOf31BytesIsWhole",
                   {times(24, "x") + ".jpeg"},
                   times(24, "x") + ".jpeg",
                   times(24, "x") + "_1.jpeg"},
        UniqueCase{"NumberedFormOf32BytesIsNot",
                   {times(25, "x") + ".jpeg"},
                   times(25, "x") + ".jpeg",
                   times(24, "x") + "_1.jpeg"},
        UniqueCase{"TwoDigitsCutOneMore",
                   {times(27, "x") + ".tif", times(25, "x") + "_1.tif", times(25, "x") + "_2.tif",
                    times(25, "x") + "_3.tif", times(25, "x") + "_4.tif", times(25, "x") + "_5.tif",
                    times(25, "x") + "_6.tif", times(25, "x") + "_7.tif", times(25, "x") + "_8.tif",
                    times(25, "x") + "_9.tif"},
                   times(27, "x") + ".tif",
                   times(24, "x") + "_10.tif"},
        UniqueCase{"FirstCutCountsCharacters", {kAccents + ".tif"}, kAccents + ".tif", times(27, "\xC3\xA9") + ".tif"},
        UniqueCase{"SecondCutCountsBytes",
                   {kAccents + ".tif", times(27, "\xC3\xA9") + ".tif"},
                   kAccents + ".tif",
                   times(12, "\xC3\xA9") + "\xC3_1.tif"},
        UniqueCase{"ExtensionAloneFillsTheRoom", {"b." + kLong}, "b." + kLong, "." + kLong},
        UniqueCase{"ExtensionBeyondTheRoom", {"b." + kLong, "." + kLong}, "b." + kLong, "_1." + kLong}),
    [](const auto& info) { return info.param.reason; });

TEST(CopyFileOrFolder, KeepsOrFollowsTheLinksInsideAndLeavesOutWhatNoCopyCanHold) {
    const TempFolder folder;
    folder.write("from/Dic/ind", "a");
    folder.write("from/Dic/sub/.hidden", "h");
    folder.write("real", "r");
    fs::create_symlink("../../real", folder.path() / "from/Dic/alias");
    fs::create_symlink("nowhere", folder.path() / "from/Dic/gone");
    ASSERT_EQ(::mkfifo((folder.path() / "from/Dic/fifo").c_str(), 0600), 0);
    for (const char* name : {"to", "complete"})
        fs::create_directories(folder.path() / name);
    const FolderItem source(folder.path() / "from/Dic");

    const FolderItem copy = mFiMod_CopyFileOrFolderTo(source, FolderItem(folder.path() / "to"));
    EXPECT_EQ(copy.path(), folder.path() / "to/Dic");
    EXPECT_TRUE(copy.Child("alias").Alias());
    EXPECT_EQ(folder.read("to/Dic/alias"), "r") << "it leads to the same file from there";
    EXPECT_EQ(folder.read("to/Dic/sub/.hidden"), "h");
    const FolderItem complete = mFiMod_CopyFileOrFolderTo_Complete(source, FolderItem(folder.path() / "complete"));
    EXPECT_FALSE(complete.Child("alias").Alias());
    EXPECT_EQ(folder.read("complete/Dic/alias"), "r");
    for (const FolderItem& each : {copy, complete})
        EXPECT_EQ(each.items().size(), 3U) << each.Name();
}

TEST(CopyFileOrFolder, FillsUpAFolderThatIsThereAndReplacesNothing) {
    const TempFolder folder;
    folder.write("from/a", "new");
    folder.write("from/sub/b", "new");
    folder.write("to/from/a", "old");
    folder.write("to/from/c", "own");
    mFiMod_CopyFileOrFolderTo(FolderItem(folder.path() / "from"), FolderItem(folder.path() / "to"));
    EXPECT_EQ(folder.read("to/from/a"), "old");
    EXPECT_EQ(folder.read("to/from/c"), "own");
    EXPECT_EQ(folder.read("to/from/sub/b"), "new");
}

TEST(CopyFileOrFolder, ThatCannotBeLeavesNothingBehind) {
    const TempFolder folder;
    folder.write("file", "f");
    folder.write("dir/sub/inside", "f");
    const auto copied = [&](const char* from, const char* to, const std::string& name) {
        return mFiMod_CopyFiToFolderWIthNewName(FolderItem(folder.path() / from), FolderItem(folder.path() / to), name)
            .Exists();
    };
    EXPECT_FALSE(copied("missing", "dir", "x"));
    EXPECT_FALSE(copied("file", "file", "x"));
    EXPECT_FALSE(copied("file", "nowhere", "x"));
    EXPECT_FALSE(copied("dir", "dir/sub", "into itself"));
    for (const std::string& name : {std::string(300, 'n'), std::string(), std::string(".."), std::string("a/b")})
        EXPECT_FALSE(copied("file", "dir", name)) << name;
    std::size_t left = 0;
    for (const auto& entry : fs::recursive_directory_iterator(folder.path()))
        left += entry.exists() ? 1 : 0;
    EXPECT_EQ(left, 4U);
}

TEST(CopyWithNewName, NeverTouchesAFileThatIsThere) {
    const TempFolder folder;
    const FolderItem source(folder.write("words.txt", "new"));
    const FolderItem to(folder.path() / "to");
    folder.write("to/words.txt", "clash");
    EXPECT_EQ(mFiMod_CopyFiToFolderWIthNewName(source, to, "Text.txt").Name(), "Text.txt");
    EXPECT_EQ(folder.read("to/Text.txt"), "new");
    EXPECT_EQ(folder.read("to/words.txt"), "clash");
    folder.write("words.txt", "newer");
    EXPECT_TRUE(mFiMod_CopyFiToFolderWIthNewName(source, to, "Text.txt").Exists());
    EXPECT_EQ(folder.read("to/Text.txt"), "new");
    EXPECT_EQ(to.items().size(), 2u);
}

TEST(MoveFileOrFolder, OntoAnExistingNameMovesNothingAndSaysSo) {
    const TempFolder folder;
    folder.write("from/Dic/ind", "new");
    folder.write("to/dic/ind", "old");
    const FolderItem to(folder.path() / "to");
    const CollectedMessages messages;
    EXPECT_TRUE(mFiMod_MoveFileOrFolderTo(FolderItem(folder.path() / "from/Dic"), to).isNil());
    EXPECT_EQ(messages.texts,
              Texts{"The item which has the same name exists already.\n" + to.AbsolutePath() + "\nDic"});
    EXPECT_EQ(folder.read("from/Dic/ind"), "new");
    fs::remove_all(folder.path() / "to/dic");
    const FolderItem moved = mFiMod_MoveFileOrFolderTo(FolderItem(folder.path() / "from/Dic"), to);
    EXPECT_EQ(moved.path(), folder.path() / "to/Dic");
    EXPECT_FALSE(fs::exists(folder.path() / "from/Dic"));
    EXPECT_TRUE(mFiMod_MoveFileOrFolderTo(FolderItem(folder.path() / "from/gone"), to).isNil());
    EXPECT_EQ(messages.texts.size(), 1u);
}

struct LinesCase {
    const char* reason;
    std::vector<int> numbers;
    Texts lines;
};

class LinesByNumbers : public testing::TestWithParam<LinesCase> {};

TEST_P(LinesByNumbers, AreThoseTold) {
    const TempFolder folder;
    const FolderItem file(folder.write("txt", "one\r\ntwo\rthree\n\nfive"));
    Texts lines = {"before"};
    mFiMod_GetTextFiLinesByLineNums(file, GetParam().numbers, lines);
    Texts wanted = {"before"};
    wanted.insert(wanted.end(), GetParam().lines.begin(), GetParam().lines.end());
    EXPECT_EQ(lines, wanted);
}

INSTANTIATE_TEST_SUITE_P(Numbers, LinesByNumbers,
                         testing::Values(LinesCase{"Several", {1, 3, 4, 5}, {"one", "three", "", "five"}},
                                         LinesCase{"EachTwiceGivesItOnce", {2, 2}, {"two"}},
                                         LinesCase{"ARepeatedNumberStopsTheRest", {2, 2, 3}, {"two"}},
                                         LinesCase{"ZeroStopsTheRest", {0, 3}, {}}, LinesCase{"Zero", {0, 0}, {}},
                                         LinesCase{"Negative", {-1}, {}}, LinesCase{"PastTheEnd", {5, 6, 9}, {"five"}},
                                         LinesCase{"DescendingEndsAtTheLast", {3, 1}, {}}),
                         [](const auto& info) { return info.param.reason; });

TEST(LinesByNumbers, TellOfEachThingThatIsMissing) {
    const TempFolder folder;
    const FolderItem file(folder.write("txt", "one\n"));
    const CollectedMessages messages;
    Texts lines;
    mFiMod_GetTextFiLinesByLineNums(FolderItem(), {1}, lines);
    mFiMod_GetTextFiLinesByLineNums(FolderItem(folder.path() / "gone"), {1}, lines);
    mFiMod_GetTextFiLinesByLineNums(file, {}, lines);
    mFiMod_GetTextFiLinesByLineNums(FolderItem(folder.path()), {1}, lines);
    EXPECT_TRUE(lines.empty());
    EXPECT_EQ(messages.texts, (Texts{"mFiMod_GetTextFiLinesByLineNums_StringArray, TextFileFi is NilObject.",
                                     "mFiMod_GetTextFiLinesByLineNums_StringArray,TextFileFi does not exist.",
                                     "mFiMod_GetTextFiLinesByLineNums_String, LineNum does not exist.",
                                     "NilObjectException: mFiMod_GetTextFiLinesByLineNums: StrArray"}));
}

TEST(MakeImageIndex, WritesTheLastIndexAndThePicturesByName) {
    const TempFolder folder;
    for (const char* name :
         {"p10.tif", "P2.JPEG", "p1.Png", "b.pict", "notes.txt", "tif", ".hidden.png", "two\nlines.bmp"})
        folder.write(name, "");
    fs::create_directories(folder.path() / "folder.bmp");
    folder.write("elsewhere/x.dat", "");
    fs::create_symlink("elsewhere/x.dat", folder.path() / "alias.pct");
    fs::create_symlink("nowhere", folder.path() / "gone.tif");
    EXPECT_TRUE(mFiMod_MakeImageIndex(FolderItem(folder.path())));
    EXPECT_EQ(folder.read("ImageIndex"), "4\nalias.pct\nb.pict\np1.Png\np10.tif\nP2.JPEG\n");
}

TEST(MakeImageIndex, WithoutPictureOrFolderWritesNothing) {
    const TempFolder folder;
    folder.write("in/notes.txt", "");
    folder.write("asked/p.png", "");
    const FolderItem in(folder.path() / "in");
    EXPECT_FALSE(mFiMod_MakeImageIndex(in));
    EXPECT_EQ(in.items().size(), 1u);
    EXPECT_FALSE(mFiMod_MakeImageIndex(FolderItem()));
    EXPECT_FALSE(mFiMod_MakeImageIndex(FolderItem(), [] { return FolderItem(); }));
    EXPECT_TRUE(mFiMod_MakeImageIndex(FolderItem(), [&] { return FolderItem(folder.path() / "asked"); }));
    EXPECT_EQ(folder.read("asked/ImageIndex"), "0\np.png\n");
    // It cannot be written where a folder has its name.
    folder.write("full/p.png", "");
    fs::create_directories(folder.path() / "full/ImageIndex");
    EXPECT_FALSE(mFiMod_MakeImageIndex(FolderItem(folder.path() / "full")));
}

/// Sets an environment variable while it lives; nullptr takes it away.
class Environment {
  public:
    Environment(const char* name, const char* value) : name_(name) {
        if (const char* old = std::getenv(name))
            old_ = old;
        set(value);
    }
    ~Environment() { set(old_ ? old_->c_str() : nullptr); }

  private:
    void set(const char* value) const { value != nullptr ? ::setenv(name_, value, 1) : ::unsetenv(name_); }
    const char* name_;
    std::optional<std::string> old_;
};

TEST(OpenFiModule, MakesThePerUserFolderOnceWithTheUsersName) {
    const TempFolder home;
    const fs::path config = home.path() / "config";
    {
        const Environment xdg("XDG_CONFIG_HOME", config.c_str());
        mFiMod_OpenThisModule();
        EXPECT_EQ(pFiMod_UserPrefContainer.path(), config / "Selorin_SoftWare");
        const std::string name = home.read("config/Selorin_SoftWare/LocalUserName");
        EXPECT_GT(name.size(), 1u);
        EXPECT_EQ(name.find('\n'), name.size() - 1);
        home.write("config/Selorin_SoftWare/LocalUserName", "kept");
        mFiMod_OpenThisModule();
        EXPECT_EQ(home.read("config/Selorin_SoftWare/LocalUserName"), "kept");
    }
    const Environment noXdg("XDG_CONFIG_HOME", "relative/paths/do/not/count");
    const Environment atHome("HOME", home.path().c_str());
    mFiMod_OpenThisModule();
    EXPECT_EQ(pFiMod_UserPrefContainer.path(), home.path() / ".config/Selorin_SoftWare");
    EXPECT_EQ(pPictureExtensions, (std::set<std::string>{"tif", "tiff", "jpg", "jpeg", "pict", "pct", "bmp", "png"}));
}

TEST(OpenFiModule, WithoutAPreferencesFolderSaysSoWhereThereIsADesktop) {
    const TempFolder home;
    home.write(".config", "a file in the folder's place");
    fs::create_directories(home.path() / "Desktop");
    const Environment noXdg("XDG_CONFIG_HOME", nullptr);
    const Environment atHome("HOME", home.path().c_str());
    const CollectedMessages messages;
    mFiMod_OpenThisModule();
    EXPECT_EQ(messages.texts, Texts{"mFiMod_OpenThisModule::Application Dataフォルダが見つかりません。"});
    fs::create_directories(home.path() / "Application Data");
    mFiMod_OpenThisModule();
    EXPECT_TRUE(fs::exists(home.path() / "Application Data/Selorin_SoftWare/LocalUserName"));
}

TEST(DataModule, WritesBooleansAndDateNames) {
    EXPECT_EQ(mDataMod_ConvertBooleanToString(true), "True");
    EXPECT_EQ(mDataMod_ConvertBooleanToString(false), "False");
    EXPECT_EQ(mDataMod_ConvertBooleanTo1or0(true), "1");
    EXPECT_EQ(mDataMod_ConvertBooleanTo1or0(false), "0");
    const std::string name = mDataMod_MakeDateName();
    EXPECT_GT(name.size(), 8u);
    EXPECT_LE(name.size(), 14u);
    EXPECT_TRUE(std::all_of(name.begin(), name.end(), [](char c) { return c >= '0' && c <= '9'; })) << name;
}

} // namespace
} // namespace velmarin
