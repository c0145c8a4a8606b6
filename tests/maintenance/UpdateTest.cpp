#include "maintenance/Update.h"
#include "FailedItems.h"
#include "files/FolderLock.h"
#include "support/TempFolder.h"
#include "support/Tree.h"
#include "text/Utf8.h"

#include <gtest/gtest.h>

namespace velmarin::test {

namespace fs = std::filesystem;

namespace {

using Paths = std::vector<std::string>;

class Update : public ::testing::Test {
  protected:
    Update() {
        folder_.write("new/Webster/FW", "new");
        folder_.write("new/Webster/ind", "new index");
        folder_.write("new/Webster/mImg/p1.tif", "new page");
        folder_.write("new/Webster/.invisible", "new");
        writeCopy("DF/A/Webster");
    }

    void writeCopy(const fs::path& at) const {
        folder_.write(at / "FW", "old");
        folder_.write(at / "ind", "old index");
        folder_.write(at / "mImg/p1.tif", "old page");
        folder_.write(at / "mImg/p2.tif", "old page 2");
        folder_.write(at / "mPimg/e1.tif", "old extra page");
    }

    /// Updates the copies in `dictionaryFolder`, which is "DF" or a link to it.
    MaintenanceResult update(const fs::path& newVersion = "new/Webster", const Progress& progress = {},
                             const fs::path& backups = "Desktop", const fs::path& dictionaryFolder = "DF") const {
        const FolderItem dictionary(folder_.at(newVersion));
        const auto copies = installedCopies(FolderItem(folder_.at(dictionaryFolder)), dictionary.Name()).copies;
        return updateDictionary(dictionary, copies, FolderItem(folder_.at(backups)), progress);
    }
    Paths copyPaths() const {
        Paths paths;
        for (const FolderItem& copy : installedCopies(FolderItem(folder_.at("DF")), "Webster").copies)
            paths.push_back(copy.path().lexically_relative(folder_.at("DF")));
        return paths;
    }
    Paths failed(const MaintenanceResult& result) const { return failedItems(result, folder_.path()); }

    TempFolder folder_;
};

TEST_F(Update, ReplacesMembersAndSavesTheOldOnes) {
    folder_.write("new/Webster/BW", "added");
    folder_.write("new/Webster/txt", "new text");
    folder_.write("DF/A/Webster/.invisible", "old");
    folder_.write("DF/A/DictionaryPreferences.txt", "A\t1\t\n");
    folder_.link("DF/A/Webster/txt", "ind");
    WorkDone last;
    EXPECT_EQ(failureMessage(update("new/Webster", [&](const WorkDone& done) { last = done; })), "");
    EXPECT_EQ(last.bytes, last.expectedBytes);
    EXPECT_EQ(last.expectedBytes, 33U);
    EXPECT_EQ(filesOf(folder_.at("DF/A/Webster")), ".invisible=old BW=added FW=new ind=new index mImg/p1.tif=new page "
                                                   "mPimg/e1.tif=old extra page txt=new text");
    EXPECT_EQ(filesOf(folder_.at("Desktop/Webster-Oldversion-0")),
              "FW=old ind=old index mImg/p1.tif=old page mImg/p2.tif=old page 2 txt->ind");
    EXPECT_EQ(folder_.read("DF/A/DictionaryPreferences.txt"), "A\t1\t\n");
}

TEST_F(Update, FindsAllCopiesAndMakesABackupFolderForEach) {
    writeCopy("DF/B/WEBSTER");
    fs::create_directories(folder_.at("DF/C/webster/mHtm"));
    folder_.write("DF/E/Webster/.velmarin-12-3.tmp/p1.tif", "of a run that was killed when all members were aside");
    folder_.link("DF/F/Webster", folder_.at("DF/A/Webster"));
    folder_.link("DF/LinkedGroup", folder_.at("DF/A"));
    folder_.write("DF/G/Webster/readme", "no dictionary");
    folder_.write("DF/H/Webster", "a file");
    folder_.write("DF/Webster/ind", "a group of that name");
    EXPECT_EQ(copyPaths(), (Paths{"A/Webster", "B/WEBSTER", "C/webster", "E/Webster"}));
    int calls = 0;
    installedCopies(FolderItem(folder_.at("DF")), "Webster", [&](const WorkDone&) { ++calls; });
    EXPECT_GE(calls, 15) << "once an item, so that the window stays alive";
    EXPECT_EQ(failureMessage(update()), "");
    for (const char* copy : {"DF/A/Webster", "DF/B/WEBSTER", "DF/C/webster", "DF/E/Webster"})
        EXPECT_EQ(folder_.read(fs::path(copy) / "ind"), "new index") << copy;
    EXPECT_TRUE(fs::exists(folder_.at("Desktop/Webster-Oldversion-1/ind")));
    EXPECT_TRUE(fs::is_empty(folder_.at("Desktop/Webster-Oldversion-2"))) << "nothing was replaced there";
    EXPECT_EQ(failureMessage(update()), "");
    EXPECT_EQ(folder_.read("Desktop/Webster-Oldversion-0/ind"), "old index") << "the first backup is kept";
    EXPECT_EQ(folder_.read("Desktop/Webster-Oldversion-0_1/ind"), "new index");
}

TEST_F(Update, MembersAreEqualInAnyCaseCompositionAndKind) {
    const std::string composed = "M\xC3\xA9thode", decomposed = "Me\xCC\x81thode";
    const fs::path copy = "DF/A/" + decomposed, newVersion = "new/" + composed;
    folder_.write(copy / "ind", "old");
    folder_.write(copy / "\xC3\xA9", "old");
    folder_.write(copy / "Format", "old");
    folder_.write(copy / "FORMAT", "old too");
    folder_.write(copy / "mImg/p2.tif", "old page 2");
    folder_.write(newVersion / "ind/part", "a folder now");
    folder_.write(newVersion / "e\xCC\x81", "new");
    folder_.write(newVersion / "format", "new");
    folder_.write(newVersion / "mImg", "a file now");
    EXPECT_EQ(failureMessage(update(newVersion)), "");
    EXPECT_EQ(treeOf(folder_.at(copy)), treeOf(folder_.at(newVersion)));
    const fs::path backup = "Desktop/" + composed + "-Oldversion-0";
    EXPECT_EQ(folder_.read(backup / "Format"), "old");
    EXPECT_EQ(folder_.read(backup / "FORMAT"), "old too");
    EXPECT_EQ(folder_.read(backup / "mImg/p2.tif"), "old page 2");
}

TEST_F(Update, UnreadableMemberAndThoseLinkedToItStayOld) {
    folder_.fifo("new/Webster/txt");
    folder_.write("DF/A/Webster/txt", "old text");
    EXPECT_EQ(failed(update()), (Paths{"new/Webster/txt", "DF/A/Webster/ind", "DF/A/Webster/mImg", "DF/A/Webster"}));
    for (const char* member : {"txt", "ind", "mImg/p1.tif"})
        EXPECT_EQ(folder_.read(fs::path("DF/A/Webster") / member).substr(0, 3), "old") << member;
    EXPECT_EQ(folder_.read("DF/A/Webster/FW"), "new") << "another member is replaced";

    fs::remove(folder_.at("new/Webster/txt"));
    folder_.fifo("new/Webster/Format");
    EXPECT_EQ(failed(update()), Paths{"new/Webster/Format"});
    EXPECT_EQ(folder_.read("DF/A/Webster/ind"), "new index");
}

TEST_F(Update, LinkToAHiddenMemberLeadsToTheNewVersion) {
    fs::rename(folder_.at("new/Webster/mImg"), folder_.at("new/Webster/.pages"));
    folder_.link("new/Webster/mImg", ".pages");
    EXPECT_EQ(failureMessage(update()), "");
    EXPECT_EQ(folder_.read("DF/A/Webster/mImg/p1.tif"), "new page");
}

TEST_F(Update, MemberThatDisappearsDuringTheCopyStaysOldWithThoseLinkedToIt) {
    const MaintenanceResult result = update("new/Webster", [&](const WorkDone& done) {
        if (done.expectedBytes > 0)
            fs::remove(folder_.at("new/Webster/ind"));
    });
    EXPECT_EQ(failed(result), (Paths{"new/Webster/ind", "DF/A/Webster/mImg", "DF/A/Webster"}));
    EXPECT_NE(failureMessage(result).find("not replaced were \"ind\", \"mImg\""), std::string::npos);
    EXPECT_EQ(folder_.read("DF/A/Webster/mImg/p1.tif"), "old page");
    EXPECT_EQ(folder_.read("DF/A/Webster/FW"), "new");
}

TEST_F(Update, MemberThatComesDuringTheCopyStopsTheUpdate) {
    const MaintenanceResult result = update("new/Webster", [&](const WorkDone& done) {
        if (done.bytes > 0)
            folder_.write("new/Webster/txt", "of a later version");
    });
    EXPECT_EQ(failed(result), Paths{"new/Webster/txt"});
    EXPECT_EQ(folder_.read("DF/A/Webster/ind"), "old index");
}

TEST_F(Update, WriteProtectedFoldersAreReplacedAndKeepTheirPermissions) {
    for (const char* folder : {"DF/A/Webster/mImg", "DF/A/Webster"})
        fs::permissions(folder_.at(folder), fs::perms(0555));
    EXPECT_EQ(failureMessage(update()), "");
    EXPECT_EQ(folder_.read("DF/A/Webster/mImg/p1.tif"), "new page");
    for (const char* folder : {"Desktop/Webster-Oldversion-0/mImg", "DF/A/Webster"}) {
        EXPECT_EQ(fs::status(folder_.at(folder)).permissions(), fs::perms(0555)) << folder;
        fs::permissions(folder_.at(folder), fs::perms(0755));
    }
}

TEST_F(Update, UndoesAnInterruptedSwapAndSavesWhatWasReplacedBefore) {
    const fs::path swap = "DF/A/Webster/.velmarin-1-0.swap";
    folder_.write(swap / "names", "FW/ind/BW");
    folder_.write(swap / "new/ind", "half a version");
    folder_.write(swap / "old/FW", "older");
    folder_.write(swap / "old/ind", "older");
    folder_.write(swap / "copied/ind", "its rest is still in its place");
    folder_.write("DF/A/Webster/BW", "half a version");
    folder_.write("DF/A/Webster/.velmarin-1-1.old/old/mImg", "oldest");
    folder_.write("DF/A/Webster/.velmarin-1-2.tmp/p1.tif", "incomplete");
    folder_.write("Desktop/.velmarin-1-1.tmp", "incomplete");
    EXPECT_EQ(failureMessage(update()), "");
    EXPECT_EQ(leftoversIn(folder_.path()), Paths{});
    EXPECT_EQ(filesOf(folder_.at("Desktop/Webster-Oldversion-0")), "mImg=oldest");
    EXPECT_EQ(filesOf(folder_.at("Desktop/Webster-Oldversion-0_1")),
              "FW=older ind=older mImg/p1.tif=old page mImg/p2.tif=old page 2");
    EXPECT_FALSE(fs::exists(folder_.at("DF/A/Webster/BW"))) << "it is of the interrupted version";
}

TEST_F(Update, DictionaryWithTheLongestNameIsUpdatedRepeatedly) {
    for (const std::string& name : {std::string(243, 'w'), "w." + std::string(253, 'w'),
                                    std::string(240, 'w') + "\u3042\u3042\u3042\u3042\u3042"}) {
        folder_.write("DF/A/" + name + "/ind", "version 0");
        for (const char* version : {"version 1", "version 2", "version 3"}) {
            folder_.write("new/" + name + "/ind", version);
            EXPECT_EQ(failureMessage(update("new/" + name)), "");
            EXPECT_EQ(folder_.read("DF/A/" + name + "/ind"), version);
        }
    }
    EXPECT_EQ(std::distance(fs::directory_iterator(folder_.at("Desktop")), {}), 9);
    for (const auto& entry : fs::directory_iterator(folder_.at("Desktop")))
        EXPECT_TRUE(isValidUtf8(entry.path().filename().native())) << entry.path();
}

TEST_F(Update, WaitsForOtherRunsOnTheDictionaryFolderAndReportsIt) {
    Work quiet;
    auto other = std::make_optional<FolderLock>(folder_.at("DF"), FolderLock::Kind::Shared, quiet);
    Paths waitedFor;
    const Progress untilFree = [&](const WorkDone& done) {
        if (done.waitsFor.empty())
            return;
        waitedFor.push_back(done.waitsFor);
        EXPECT_EQ(folder_.read("DF/A/Webster/ind"), "old index");
        other.reset();
    };
    folder_.link("link", folder_.at("DF"));
    EXPECT_EQ(failureMessage(update("new/Webster", untilFree, "Desktop", "link")), "");
    EXPECT_EQ(waitedFor, Paths{folder_.at("DF")});
    EXPECT_EQ(folder_.read("DF/A/Webster/ind"), "new index");
}

TEST_F(Update, NeverUpdatesTheChosenFolderOrTheBackupFolder) {
    writeCopy("DF/B/Webster");
    folder_.write("DF/B/Webster/ind", "newest index");
    const Tree chosen = treeOf(folder_.at("DF/B/Webster"));
    EXPECT_EQ(failed(update("DF/B/Webster")), Paths{"DF/B/Webster"});
    EXPECT_EQ(treeOf(folder_.at("DF/B/Webster")), chosen);
    EXPECT_EQ(folder_.read("DF/A/Webster/ind"), "newest index");

    const Tree all = treeOf(folder_.path());
    EXPECT_EQ(failed(update("new/Webster", {}, "new/Webster/mImg")), Paths{"new/Webster/mImg"});
    EXPECT_EQ(update("new/Webster", {}, "/proc/self/Backups").failures.size(), 1U) << "nothing can be written there";
    EXPECT_EQ(treeOf(folder_.path()), all);
    EXPECT_EQ(failed(update("new/Webster", {}, "DF/A/Webster/mPimg")), Paths{"DF/A/Webster"});
    EXPECT_EQ(folder_.read("DF/A/Webster/ind"), "newest index");
    EXPECT_EQ(folder_.read("DF/B/Webster/ind"), "new index") << "the other copy is updated";

    folder_.write("DF/A/Webster/Webster/ind", "index of a dictionary in a copy");
    EXPECT_EQ(failed(update("DF/A/Webster/Webster")), Paths{"DF/A/Webster"});
    writeCopy("new/Webster/DF/A/Webster");
    EXPECT_EQ(failed(update("new/Webster", {}, "Desktop", "new/Webster/DF")), Paths{"new/Webster/DF/A/Webster"});
}

} // namespace
} // namespace velmarin::test
