#include "files/AtomicFile.h"
#include "files/Descriptor.h"
#include "files/FolderItem.h"
#include "files/SystemCalls.h"
#include "files/TemporaryName.h"
#include "support/TempFolder.h"
#include "support/Tree.h"

#include <gtest/gtest.h>

#include <csignal>
#include <optional>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace velmarin {
namespace {

namespace fs = std::filesystem;
using namespace std::string_literals;
using test::filesOf;
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
    for (const Durability durability : {Durability::Flushed, Durability::RenamedOnly})
        for (const std::string& text : {"old"s, std::string(3'000'000, 'x'), ""s, "a\0b"s}) {
            EXPECT_TRUE(writeFileAtomically(folder.at("f"), text, durability));
            EXPECT_TRUE(filesOf(folder.path()) == "f=" + text);
        }
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
    folder.link("one", "there/real");
    folder.link("two", "one");
    folder.link("dangling", "there/made");
    for (const char* name : {"two", "dangling"})
        EXPECT_TRUE(writeFileAtomically(folder.at(name), "new"));
    EXPECT_EQ(filesOf(folder.path()), "dangling->there/made one->there/real there/made=new there/real=new two->one");
}

TEST(WriteFileAtomically, FailureNamesTheFileAndLeavesEverythingAsItWas) {
    const TempFolder folder;
    folder.write("folder/inside", "");
    folder.write("file", "old");
    folder.link("loop", "loop");
    folder.fifo("fifo");
    for (const auto& [where, reason] : {std::pair{folder.at("folder"), "it is not a file"},
                                        {folder.at("fifo"), "it is not a file"},
                                        {folder.at("loop"), "it is a link that leads nowhere"},
                                        {folder.at("file/inside"), "Not a directory"},
                                        {folder.at("missing/f"), "No such file or directory"},
                                        {folder.at(std::string(300, 'n')), "File name too long"},
                                        {"/proc/velmarin", "No such file or directory"}}) {
        const Result result = writeFileAtomically(where, "new");
        EXPECT_EQ(result.failure().message(), "\"" + where.string() + "\" could not be written: " + reason);
    }
    EXPECT_EQ(FolderItem(folder.path()).items().size(), 4u);
    EXPECT_EQ(folder.read("file"), "old");
}

TEST(WriteFileAtomically, OnAFullDiskTheOldFileStays) {
    const TempFolder folder;
    const fs::path path = folder.write("f", "old");
    for (const Durability durability : {Durability::Flushed, Durability::RenamedOnly}) {
        auto full = std::make_optional<FullDisk>(1000);
        const Result result = writeFileAtomically(path, std::string(100'000, 'x'), durability);
        full.reset();
        EXPECT_NE(result.failure().reason.find("File too large"), std::string::npos);
        EXPECT_EQ(filesOf(folder.path()), "f=old");
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

TEST(FlushOpen, IsContentWithWhatCannotBeFlushed) {
    const Descriptor null(::open("/dev/null", O_WRONLY | O_CLOEXEC));
    EXPECT_TRUE(flushOpen(null.number()));
    EXPECT_FALSE(flushOpen(-1));
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
