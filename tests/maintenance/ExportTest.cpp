#include "maintenance/Export.h"
#include "FailedItems.h"
#include "support/TempFolder.h"
#include "support/Tree.h"

#include <gtest/gtest.h>

namespace velmarin::test {

namespace fs = std::filesystem;

namespace {

class Export : public ::testing::Test {
  protected:
    Export() {
        folder_.write("DF/A/Webster/FW", "");
        folder_.write("DF/A/Webster/ind", "index");
        folder_.write("DF/A/Webster/.hidden", "x");
        folder_.write("elsewhere/pages/p1.tif", "page");
        folder_.link("DF/A/Webster/mImg", folder_.at("elsewhere/pages"));
        fs::create_directory(folder_.at("Out"));
    }

    MaintenanceResult exportTo(const fs::path& destination, bool replace, const fs::path& from = "DF/A/Webster",
                               const Progress& progress = {}) const {
        const auto mayReplace = [&](const std::string& name) {
            EXPECT_EQ(name, "Webster");
            return replace;
        };
        return exportDictionary(FolderItem(folder_.at(from)), FolderItem(folder_.at(destination)), mayReplace,
                                progress);
    }
    bool isExported(const fs::path& copy) const {
        return sameAsExported(FolderItem(folder_.at("DF/A/Webster")), FolderItem(folder_.at(copy)));
    }

    TempFolder folder_;
};

TEST_F(Export, CopyHasNoLinks) {
    folder_.link("DF/A/Webster/deep/txt", "../ind");
    WorkDone last;
    const MaintenanceResult result = exportTo("Out", false, "DF/A/Webster", [&](const WorkDone& done) { last = done; });
    EXPECT_EQ(failureMessage(result), "");
    EXPECT_EQ(filesOf(folder_.at("Out/Webster")), ".hidden=x FW= deep/txt=index ind=index mImg/p1.tif=page");
    EXPECT_EQ(last.bytes, 15U);
    EXPECT_EQ(last.expectedBytes, 15U);
    EXPECT_TRUE(isExported("Out/Webster"));
    folder_.write("elsewhere/pages/p1.tif", "pige");
    EXPECT_FALSE(isExported("Out/Webster"));
}

TEST_F(Export, WhatCannotBeCopiedIsLeftOutAndNamed) {
    folder_.link("DF/A/Webster/gone", "not there");
    folder_.link("DF/A/Webster/loop", "loop");
    folder_.link("DF/A/Webster/sub/up", "..");
    folder_.fifo("DF/A/Webster/pipe");
    const MaintenanceResult result = exportTo("Out", false);
    EXPECT_EQ(failedItems(result, folder_.at("DF/A/Webster")),
              (std::vector<std::string>{"gone", "loop", "pipe", "sub/up"}));
    EXPECT_EQ(result.items.at(0).outcome, ItemOutcome::Exported);
    EXPECT_TRUE(fs::is_empty(folder_.at("Out/Webster/sub")));
}

TEST_F(Export, HalfSwappedDictionaryIsRestoredOrRefused) {
    const fs::path swap = "DF/A/Webster/.velmarin-1-0.swap";
    folder_.write(swap / "names", "ind");
    folder_.write(swap / "new/ind", "new index");
    fs::create_directory(folder_.at(swap / "old"));
    fs::rename(folder_.at("DF/A/Webster/ind"), folder_.at(swap / "old/ind"));
    folder_.write("Out/Webster/ind", "complete");
    fs::rename(folder_.at(swap / "names"), folder_.at("names"));
    EXPECT_EQ(failedItems(exportTo("Out", true), folder_.path()), std::vector<std::string>{"DF/A/Webster"});
    EXPECT_EQ(folder_.read("Out/Webster/ind"), "complete");
    fs::rename(folder_.at("names"), folder_.at(swap / "names"));
    EXPECT_EQ(failureMessage(exportTo("Out", true)), "");
    EXPECT_EQ(folder_.read("Out/Webster/ind"), "index");
}

TEST_F(Export, SourceThatChangesMeanwhileIsAFailure) {
    for (const char* changed : {"DF/A/Webster/ind", "DF/A/Webster/added"}) {
        const MaintenanceResult result = exportTo("Out", false, "DF/A/Webster", [&](const WorkDone& done) {
            if (done.expectedBytes > 0)
                folder_.write(changed, "another length");
        });
        EXPECT_EQ(result.failures.size(), 1U) << changed;
        EXPECT_FALSE(fs::exists(folder_.at("Out/Webster")));
    }
}

TEST_F(Export, LinksThatBranchEndlesslyAreRefused) {
    // Each folder has two links to the next: 2^30 paths.
    for (int level = 0; level < 30; ++level) {
        for (const char* name : {"left", "right"})
            folder_.link("maze/" + std::to_string(level) + "/" + name, folder_.at("maze/" + std::to_string(level + 1)));
    }
    fs::create_directories(folder_.at("maze/30"));
    folder_.link("DF/A/Webster/maze", folder_.at("maze/0"));
    const MaintenanceResult result = exportTo("Out", false);
    ASSERT_FALSE(result.failures.empty());
    EXPECT_LT(result.failures.size(), 30U) << "each folder is named once";
    EXPECT_NE(result.failures[0].reason.find("too many ways"), std::string::npos);
    EXPECT_TRUE(fs::is_empty(folder_.at("Out")));
}

TEST_F(Export, ExistingItemIsKeptOrReplacedAsAnswered) {
    folder_.write("old/Webster/mImg/p9.tif", "old");
    folder_.write("write-protected/Webster/mImg/p9.tif", "old");
    fs::permissions(folder_.at("write-protected/Webster/mImg"), fs::perms(0500));
    folder_.write("other case/WEBSTER/FW", "old");
    folder_.write("file/Webster", "a file");
    folder_.link("link/Webster", "../precious");
    folder_.link("link to the source/Webster", "../DF/A/Webster");
    folder_.write("precious", "not to be followed");
    for (const char* to : {"old", "write-protected", "other case", "file", "link", "link to the source"}) {
        SCOPED_TRACE(to);
        const Tree before = treeOf(folder_.path());
        const MaintenanceResult kept = exportTo(to, false);
        EXPECT_EQ(failureMessage(kept), "");
        EXPECT_EQ(kept.items.at(0).outcome, ItemOutcome::Skipped);
        EXPECT_EQ(treeOf(folder_.path()), before);

        EXPECT_EQ(failureMessage(exportTo(to, true)), "");
        EXPECT_TRUE(isExported(fs::path(to) / "Webster"));
        EXPECT_EQ(std::distance(fs::directory_iterator(folder_.at(to)), {}), 1) << "nothing else is left there";
        EXPECT_EQ(folder_.read("precious"), "not to be followed");
    }
}

TEST_F(Export, FailsWithoutHarmIntoItselfAndWhereNothingCanBeWritten) {
    folder_.write("DF/A/Webster/Webster/FW", "a dictionary in a dictionary");
    folder_.write("elsewhere/file", "");
    const std::pair<const char*, const char*> cases[] = {
        {"DF/A/Webster", "DF/A"},           {"DF/A/Webster", "DF/A/Webster"},
        {"DF/A/Webster/Webster", "DF/A"},   {"DF/A/Webster", "elsewhere/pages"},
        {"DF/A/Webster", "elsewhere/file"}, {"DF/A/Webster", "/proc/self"}};
    const Tree before = treeOf(folder_.at("DF"));
    for (const auto& [dictionary, destination] : cases) {
        EXPECT_FALSE(exportTo(destination, true, dictionary).failures.empty()) << destination;
        EXPECT_EQ(treeOf(folder_.at("DF")), before) << destination;
    }
}

TEST_F(Export, ExportableDictionariesAreListedOnceByName) {
    folder_.link("DF/B/Webster", folder_.at("DF/A/Webster"));
    folder_.link("DF/C", folder_.at("DF/A"));
    folder_.write("DF/B/latin/mHtm", "");
    folder_.write("DF/D/LATIN/BW", "");
    folder_.write("DF/D/no dictionary/readme", "");
    folder_.write("DF/D/.velmarin-9-9.tmp/FW", "an incomplete copy");
    folder_.write("DF/file", "");
    std::vector<std::string> found;
    for (const FolderItem& each : exportableDictionaries(FolderItem(folder_.at("DF"))))
        found.push_back(each.path().lexically_relative(folder_.at("DF")));
    EXPECT_EQ(found, (std::vector<std::string>{"D/LATIN", "B/latin", "A/Webster"}));
}

} // namespace
} // namespace velmarin::test
