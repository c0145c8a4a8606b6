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

TEST_F(Install, LeavesOutWhatNoCopyCanHoldAndSaysSo) {
    makeFifo(source() / "mImg/pipe");
    const Tree whole = treeOf(source());

    const Record record = install();

    ASSERT_EQ(record.failures.size(), 1U);
    EXPECT_EQ(record.failures[0].item.path(), source() / "mImg/pipe");
    Tree expected = whole;
    expected.erase("mImg/pipe");
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

TEST_F(Install, AHugeFileArrivesWholeAndTheProgressIsToldOnTheWay) {
    constexpr std::size_t kSize = std::size_t{70} << 20; // more than is let on its way to the disk at a time
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

struct Existing {
    const char* why;
    std::function<void(const TempFolder&)> make;
    bool arrives;
};

class InstallOverSomething : public Install, public ::testing::WithParamInterface<Existing> {};

TEST_P(InstallOverSomething, ReplacesNothing) {
    GetParam().make(folder_);
    const Tree before = treeOf(group());
    const Record record = install();
    if (GetParam().arrives) {
        EXPECT_EQ(failureMessage(record), "");
        EXPECT_EQ(treeOf(target()), treeOf(source()));
    } else {
        EXPECT_EQ(record.failures.size(), 1U);
        EXPECT_TRUE(record.deeds.empty());
        EXPECT_EQ(treeOf(group()), before);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Cases, InstallOverSomething,
    ::testing::Values(
        Existing{"AnEmptyFolderIsTaken", [](const TempFolder& f) { fs::create_directory(f.path() / "Group/Webster"); },
                 true},
        Existing{"AnEqualDictionaryIsThatVeryOne",
                 [](const TempFolder& f) {
                     fs::copy(f.path() / "source/Webster", f.path() / "Group/Webster", fs::copy_options::recursive);
                 },
                 true},
        Existing{"ADictionaryWithOneOtherByteStays",
                 [](const TempFolder& f) {
                     fs::copy(f.path() / "source/Webster", f.path() / "Group/Webster", fs::copy_options::recursive);
                     std::string index = f.read("source/Webster/ind");
                     index[0] = '~';
                     f.write("Group/Webster/ind", index);
                 },
                 false},
        Existing{"AFolderWithAFileStays", [](const TempFolder& f) { f.write("Group/Webster/notes", "mine"); }, false},
        Existing{"AFolderOfTheNameInOtherCaseStays",
                 [](const TempFolder& f) { f.write("Group/WEBSTER/notes", "mine"); }, false},
        Existing{"AFileStays", [](const TempFolder& f) { f.write("Group/Webster", "mine"); }, false},
        Existing{"ALinkToNothingStays", [](const TempFolder& f) { makeLink(f.path() / "Group/Webster", "not there"); },
                 false}),
    [](const auto& info) { return info.param.why; });

struct Refusal {
    const char* why;
    /// Changes the folders so that the install must fail, and returns the group to install into.
    std::function<fs::path(const TempFolder&)> make;
    const char* reason;
};

class InstallRefused : public Install, public ::testing::WithParamInterface<Refusal> {};

TEST_P(InstallRefused, NamesTheReasonAndChangesNothing) {
    const fs::path into = GetParam().make(folder_);
    const Tree before = treeOf(folder_.path());
    const Record record = installDictionary(FolderItem(source()), FolderItem(into));
    ASSERT_GE(record.failures.size(), 1U);
    EXPECT_NE(failureMessage(record).find(GetParam().reason), std::string::npos) << failureMessage(record);
    EXPECT_EQ(treeOf(folder_.path()), before);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, InstallRefused,
    ::testing::Values(Refusal{"IntoItself", [](const TempFolder& f) { return f.path() / "source/Webster"; },
                              "into itself"},
                      Refusal{"IntoAFolderOfItsOwn",
                              [](const TempFolder& f) { return f.path() / "source/Webster/mImg"; }, "into itself"},
                      Refusal{"IntoItselfByALink",
                              [](const TempFolder& f) {
                                  makeLink(f.path() / "link", "source/Webster/mImg");
                                  return f.path() / "link";
                              },
                              "into itself"},
                      Refusal{"WithARelativeLinkThatLeadsNowhere",
                              [](const TempFolder& f) {
                                  makeLink(f.path() / "source/Webster/txt2", "../not there");
                                  return f.path() / "Group";
                              },
                              "txt2\n    it is a link that leads nowhere"},
                      Refusal{"IntoAFile", [](const TempFolder& f) { return f.write("file", ""); }, "not a folder"},
                      Refusal{"IntoNothing", [](const TempFolder& f) { return f.path() / "nothing"; }, "not a folder"}),
    [](const auto& info) { return info.param.why; });

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
