#include "Trees.h"
#include "maintenance/Export.h"
#include "maintenance/Install.h"
#include "support/DictionaryBuilder.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <functional>

#include <unistd.h>

namespace velmarin::test {

namespace fs = std::filesystem;

namespace {

class Install : public ::testing::Test {
  protected:
    Install() {
        DictionaryBuilder("Webster").entries({"a", "b"}).writeTo(folder_.path() / "source");
        fs::create_directory(group());
    }

    fs::path at(const fs::path& name) const { return folder_.path() / name; }
    fs::path source() const { return folder_.path() / "source/Webster"; }
    fs::path group() const { return folder_.path() / "Group"; }
    fs::path target() const { return group() / "Webster"; }
    Record install(const Progress& progress = {}) const {
        return installDictionary(FolderItem(source()), FolderItem(group()), progress);
    }

    TempFolder folder_;
};

TEST_F(Install, BringsEveryMemberWithItsTimesAndLinksVisibleOrNot) {
    folder_.write("source/Webster/.hidden", "x");
    makeLink(source() / "mPimg", "mImg");
    makeLink(source() / "nowhere", "/not/there");
    fs::permissions(source() / "ind", fs::perms::owner_read | fs::perms::group_read);
    const auto changed = fs::file_time_type::clock::now() - std::chrono::hours(1000);
    fs::last_write_time(source() / "ind", changed);
    fs::last_write_time(source() / "mImg", changed);

    const Record record = install();

    EXPECT_EQ(failureMessage(record), "");
    ASSERT_EQ(record.deeds.size(), 1U);
    EXPECT_EQ(record.deeds[0].deed, Deed::Installed);
    EXPECT_EQ(treeOf(target()), treeOf(source()));
    EXPECT_EQ(fs::last_write_time(target() / "ind"), fs::last_write_time(source() / "ind"));
    EXPECT_EQ(fs::last_write_time(target() / "mImg"), fs::last_write_time(source() / "mImg"));
    EXPECT_EQ(fs::status(target() / "ind").permissions(),
              fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read)
        << "the owner may write, so that an update can replace it";
}

TEST_F(Install, RelativeLinksLeadToTheSameFromTheCopy) {
    folder_.write("shared/text", "shared");
    makeLink(source() / "outside", "../../shared/text");
    makeLink(source() / "inside", "mImg/p1.bmp");
    makeLink(source() / "mImg/chain", "../outside");
    makeLink(source() / "roundabout", "../../source/Webster/ind");
    EXPECT_EQ(failureMessage(install()), "");
    fs::rename(source(), folder_.path() / "source/gone");
    EXPECT_EQ(folder_.read("Group/Webster/outside"), "shared");
    EXPECT_EQ(fs::read_symlink(target() / "inside"), "mImg/p1.bmp");
    EXPECT_EQ(folder_.read("Group/Webster/mImg/chain"), "shared");
    EXPECT_EQ(fs::read_symlink(target() / "roundabout"), "ind");
}

TEST_F(Install, LeavesOutWhatCannotBeCopiedAndReportsIt) {
    const Tree expected = treeOf(source());
    makeFifo(source() / "mImg/pipe");
    const Record record = install();
    ASSERT_EQ(record.failures.size(), 1U);
    EXPECT_EQ(record.failures[0].item.path(), source() / "mImg/pipe");
    EXPECT_EQ(treeOf(target()), expected);
}

TEST_F(Install, LeavesBehindTheLeftoversOfKilledRuns) {
    folder_.write("source/Webster/.velmarin-1-1.tmp/p1.tif", "half");
    folder_.write("Group/.velmarin-7-0.tmp/mImg/p1.tif", "half");
    makeLink(group() / ".velmarin-7-1.tmp", "mImg");
    EXPECT_EQ(failureMessage(install()), "");
    EXPECT_TRUE(leftoversIn(group()).empty());
    EXPECT_TRUE(fs::exists(target() / "ind"));
}

TEST_F(Install, AHugeFileArrivesWholeAndReportsItsProgress) {
    constexpr std::size_t kSize = std::size_t{70} << 20; // more than is written before the first flush
    std::string bytes(kSize, '\0');
    for (std::size_t at = 0; at < kSize; at += 4096)
        bytes.replace(at, 7, std::to_string(1'000'000 + at / 4096));
    folder_.write("source/Webster/mImg/big.tif", bytes);
    std::uint64_t most = 0, last = 0, of = 0;
    EXPECT_EQ(failureMessage(install([&](const WorkDone& done) {
                  most = std::max(most, done.bytes - last);
                  last = done.bytes;
                  of = done.of;
              })),
              "");
    EXPECT_EQ(last, of);
    EXPECT_GT(last, kSize);
    EXPECT_LE(most, std::uint64_t{8} << 20) << "the interface must get its turn";
    EXPECT_TRUE(sameAsExported(FolderItem(source()), FolderItem(target())));
}

TEST_F(Install, ReplacesNothingButAnEmptyFolder) {
    const auto copy = [&](const fs::path& group) {
        fs::create_directories(at(group));
        fs::copy(source(), at(group / "Webster"), fs::copy_options::recursive);
    };
    const struct {
        const char* what;
        std::function<void(const fs::path&)> make;
        bool arrives;
    } cases[] = {
        {"an empty folder", [&](const fs::path& group) { fs::create_directories(at(group / "Webster")); }, true},
        {"an equal dictionary", copy, true},
        {"a dictionary with one other byte",
         [&](const fs::path& group) {
             copy(group);
             std::string index = folder_.read("source/Webster/ind");
             index[0] = '~';
             folder_.write(group / "Webster/ind", index);
         },
         false},
        {"a folder with a file", [&](const fs::path& group) { folder_.write(group / "Webster/notes", "mine"); }, false},
        {"a folder of the name in other case",
         [&](const fs::path& group) { folder_.write(group / "WEBSTER/notes", "mine"); }, false},
        {"a file", [&](const fs::path& group) { folder_.write(group / "Webster", "mine"); }, false},
        {"a link to nothing", [&](const fs::path& group) { makeLink(at(group / "Webster"), "not there"); }, false}};
    for (const auto& each : cases) {
        SCOPED_TRACE(each.what);
        each.make(each.what);
        const Tree before = treeOf(at(each.what));
        const Record record = installDictionary(FolderItem(source()), FolderItem(at(each.what)));
        EXPECT_EQ(record.failures.size(), each.arrives ? 0U : 1U);
        if (each.arrives)
            EXPECT_EQ(treeOf(at(each.what) / "Webster"), treeOf(source()));
        else
            EXPECT_EQ(treeOf(at(each.what)), before);
    }
}

TEST_F(Install, ThatIsRefusedNamesTheReasonAndChangesNothing) {
    makeLink(at("link"), "source/Webster/mImg");
    folder_.write("file", "");
    const auto refused = [&](const char* into, const char* reason) {
        const Tree before = treeOf(folder_.path());
        const std::string message = failureMessage(installDictionary(FolderItem(source()), FolderItem(at(into))));
        EXPECT_NE(message.find(reason), std::string::npos) << into << ": " << message;
        EXPECT_EQ(treeOf(folder_.path()), before) << into;
    };
    for (const char* into : {"source/Webster", "source/Webster/mImg", "link"})
        refused(into, "into itself");
    for (const char* into : {"file", "nothing"})
        refused(into, "not a folder");
    makeLink(source() / "txt2", "../not there");
    refused("Group", "txt2\n    it is a link that leads nowhere");
}

TEST_F(Install, APageThatMayNotBeReadKeepsTheDictionaryFromAppearing) {
    if (::geteuid() == 0)
        GTEST_SKIP() << "the superuser may read everything";
    fs::permissions(source() / "mImg/p1.bmp", fs::perms::none);
    const Record record = install();
    ASSERT_EQ(record.failures.size(), 1U);
    EXPECT_EQ(record.failures[0].item.path(), source() / "mImg/p1.bmp");
    EXPECT_TRUE(fs::is_empty(group()));
}

TEST_F(Install, WhatItsCallerThrowsLeavesNothingBehind) {
    const Progress interrupted = [](const WorkDone& done) {
        if (done.bytes > 0)
            throw std::runtime_error("the program ends");
    };
    EXPECT_THROW(install(interrupted), std::runtime_error);
    EXPECT_TRUE(fs::is_empty(group()));
}

TEST(FailureMessage, ListsItemsWithReasonsUpToALimit) {
    Record record;
    EXPECT_EQ(failureMessage(record), "");
    for (int i = 0; i < 250; ++i)
        record.failures.push_back({FolderItem("/d/p" + std::to_string(i) + "\xFF"), "it is broken"});
    const std::string text = failureMessage(record);
    EXPECT_NE(text.find("/d/p199\xEF\xBF\xBD\n    it is broken"), std::string::npos);
    EXPECT_EQ(text.find("/d/p200"), std::string::npos);
    EXPECT_TRUE(text.ends_with("and 50 more."));
}

} // namespace
} // namespace velmarin::test
