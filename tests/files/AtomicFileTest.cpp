#include "files/AtomicFile.h"
#include "files/FolderItem.h"
#include "files/TemporaryName.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <csignal>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace velmarin {
namespace {

namespace fs = std::filesystem;
using test::TempFolder;

int modeOf(const fs::path& path) {
    struct stat found {};
    ::stat(path.c_str(), &found);
    return found.st_mode & 07777;
}

/// Lets no file grow beyond a size, as a full disk does, while it lives.
class FullDisk {
  public:
    explicit FullDisk(rlim_t bytes) : handler_(std::signal(SIGXFSZ, SIG_IGN)) {
        ::getrlimit(RLIMIT_FSIZE, &before_);
        const rlimit limit{bytes, before_.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FullDisk() {
        ::setrlimit(RLIMIT_FSIZE, &before_);
        std::signal(SIGXFSZ, handler_);
    }

  private:
    void (*handler_)(int);
    rlimit before_{};
};

TEST(WriteFileAtomically, ReplacesTheWholeFileAndLeavesNothingBeside) {
    const TempFolder folder;
    const std::string big(3'000'000, 'x');
    for (const Durability durability : {Durability::Flushed, Durability::RenamedOnly}) {
        for (const std::string& text : {std::string("old"), big, std::string(), std::string("a\0b", 3)}) {
            const Result result = writeFileAtomically(folder.path() / "f", text, durability);
            EXPECT_TRUE(result);
            EXPECT_EQ(folder.read("f"), text);
        }
    }
    EXPECT_EQ(FolderItem(folder.path()).items().size(), 1u);
}

TEST(WriteFileAtomically, KeepsThePermissionsOfTheFile) {
    const TempFolder folder;
    for (const int mode : {0600, 0640, 0666, 0755}) {
        const fs::path path = folder.write("f", "old");
        ::chmod(path.c_str(), static_cast<mode_t>(mode));
        EXPECT_TRUE(writeFileAtomically(path, "new"));
        EXPECT_EQ(modeOf(path), mode);
    }
    const mode_t mask = ::umask(027);
    EXPECT_TRUE(writeFileAtomically(folder.path() / "made", "new"));
    ::umask(mask);
    EXPECT_EQ(modeOf(folder.path() / "made"), 0640);
}

TEST(WriteFileAtomically, WritesThroughLinksAndLeavesThemLinks) {
    const TempFolder folder;
    folder.write("there/real", "old");
    fs::create_symlink("there/real", folder.path() / "one");
    fs::create_symlink("one", folder.path() / "two");
    fs::create_symlink("there/made", folder.path() / "dangling");
    EXPECT_TRUE(writeFileAtomically(folder.path() / "two", "new"));
    EXPECT_EQ(folder.read("there/real"), "new");
    EXPECT_TRUE(writeFileAtomically(folder.path() / "dangling", "first"));
    EXPECT_EQ(folder.read("there/made"), "first");
    for (const char* name : {"one", "two", "dangling"})
        EXPECT_TRUE(fs::is_symlink(folder.path() / name)) << name;
}

TEST(WriteFileAtomically, FailureNamesTheFileAndLeavesEverythingAsItWas) {
    const TempFolder folder;
    folder.write("folder/inside", "");
    folder.write("file", "old");
    fs::create_symlink("loop", folder.path() / "loop");
    ASSERT_EQ(::mkfifo((folder.path() / "fifo").c_str(), 0600), 0);
    struct Case {
        const char* where;
        const char* reason;
    };
    for (const Case& c : {Case{"folder", "it is not a file"}, Case{"fifo", "it is not a file"},
                          Case{"loop", "it is a link that leads nowhere"}, Case{"file/inside", "Not a directory"},
                          Case{"missing/f", "No such file or directory"}}) {
        const Result result = writeFileAtomically(folder.path() / c.where, "new");
        EXPECT_FALSE(result) << c.where;
        EXPECT_EQ(result.failure().message(),
                  "\"" + (folder.path() / c.where).string() + "\" could not be written: " + c.reason);
    }
    const Result tooLong = writeFileAtomically(folder.path() / std::string(300, 'n'), "new");
    EXPECT_NE(tooLong.failure().reason.find("File name too long"), std::string::npos);
    EXPECT_FALSE(writeFileAtomically("/proc/velmarin", "new"));
    EXPECT_EQ(folder.read("file"), "old");
    EXPECT_EQ(FolderItem(folder.path()).items().size(), 4u);
}

TEST(WriteFileAtomically, OnAFullDiskTheOldFileStays) {
    const TempFolder folder;
    const fs::path path = folder.write("f", "old");
    for (const Durability durability : {Durability::Flushed, Durability::RenamedOnly}) {
        Result result;
        {
            const FullDisk full(1000);
            result = writeFileAtomically(path, std::string(100'000, 'x'), durability);
        }
        EXPECT_FALSE(result);
        EXPECT_NE(result.failure().reason.find("File too large"), std::string::npos);
        EXPECT_EQ(folder.read("f"), "old");
        EXPECT_EQ(FolderItem(folder.path()).items().size(), 1u);
    }
}

TEST(WriteFileAtomically, ClearsWhatKilledRunsLeftButNotWhatIsBeingWritten) {
    const TempFolder folder;
    folder.write(".velmarin-1-0.tmp", "left by a killed run");
    folder.write(".velmarin-1-2.tmp/member", "a folder left by a killed run");
    folder.write(".velmarin-x-2.tmp", "not ours");
    folder.write(".velmarin-notes", "not ours");
    const fs::path busy = folder.write(".velmarin-1-1.tmp", "half");
    const int writer = ::open(busy.c_str(), O_WRONLY);
    ASSERT_EQ(::flock(writer, LOCK_EX), 0);
    EXPECT_TRUE(writeFileAtomically(folder.path() / "f", "new"));
    EXPECT_TRUE(fs::exists(busy));
    ::close(writer);
    EXPECT_TRUE(writeFileAtomically(folder.path() / "f", "new"));
    EXPECT_EQ(*listNames(folder.path()), (std::vector<std::string>{".velmarin-notes", ".velmarin-x-2.tmp", "f"}));
}

TEST(TemporaryName, IsNewAndTellsItsKind) {
    const std::string one = newTemporaryName();
    EXPECT_EQ(temporaryKind(one), TemporaryKind::Staged);
    EXPECT_NE(one, newTemporaryName());
    for (const TemporaryKind kind : {TemporaryKind::Swap, TemporaryKind::Replaced, TemporaryKind::Staged})
        EXPECT_EQ(temporaryKind(temporaryNameAs(kind, one)), kind);
    for (const char* name : {"", ".velmarin-.tmp", ".velmarin--.tmp", ".velmarin-1.tmp", ".velmarin-1-.tmp",
                             ".velmarin-1-1-1.tmp", ".velmarin-1-1.tmpx", "velmarin-1-1.tmp", ".velmarin-1-a.tmp"})
        EXPECT_FALSE(isTemporaryName(name)) << name;
}

} // namespace
} // namespace velmarin
