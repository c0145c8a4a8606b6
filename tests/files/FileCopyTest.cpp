#include "files/FileCopy.h"
#include "files/TextFile.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>

#include <sys/stat.h>
#include <unistd.h>

namespace velmarin {
namespace {

namespace fs = std::filesystem;
using test::TempFolder;

/// Everything below a folder, a line each: "path=bytes", "path/" or "path -> target".
std::vector<std::string> treeOf(const fs::path& folder) {
    std::vector<std::string> lines;
    for (const auto& entry : fs::recursive_directory_iterator(folder)) {
        const std::string name = entry.path().lexically_relative(folder).string();
        if (entry.is_symlink())
            lines.push_back(name + " -> " + fs::read_symlink(entry.path()).string());
        else if (entry.is_directory())
            lines.push_back(name + "/");
        else if (entry.is_regular_file())
            lines.push_back(name + "=" + *readWholeFile(FolderItem(entry.path())));
        else
            lines.push_back(name + " special");
    }
    std::sort(lines.begin(), lines.end());
    return lines;
}

std::vector<std::string> reasons(const std::vector<CopyFailure>& failures) {
    std::vector<std::string> texts;
    for (const CopyFailure& failure : failures)
        texts.push_back(failure.item.Name() + ": " + failure.reason);
    return texts;
}

class CopyItem : public testing::Test {
  protected:
    FolderItem at(const std::string& name) const { return FolderItem(folder_.path() / name); }

    TempFolder folder_;
};

TEST_F(CopyItem, KeepsOrFollowsTheLinksInside) {
    folder_.write("far/x.tif", "far");
    folder_.write("from/ind", "a\n");
    folder_.write("from/.hidden", "h");
    fs::create_directories(folder_.path() / "from/empty");
    fs::create_symlink("../far/x.tif", folder_.path() / "from/page.tif");
    fs::create_directory_symlink(folder_.path() / "far", folder_.path() / "from/mImg");
    for (const char* name : {"kept", "followed"})
        fs::create_directories(folder_.path() / name);

    EXPECT_TRUE(copyItem(at("from"), at("kept"), "copy", Links::Kept).empty());
    EXPECT_EQ(treeOf(folder_.path() / "kept"),
              (std::vector<std::string>{"copy/", "copy/.hidden=h", "copy/empty/", "copy/ind=a\n",
                                        "copy/mImg -> " + (folder_.path() / "far").string(),
                                        "copy/page.tif -> ../far/x.tif"}));
    EXPECT_TRUE(copyItem(at("from"), at("followed"), "copy", Links::Followed).empty());
    EXPECT_EQ(treeOf(folder_.path() / "followed"),
              (std::vector<std::string>{"copy/", "copy/.hidden=h", "copy/empty/", "copy/ind=a\n", "copy/mImg/",
                                        "copy/mImg/x.tif=far", "copy/page.tif=far"}));
}

TEST_F(CopyItem, FillsUpAFolderThatIsThereAndReplacesNothing) {
    folder_.write("from/a", "new");
    folder_.write("from/sub/b", "new");
    folder_.write("to/from/a", "old");
    folder_.write("to/from/c", "own");
    EXPECT_EQ(reasons(copyItem(at("from"), at("to"), "from", Links::Kept)),
              (std::vector<std::string>{"a: File exists"}));
    EXPECT_EQ(treeOf(folder_.path() / "to"),
              (std::vector<std::string>{"from/", "from/a=old", "from/c=own", "from/sub/", "from/sub/b=new"}));
}

TEST_F(CopyItem, LeavesOutWhatCannotBeCopiedAndSaysSo) {
    folder_.write("from/a", "a");
    folder_.write("from/z", "z");
    folder_.write("from/sub/b", "b");
    ASSERT_EQ(::mkfifo((folder_.path() / "from/fifo").c_str(), 0600), 0);
    fs::create_symlink("nowhere", folder_.path() / "from/gone");
    fs::create_symlink("self", folder_.path() / "from/self");
    fs::create_directory_symlink("..", folder_.path() / "from/sub/up");
    fs::create_directories(folder_.path() / "to");
    int calls = 0;
    EXPECT_EQ(reasons(copyItem(at("from"), at("to"), "from", Links::Followed, [&] { ++calls; })),
              (std::vector<std::string>{"fifo: it is neither a file nor a folder", "gone: it is not there",
                                        "self: Too many levels of symbolic links",
                                        "up: it is a link back into the folder that is being copied"}));
    EXPECT_EQ(treeOf(folder_.path() / "to"),
              (std::vector<std::string>{"from/", "from/a=a", "from/sub/", "from/sub/b=b", "from/z=z"}));
    EXPECT_GE(calls, 5);
}

TEST_F(CopyItem, NeverCopiesAFolderIntoItself) {
    folder_.write("from/sub/b", "b");
    fs::create_directory_symlink("from/sub", folder_.path() / "way");
    const auto before = treeOf(folder_.path());
    for (const char* to : {"from", "from/sub", "way"}) {
        EXPECT_EQ(reasons(copyItem(at("from"), at(to), "copy", Links::Kept)),
                  (std::vector<std::string>{"from: a folder cannot be copied into itself"}))
            << to;
        EXPECT_EQ(treeOf(folder_.path()), before) << to;
    }
    // By a link inside it, as well.
    fs::create_directory_symlink(folder_.path(), folder_.path() / "from/root");
    fs::create_directories(folder_.path() / "to");
    EXPECT_EQ(reasons(copyItem(at("from"), at("to"), "copy", Links::Followed)),
              (std::vector<std::string>{"root: a folder cannot be copied into itself"}));
}

TEST_F(CopyItem, KeepsPermissionsAndTimes) {
    const fs::path from = folder_.write("from", std::string(3'000'000, 'x'));
    ::chmod(from.c_str(), 0640);
    fs::last_write_time(from, fs::file_time_type(std::chrono::seconds(-1'000'000'000)));
    EXPECT_TRUE(copyItem(at("from"), at("."), "to", Links::Kept).empty());
    EXPECT_EQ(fs::last_write_time(folder_.path() / "to"), fs::last_write_time(from));
    EXPECT_EQ(fs::status(folder_.path() / "to").permissions(), fs::perms(0640));
    EXPECT_EQ(folder_.read("to"), folder_.read("from"));
}

TEST_F(CopyItem, FailureLeavesNothingBehind) {
    folder_.write("file", "f");
    folder_.write("dir/inside", "f");
    const auto before = treeOf(folder_.path());
    EXPECT_EQ(copyItem(at("missing"), at("dir"), "x", Links::Kept).size(), 1u);
    EXPECT_EQ(copyItem(at("file"), at("file"), "x", Links::Kept).size(), 1u);
    EXPECT_EQ(copyItem(at("file"), at("nowhere"), "x", Links::Kept).size(), 1u);
    EXPECT_EQ(copyItem(at("file"), at("dir"), std::string(300, 'n'), Links::Kept).size(), 1u);
    EXPECT_EQ(copyItem(at("dir"), at("."), std::string(300, 'n'), Links::Kept).size(), 1u);
    for (const char* name : {"", "..", "a/b"})
        EXPECT_EQ(copyItem(at("file"), at("dir"), name, Links::Kept).size(), 1u);
    EXPECT_EQ(treeOf(folder_.path()), before);
}

TEST_F(CopyItem, MoveTakesTheWholeFolderOrNothing) {
    folder_.write("from/sub/a", "a");
    fs::create_symlink("nowhere", folder_.path() / "from/link");
    fs::create_directories(folder_.path() / "to");
    EXPECT_TRUE(moveItem(at("from"), at("to"), "new").empty());
    const std::vector<std::string> moved = {"to/", "to/new/", "to/new/link -> nowhere", "to/new/sub/",
                                            "to/new/sub/a=a"};
    EXPECT_EQ(treeOf(folder_.path()), moved);
    EXPECT_EQ(reasons(moveItem(at("to"), at("to/new"), "deeper")),
              (std::vector<std::string>{"to: a folder cannot be moved into itself"}));
    EXPECT_EQ(reasons(moveItem(at("to/new"), at("."), "to")), (std::vector<std::string>{"new: File exists"}));
    EXPECT_EQ(moveItem(at("missing"), at("to"), "x").size(), 1u);
    EXPECT_EQ(treeOf(folder_.path()), moved);
}

TEST_F(CopyItem, MoveToAnotherFileSystemRemovesTheSourceOnlyWhenAllHasArrived) {
    std::string other = "/dev/shm/velmarin-test-XXXXXX";
    struct stat here {
    }, there{};
    if (::mkdtemp(other.data()) == nullptr)
        GTEST_SKIP() << "no second file system to move to";
    ::stat(folder_.path().c_str(), &here);
    ::stat(other.c_str(), &there);
    if (here.st_dev == there.st_dev) {
        fs::remove_all(other);
        GTEST_SKIP() << "no second file system to move to";
    }
    folder_.write("whole/sub/a", "a");
    folder_.write("faulty/a", "a");
    ASSERT_EQ(::mkfifo((folder_.path() / "faulty/fifo").c_str(), 0600), 0);
    EXPECT_TRUE(moveItem(at("whole"), FolderItem(other), "whole").empty());
    EXPECT_EQ(reasons(moveItem(at("faulty"), FolderItem(other), "faulty")),
              (std::vector<std::string>{"fifo: it is neither a file nor a folder"}));
    EXPECT_EQ(treeOf(other), (std::vector<std::string>{"whole/", "whole/sub/", "whole/sub/a=a"}));
    EXPECT_EQ(treeOf(folder_.path()), (std::vector<std::string>{"faulty/", "faulty/a=a", "faulty/fifo special"}));
    fs::remove_all(other);
}

} // namespace
} // namespace velmarin
