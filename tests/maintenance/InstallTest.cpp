#include "maintenance/Install.h"
#include "FailedItems.h"
#include "maintenance/Export.h"
#include "support/DictionaryBuilder.h"
#include "support/TempFolder.h"
#include "support/Tree.h"

#include <gtest/gtest.h>

namespace velmarin::test {

namespace fs = std::filesystem;

namespace {

class Install : public ::testing::Test {
  protected:
    Install() {
        DictionaryBuilder("Webster").entries({"a", "b"}).writeTo(folder_.at("source"));
        fs::create_directory(folder_.at("Group"));
    }

    MaintenanceResult install(const Progress& progress = {}, const fs::path& group = "Group") const {
        return installDictionary(FolderItem(source()), FolderItem(folder_.at(group)), progress);
    }
    void expectRefused(const char* group, const char* reason) const {
        const Tree before = treeOf(folder_.path());
        const std::string message = failureMessage(install({}, group));
        EXPECT_NE(message.find(reason), std::string::npos) << group << ": " << message;
        EXPECT_EQ(treeOf(folder_.path()), before) << group;
    }
    fs::path source() const { return folder_.at("source/Webster"); }
    fs::path target() const { return folder_.at("Group/Webster"); }

    TempFolder folder_;
};

TEST_F(Install, CopiesAllMembersWithTimesAndLinks) {
    folder_.write("source/Webster/.hidden", "x");
    folder_.link("source/Webster/mPimg", "mImg");
    folder_.link("source/Webster/nowhere", "/not/there");
    fs::permissions(source() / "ind", fs::perms(0440));
    for (const char* member : {"ind", "mImg"})
        fs::last_write_time(source() / member, fs::file_time_type::clock::now() - std::chrono::hours(1000));
    EXPECT_EQ(failureMessage(install()), "");
    EXPECT_EQ(treeOf(target()), treeOf(source()));
    for (const char* member : {"ind", "mImg"})
        EXPECT_EQ(fs::last_write_time(target() / member), fs::last_write_time(source() / member));
    EXPECT_EQ(fs::status(target() / "ind").permissions(), fs::perms(0640)) << "an update must be able to replace it";
}

TEST_F(Install, RelativeLinksKeepTheirTargets) {
    folder_.write("shared/text", "shared");
    folder_.link("source/Webster/outside", "../../shared/text");
    folder_.link("source/Webster/inside", "mImg/p1.bmp");
    folder_.link("source/Webster/mImg/chain", "../outside");
    folder_.link("source/Webster/roundabout", "../../source/Webster/ind");
    EXPECT_EQ(failureMessage(install()), "");
    fs::rename(source(), folder_.at("source/gone"));
    EXPECT_EQ(folder_.read("Group/Webster/outside"), "shared");
    EXPECT_EQ(fs::read_symlink(target() / "inside"), "mImg/p1.bmp");
    EXPECT_EQ(folder_.read("Group/Webster/mImg/chain"), "shared");
    EXPECT_EQ(fs::read_symlink(target() / "roundabout"), "ind");
}

TEST_F(Install, LeavesOutSpecialFilesAndLeftovers) {
    const Tree expected = treeOf(source());
    folder_.fifo("source/Webster/mImg/pipe");
    folder_.write("source/Webster/.velmarin-1-1.tmp/p1.tif", "incomplete");
    folder_.write("Group/.velmarin-7-0.tmp/mImg/p1.tif", "incomplete");
    folder_.link("Group/.velmarin-7-1.tmp", "mImg");
    EXPECT_EQ(failedItems(install(), source()), std::vector<std::string>{"mImg/pipe"});
    EXPECT_EQ(treeOf(target()), expected);
    EXPECT_EQ(leftoversIn(folder_.at("Group")), std::vector<std::string>{});
}

TEST_F(Install, HugeFileArrivesWholeWithProgress) {
    std::string bytes(std::size_t{70} << 20, '\0'); // more than is written before the first flush
    for (std::size_t at = 0; at < bytes.size(); at += 4096)
        bytes.replace(at, 7, std::to_string(1'000'000 + at / 4096));
    folder_.write("source/Webster/mImg/big.tif", bytes);
    std::uint64_t largestStep = 0;
    WorkDone last;
    const Progress progress = [&](const WorkDone& done) {
        largestStep = std::max(largestStep, done.bytes - last.bytes);
        last = done;
    };
    EXPECT_EQ(failureMessage(install(progress)), "");
    EXPECT_EQ(last.bytes, last.expectedBytes);
    EXPECT_GT(last.bytes, bytes.size());
    EXPECT_LE(largestStep, std::uint64_t{8} << 20) << "the windows must stay responsive";
    EXPECT_TRUE(sameAsExported(FolderItem(source()), FolderItem(target())));
}

TEST_F(Install, ReplacesNothingButAnEmptyFolder) {
    for (const char* group : {"equal", "one other byte"}) {
        fs::create_directory(folder_.at(group));
        fs::copy(source(), folder_.at(group) / "Webster", fs::copy_options::recursive);
    }
    folder_.write("one other byte/Webster/ind", "a\n~\n");
    fs::create_directories(folder_.at("empty folder/Webster"));
    folder_.write("folder with a file/Webster/notes", "mine");
    folder_.write("other case/WEBSTER/notes", "mine");
    folder_.write("file/Webster", "mine");
    folder_.link("link to nothing/Webster", "not there");
    for (const char* group : {"empty folder", "equal"}) {
        const MaintenanceResult result = install({}, group);
        EXPECT_EQ(failureMessage(result), "") << group;
        EXPECT_EQ(result.items.at(0).outcome == ItemOutcome::AlreadyThere, group == std::string("equal"));
        EXPECT_EQ(treeOf(folder_.at(group) / "Webster"), treeOf(source())) << group;
    }
    for (const char* group : {"one other byte", "folder with a file", "other case", "file", "link to nothing"})
        expectRefused(group, "already there");
}

TEST_F(Install, RefusalHasAReasonAndChangesNothing) {
    folder_.link("link", "source/Webster/mImg");
    folder_.write("file", "");
    for (const char* group : {"source/Webster", "source/Webster/mImg", "link"})
        expectRefused(group, "into itself");
    for (const char* group : {"file", "nothing"})
        expectRefused(group, "not a folder");
    expectRefused("/proc/self", "nothing can be written there");
    folder_.link("source/Webster/txt2", "../not there");
    expectRefused("Group", "txt2\n    it is a link that leads nowhere");
}

TEST_F(Install, ExceptionFromProgressLeavesNothing) {
    const Progress interrupted = [](const WorkDone& done) {
        if (done.bytes > 0)
            throw std::runtime_error("the program ends");
    };
    EXPECT_THROW(install(interrupted), std::runtime_error);
    EXPECT_TRUE(fs::is_empty(folder_.at("Group")));
}

} // namespace
} // namespace velmarin::test
