#include "store/CopyAndMove.h"
#include "store/DateName.h"
#include "store/FileNames.h"
#include "store/ImageIndex.h"
#include "store/PictureFormats.h"
#include "store/TextFileLines.h"
#include "store/UserPreferencesFolder.h"
#include "support/CollectedMessages.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <cstdlib>

#include <sys/stat.h>

namespace velmarin {
namespace {

namespace fs = std::filesystem;
using test::CollectedMessages;
using test::TempFolder;
using Texts = std::vector<std::string>;

TEST(FileNames, ExtensionIsWhatFollowsTheLastPoint) {
    const struct {
        const char *name, *extension, *rest;
    } cases[] = {{"", "", ""},          {"name", "", "name"},      {"a.b.TIFF", "TIFF", "a.b"},
                 {"name.", "", "name"}, {".hidden", "hidden", ""}, {".", "", ""}};
    for (const auto& each : cases) {
        EXPECT_EQ(mFiMod_GetExtensionFromFileName(each.name), each.extension) << each.name;
        EXPECT_EQ(mFiMod_RemoveExtesionFromFileName(each.name), each.rest) << each.name;
    }
}

std::string x(std::size_t count) {
    return std::string(count, 'x');
}

std::string accents(int count) {
    std::string all;
    while (count-- > 0)
        all += "\xC3\xA9";
    return all;
}

TEST(FileNames, AreMadeUnique) {
    const struct {
        const char* reason;
        Texts taken;
        std::string name;
        std::string unique;
    } cases[] = {{"FreeLongNameStays", {}, x(40) + ".tif", x(40) + ".tif"},
                 {"TakenGetsANumberBeforeItsExtension", {"a.tif"}, "a.tif", "a_1.tif"},
                 {"NumbersGoOn", {"a.tif", "a_1.tif", "a_2.tif"}, "a.tif", "a_3.tif"},
                 {"WithoutExtension", {"Latin"}, "Latin", "Latin_1"},
                 {"PointAtTheEndIsDropped", {"a."}, "a.", "a"},
                 {"OtherCaseIsTaken", {"A.TIF"}, "a.tif", "a_1.tif"},
                 {"LongIsCutTo31Bytes", {x(40) + ".tif"}, x(40) + ".tif", x(27) + ".tif"},
                 {"OneByteTooLongIsCut", {x(28) + ".tif"}, x(28) + ".tif", x(27) + ".tif"},
                 {"FittingIsNotCutButItsNumberedFormIs", {x(27) + ".tif"}, x(27) + ".tif", x(25) + "_1.tif"},
                 {"NumberedFormOf31BytesIsWhole", {x(24) + ".jpeg"}, x(24) + ".jpeg", x(24) + "_1.jpeg"},
                 {"NumberedFormOf32BytesIsNot", {x(25) + ".jpeg"}, x(25) + ".jpeg", x(24) + "_1.jpeg"},
                 {"TwoDigitsCutOneMore",
                  {x(27) + ".tif", x(25) + "_1.tif", x(25) + "_2.tif", x(25) + "_3.tif", x(25) + "_4.tif",
                   x(25) + "_5.tif", x(25) + "_6.tif", x(25) + "_7.tif", x(25) + "_8.tif", x(25) + "_9.tif"},
                  x(27) + ".tif",
                  x(24) + "_10.tif"},
                 {"FirstCutCountsCharacters", {accents(40) + ".tif"}, accents(40) + ".tif", accents(27) + ".tif"},
                 {"SecondCutCountsBytes",
                  {accents(40) + ".tif", accents(27) + ".tif"},
                  accents(40) + ".tif",
                  accents(12) + "\xC3_1.tif"},
                 {"ExtensionAloneFillsTheRoom", {"b." + x(40)}, "b." + x(40), "." + x(40)},
                 {"ExtensionBeyondTheRoom", {"b." + x(40), "." + x(40)}, "b." + x(40), "_1." + x(40)}};
    for (const auto& each : cases) {
        SCOPED_TRACE(each.reason);
        const TempFolder folder;
        for (const std::string& name : each.taken)
            folder.write(name, "");
        EXPECT_EQ(mFiMod_GetUniqueFileName(each.name, FolderItem(folder.path())), each.unique);
    }
}

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

TEST(CopyFileOrFolder, ThatFailsLeavesNothingBehind) {
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

TEST(MoveFileOrFolder, OntoAnExistingNameMovesNothingAndReportsIt) {
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

TEST(LinesByNumbers, EndAtANumberThatDoesNotRise) {
    const struct {
        const char* reason;
        std::vector<int> numbers;
        Texts lines;
    } cases[] = {{"Several", {1, 3, 4, 5}, {"one", "three", "", "five"}},
                 {"EachTwiceGivesItOnce", {2, 2}, {"two"}},
                 {"ARepeatedNumberStopsTheRest", {2, 2, 3}, {"two"}},
                 {"ZeroStopsTheRest", {0, 3}, {}},
                 {"Zero", {0, 0}, {}},
                 {"Negative", {-1}, {}},
                 {"PastTheEnd", {5, 6, 9}, {"five"}},
                 {"DescendingEndsAtTheLast", {3, 1}, {}}};
    for (const auto& each : cases) {
        SCOPED_TRACE(each.reason);
        const TempFolder folder;
        const FolderItem file(folder.write("txt", "one\r\ntwo\rthree\n\nfive"));
        Texts lines = {"before"};
        mFiMod_GetTextFiLinesByLineNums(file, each.numbers, lines);
        Texts wanted = {"before"};
        wanted.insert(wanted.end(), each.lines.begin(), each.lines.end());
        EXPECT_EQ(lines, wanted);
    }
}

TEST(LinesByNumbers, ReportWhatIsMissing) {
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

TEST(DataModule, DateNameIsDigits) {
    const std::string name = mDataMod_MakeDateName();
    EXPECT_GT(name.size(), 8u);
    EXPECT_EQ(name.find_first_not_of("0123456789"), std::string::npos) << name;
}

} // namespace
} // namespace velmarin
