#include "Trees.h"
#include "files/FolderLock.h"
#include "maintenance/Update.h"
#include "support/TempFolder.h"
#include "text/Utf8.h"

#include <gtest/gtest.h>

namespace velmarin::test {

namespace fs = std::filesystem;

namespace {

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

    fs::path at(const fs::path& name) const { return folder_.path() / name; }
    std::vector<FolderItem> copies() const { return installedCopies(FolderItem(at("DF")), "Webster"); }
    Record updateFrom(const fs::path& source, const std::vector<FolderItem>& found,
                      const Progress& progress = {}) const {
        return updateDictionary(FolderItem(at(source)), found, FolderItem(at("Desktop")), progress);
    }
    Record update() const { return updateFrom("new/Webster", copies()); }
    std::vector<std::string> failedItems(const Record& record) const {
        std::vector<std::string> items;
        for (const Failure& each : record.failures)
            items.push_back(each.item.path().lexically_relative(folder_.path()));
        return items;
    }
    std::vector<std::string> copyPaths() const {
        std::vector<std::string> paths;
        for (const FolderItem& copy : copies())
            paths.push_back(copy.path().lexically_relative(at("DF")));
        return paths;
    }

    TempFolder folder_;
};

TEST_F(Update, ReplacesWhatTheNewVersionBringsAndSavesWhatItReplaces) {
    folder_.write("new/Webster/BW", "added");
    folder_.write("DF/A/Webster/.invisible", "old");
    folder_.write("DF/A/DictionaryPreferences.txt", "A\t1\t\n");
    makeLink(at("DF/A/Webster/txt"), "ind");
    folder_.write("new/Webster/txt", "new text");

    EXPECT_EQ(failureMessage(update()), "");

    const Tree expected{{".", "folder"},
                        {".invisible", "file old"},
                        {"BW", "file added"},
                        {"FW", "file new"},
                        {"ind", "file new index"},
                        {"mImg", "folder"},
                        {"mImg/p1.tif", "file new page"},
                        {"mPimg", "folder"},
                        {"mPimg/e1.tif", "file old extra page"},
                        {"txt", "file new text"}};
    EXPECT_EQ(treeOf(at("DF/A/Webster")), expected);
    const Tree saved{{".", "folder"},
                     {"FW", "file old"},
                     {"ind", "file old index"},
                     {"mImg", "folder"},
                     {"mImg/p1.tif", "file old page"},
                     {"mImg/p2.tif", "file old page 2"},
                     {"txt", "link ind"}};
    EXPECT_EQ(treeOf(at("Desktop/Webster-Oldversion-0")), saved);
    EXPECT_EQ(folder_.read("DF/A/DictionaryPreferences.txt"), "A\t1\t\n");
}

TEST_F(Update, ReachesEveryCopyAndMakesABackupFolderForEach) {
    writeCopy("DF/B/WEBSTER");
    fs::create_directories(at("DF/C/webster/mHtm"));
    EXPECT_EQ(copyPaths(), (std::vector<std::string>{"A/Webster", "B/WEBSTER", "C/webster"}));

    EXPECT_EQ(failureMessage(update()), "");

    for (const char* copy : {"DF/A/Webster", "DF/B/WEBSTER", "DF/C/webster"})
        EXPECT_EQ(folder_.read(fs::path(copy) / "ind"), "new index") << copy;
    EXPECT_TRUE(fs::exists(at("Desktop/Webster-Oldversion-0/ind")));
    EXPECT_TRUE(fs::exists(at("Desktop/Webster-Oldversion-1/ind")));
    EXPECT_TRUE(fs::is_empty(at("Desktop/Webster-Oldversion-2"))) << "nothing was replaced there";

    EXPECT_EQ(failureMessage(update()), "");
    EXPECT_EQ(folder_.read("Desktop/Webster-Oldversion-0/ind"), "old index") << "the first backup stays as it is";
    EXPECT_EQ(folder_.read("Desktop/Webster-Oldversion-0_1/ind"), "new index");
}

TEST_F(Update, FindsOnlyTrueFoldersThatAreDictionaries) {
    makeLink(at("DF/B/Webster"), at("DF/A/Webster"));
    makeLink(at("DF/LinkedGroup"), at("DF/A"));
    folder_.write("DF/C/Webster/readme", "no dictionary");
    folder_.write("DF/D/Webster", "a file");
    folder_.write("DF/Webster/ind", "a group of that name");
    folder_.write("DF/E/Webster/.velmarin-12-3.tmp/p1.tif", "killed when its last mark had gone to the backup");
    EXPECT_EQ(copyPaths(), (std::vector<std::string>{"A/Webster", "E/Webster"}));
}

TEST_F(Update, AMemberWhoseNameDiffersInCaseIsTheSameMember) {
    folder_.write("DF/A/Webster/Format", "old");
    folder_.write("DF/A/Webster/FORMAT", "old too");
    folder_.write("new/Webster/format", "new");
    EXPECT_EQ(failureMessage(update()), "");
    EXPECT_FALSE(fs::exists(at("DF/A/Webster/Format")));
    EXPECT_FALSE(fs::exists(at("DF/A/Webster/FORMAT")));
    EXPECT_EQ(folder_.read("DF/A/Webster/format"), "new");
    EXPECT_EQ(folder_.read("Desktop/Webster-Oldversion-0/Format"), "old");
    EXPECT_EQ(folder_.read("Desktop/Webster-Oldversion-0/FORMAT"), "old too");
}

TEST_F(Update, AFileMayReplaceAFolderAndTheOtherWayRound) {
    fs::remove_all(at("new/Webster/mImg"));
    folder_.write("new/Webster/mImg", "a file now");
    fs::remove(at("new/Webster/ind"));
    folder_.write("new/Webster/ind/part", "a folder now");
    EXPECT_EQ(failureMessage(update()), "");
    EXPECT_EQ(folder_.read("DF/A/Webster/mImg"), "a file now");
    EXPECT_EQ(folder_.read("DF/A/Webster/ind/part"), "a folder now");
    EXPECT_EQ(folder_.read("Desktop/Webster-Oldversion-0/mImg/p2.tif"), "old page 2");
}

TEST_F(Update, AMemberThatCannotBeReadStaysOldAndWithItThoseThatBelongToIt) {
    makeFifo(at("new/Webster/txt"));
    folder_.write("DF/A/Webster/txt", "old text");
    EXPECT_EQ(failedItems(update()),
              (std::vector<std::string>{"new/Webster/txt", "DF/A/Webster/ind", "DF/A/Webster/mImg", "DF/A/Webster"}));
    for (const char* member : {"txt", "ind", "mImg/p1.tif"})
        EXPECT_EQ(folder_.read(at("DF/A/Webster") / member).substr(0, 3), "old") << member;
    EXPECT_EQ(folder_.read("DF/A/Webster/FW"), "new") << "another member is replaced";

    fs::remove(at("new/Webster/txt"));
    makeFifo(at("new/Webster/Format"));
    EXPECT_EQ(failedItems(update()), (std::vector<std::string>{"new/Webster/Format", "DF/A/Webster"}));
    EXPECT_EQ(folder_.read("DF/A/Webster/ind"), "new index");
}

TEST_F(Update, NamesAreEqualInAnyUnicodeComposition) {
    const std::string composed = "M\xC3\xA9thode", decomposed = "Me\xCC\x81thode";
    folder_.write("DF/A/" + decomposed + "/ind", "old");
    folder_.write("DF/A/" + decomposed + "/\xC3\xA9", "old");
    folder_.write("new/" + composed + "/ind", "new");
    folder_.write("new/" + composed + "/e\xCC\x81", "new");
    const auto found = installedCopies(FolderItem(at("DF")), composed);
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(failureMessage(updateFrom("new/" + composed, found)), "");
    EXPECT_EQ(treeOf(found[0].path()), (Tree{{".", "folder"}, {"ind", "file new"}, {"e\xCC\x81", "file new"}}));
}

TEST_F(Update, WriteProtectedFoldersInTheCopyAreReplacedAndKeepTheirPermissions) {
    for (const char* folder : {"DF/A/Webster/mImg", "DF/A/Webster"})
        fs::permissions(at(folder), fs::perms(0555));
    EXPECT_EQ(failureMessage(update()), "");
    EXPECT_EQ(folder_.read("DF/A/Webster/mImg/p1.tif"), "new page");
    EXPECT_EQ(fs::status(at("Desktop/Webster-Oldversion-0/mImg")).permissions(), fs::perms(0555));
    EXPECT_EQ(fs::status(at("DF/A/Webster")).permissions(), fs::perms(0555));
    fs::permissions(at("DF/A/Webster"), fs::perms(0755));
    fs::permissions(at("Desktop/Webster-Oldversion-0/mImg"), fs::perms(0755));
}

TEST_F(Update, TakesAnInterruptedSwapBackAndSavesWhatWasReplacedBefore) {
    const fs::path swap = "DF/A/Webster/.velmarin-1-0.swap";
    fs::create_directories(at(swap / "new"));
    folder_.write(swap / "names", "FW/ind/BW");
    folder_.write(swap / "new/ind", "half a version");
    folder_.write(swap / "old/FW", "older");
    folder_.write(swap / "old/ind", "older");
    folder_.write(swap / "copied/ind", "its rest is still in its place");
    folder_.write("DF/A/Webster/BW", "half a version");
    folder_.write("DF/A/Webster/.velmarin-1-1.old/old/mImg", "oldest");
    folder_.write("DF/A/Webster/.velmarin-1-2.tmp/p1.tif", "half");
    folder_.write("Desktop/.velmarin-1-1.tmp", "half");

    EXPECT_EQ(failureMessage(update()), "");

    EXPECT_TRUE(leftoversIn(folder_.path()).empty());
    EXPECT_EQ(treeOf(at("Desktop/Webster-Oldversion-0")), (Tree{{".", "folder"}, {"mImg", "file oldest"}}));
    EXPECT_EQ(folder_.read("Desktop/Webster-Oldversion-0_1/ind"), "older");
    EXPECT_EQ(folder_.read("Desktop/Webster-Oldversion-0_1/FW"), "older");
    EXPECT_FALSE(fs::exists(at("DF/A/Webster/BW"))) << "it came with the interrupted version";
}

TEST_F(Update, ADictionaryOfTheLongestNameIsUpdatedAgainAndAgain) {
    const std::string withAnExtension = "w." + std::string(253, 'w');
    const std::string beyondAscii = std::string(240, 'w') + "\u3042\u3042\u3042\u3042\u3042";
    for (const std::string& name : {std::string(243, 'w'), withAnExtension, beyondAscii}) {
        folder_.write("DF/A/" + name + "/ind", "version 0");
        for (const char* version : {"version 1", "version 2", "version 3"}) {
            folder_.write("new/" + name + "/ind", version);
            const auto found = installedCopies(FolderItem(at("DF")), name);
            ASSERT_EQ(found.size(), 1U);
            EXPECT_EQ(failureMessage(updateFrom("new/" + name, found)), "");
            EXPECT_EQ(folder_.read("DF/A/" + name + "/ind"), version);
        }
    }
    std::size_t backups = 0;
    for (const auto& entry : fs::directory_iterator(at("Desktop"))) {
        EXPECT_TRUE(isValidUtf8(entry.path().filename().native())) << entry.path();
        ++backups;
    }
    EXPECT_EQ(backups, 9U);
}

TEST_F(Update, WaitsForOtherRunsOnTheDictionaryFolderAndSaysSo) {
    Work quiet;
    auto other = std::make_optional<FolderLock>(at("DF"), FolderLock::Kind::Shared, quiet);
    std::vector<std::string> waitedFor;
    const Progress untilFree = [&](const WorkDone& done) {
        if (done.waitsFor.empty())
            return;
        waitedFor.push_back(done.waitsFor);
        EXPECT_EQ(folder_.read("DF/A/Webster/ind"), "old index");
        other.reset();
    };
    fs::create_directory_symlink(at("DF"), at("link"));
    const auto found = installedCopies(FolderItem(at("link")), "Webster");
    EXPECT_EQ(failureMessage(updateFrom("new/Webster", found, untilFree)), "");
    EXPECT_EQ(waitedFor, std::vector<std::string>{at("DF")});
    EXPECT_EQ(folder_.read("DF/A/Webster/ind"), "new index");
}

TEST_F(Update, TheChosenFolderItselfIsLeftAloneAndTheOtherCopiesAreUpdated) {
    writeCopy("DF/B/Webster");
    folder_.write("DF/B/Webster/ind", "newest index");
    const Tree chosen = treeOf(at("DF/B/Webster"));
    EXPECT_EQ(failedItems(updateFrom("DF/B/Webster", copies())), std::vector<std::string>{"DF/B/Webster"});
    EXPECT_EQ(treeOf(at("DF/B/Webster")), chosen);
    EXPECT_EQ(folder_.read("DF/A/Webster/ind"), "newest index");
}

TEST_F(Update, BackupsThatWouldLieInADictionaryAreRefused) {
    for (const char* backups : {"new/Webster/mImg", "DF/A/Webster/mPimg"}) {
        const Tree before = treeOf(folder_.path());
        const Record record = updateDictionary(FolderItem(at("new/Webster")), copies(), FolderItem(at(backups)));
        EXPECT_EQ(record.failures.size(), 1U) << backups;
        EXPECT_EQ(treeOf(folder_.path()), before) << backups;
    }
}

} // namespace
} // namespace velmarin::test
