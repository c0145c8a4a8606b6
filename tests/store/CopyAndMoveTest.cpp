#include "store/CopyAndMove.h"
#include "support/CollectedMessages.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <iterator>

#include <sys/stat.h>

namespace velmarin {
namespace {

namespace fs = std::filesystem;
using test::TempFolder;

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

TEST(CopyFileOrFolder, FillsUpAFolderAndReplacesNothing) {
    const TempFolder folder;
    for (const char* name : {"from/a", "from/sub/b", "words.txt"})
        folder.write(name, "new");
    for (const char* name : {"to/from/a", "to/words.txt"})
        folder.write(name, "old");
    const FolderItem to(folder.path() / "to");
    mFiMod_CopyFileOrFolderTo(FolderItem(folder.path() / "from"), to);
    EXPECT_EQ(folder.read("to/from/a"), "old");
    EXPECT_EQ(folder.read("to/from/sub/b"), "new");
    for (const char* data : {"new", "newer"}) {
        const FolderItem source(folder.write("words.txt", data));
        EXPECT_EQ(mFiMod_CopyFiToFolderWIthNewName(source, to, "Text.txt").path(), to.path() / "Text.txt");
        EXPECT_EQ(folder.read("to/Text.txt"), "new");
        EXPECT_EQ(folder.read("to/words.txt"), "old");
    }
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
    EXPECT_FALSE(copied("file", "nowhere", "x"));
    EXPECT_FALSE(copied("dir", "dir/sub", "into itself"));
    for (const std::string& name : {std::string(300, 'n'), std::string(), std::string(".."), std::string("a/b")})
        EXPECT_FALSE(copied("file", "dir", name)) << name;
    EXPECT_EQ(std::distance(fs::recursive_directory_iterator(folder.path()), {}), 4);
}

TEST(MoveFileOrFolder, OntoAnExistingNameMovesNothingAndReportsIt) {
    const TempFolder folder;
    folder.write("from/Dic/ind", "new");
    folder.write("to/dic/ind", "old");
    const FolderItem to(folder.path() / "to");
    const test::CollectedMessages messages;
    EXPECT_TRUE(mFiMod_MoveFileOrFolderTo(FolderItem(folder.path() / "from/Dic"), to).isNil());
    EXPECT_EQ(messages.texts, std::vector<std::string>{"The item which has the same name exists already.\n" +
                                                       to.AbsolutePath() + "\nDic"});
    EXPECT_EQ(folder.read("from/Dic/ind"), "new");
    fs::remove_all(folder.path() / "to/dic");
    const FolderItem moved = mFiMod_MoveFileOrFolderTo(FolderItem(folder.path() / "from/Dic"), to);
    EXPECT_EQ(moved.path(), folder.path() / "to/Dic");
    EXPECT_FALSE(fs::exists(folder.path() / "from/Dic"));
    EXPECT_TRUE(mFiMod_MoveFileOrFolderTo(FolderItem(folder.path() / "from/gone"), to).isNil());
    EXPECT_EQ(messages.texts.size(), 1u);
}

} // namespace
} // namespace velmarin
