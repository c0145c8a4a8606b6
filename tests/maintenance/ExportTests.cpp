#include "Trees.h"
#include "maintenance/Export.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <functional>

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
        makeLink(at("DF/A/Webster/mImg"), at("elsewhere/pages"));
        fs::create_directory(out());
    }

    fs::path at(const fs::path& name) const { return folder_.path() / name; }
    fs::path out() const { return at("Out"); }
    Record exportFrom(const fs::path& dictionary, const fs::path& destination, bool replace = false) const {
        Record record;
        exportDictionary(
            FolderItem(at(dictionary)), FolderItem(destination),
            [&](const std::string& name) {
                asked_.push_back(name);
                return replace;
            },
            {}, record);
        return record;
    }

    TempFolder folder_;
    mutable std::vector<std::string> asked_;
};

TEST_F(Export, NeedsNoLinks) {
    makeLink(at("DF/A/Webster/deep/txt"), "../ind");
    const Record record = exportFrom("DF/A/Webster", out());
    EXPECT_EQ(failureMessage(record), "");
    const Tree expected{{".", "folder"},    {".hidden", "file x"},       {"FW", "file "},
                        {"deep", "folder"}, {"deep/txt", "file index"},  {"ind", "file index"},
                        {"mImg", "folder"}, {"mImg/p1.tif", "file page"}};
    EXPECT_EQ(treeOf(out() / "Webster"), expected);
    EXPECT_TRUE(asked_.empty());
    EXPECT_TRUE(sameAsExported(FolderItem(at("DF/A/Webster")), FolderItem(out() / "Webster")));
    folder_.write("elsewhere/pages/p1.tif", "pige");
    EXPECT_FALSE(sameAsExported(FolderItem(at("DF/A/Webster")), FolderItem(out() / "Webster")));
}

TEST_F(Export, LinksThatLeadNowhereOrInCirclesAreLeftOutAndNamed) {
    makeLink(at("DF/A/Webster/gone"), "not there");
    makeLink(at("DF/A/Webster/loop"), "loop");
    makeLink(at("DF/A/Webster/sub/up"), "..");
    makeFifo(at("DF/A/Webster/pipe"));
    const Record record = exportFrom("DF/A/Webster", out());
    std::vector<std::string> named;
    for (const Failure& each : record.failures)
        named.push_back(each.item.path().lexically_relative(at("DF/A/Webster")));
    EXPECT_EQ(named, (std::vector<std::string>{"gone", "loop", "pipe", "sub/up"}));
    ASSERT_EQ(record.deeds.size(), 1U);
    EXPECT_EQ(record.deeds[0].deed, Deed::Exported);
    EXPECT_TRUE(fs::exists(out() / "Webster/sub"));
    EXPECT_FALSE(fs::exists(out() / "Webster/sub/up"));
}

TEST_F(Export, LinksThatBranchEndlesslyAreRefused) {
    // Each folder leads twice to the next: two to the power of 30 ways.
    for (int level = 0; level < 30; ++level) {
        const fs::path here = at("maze/" + std::to_string(level));
        makeLink(here / "left", at("maze/" + std::to_string(level + 1)));
        makeLink(here / "right", at("maze/" + std::to_string(level + 1)));
    }
    fs::create_directories(at("maze/30"));
    makeLink(at("DF/A/Webster/maze"), at("maze/0"));
    const Record record = exportFrom("DF/A/Webster", out());
    ASSERT_FALSE(record.failures.empty());
    EXPECT_LT(record.failures.size(), 30U) << "each folder is named once";
    EXPECT_NE(record.failures[0].reason.find("too many ways"), std::string::npos);
    EXPECT_TRUE(fs::is_empty(out()));
}

TEST_F(Export, AnItemOfTheNameIsKeptOrReplacedAsAnswered) {
    const std::pair<const char*, std::function<void(const fs::path&)>> cases[] = {
        {"an old dictionary", [&](const fs::path& to) { folder_.write(to / "Webster/mImg/p9.tif", "old"); }},
        {"a write-protected one",
         [&](const fs::path& to) {
             folder_.write(to / "Webster/mImg/p9.tif", "old");
             fs::permissions(at(to / "Webster/mImg"), fs::perms(0500));
         }},
        {"one of the name in other case", [&](const fs::path& to) { folder_.write(to / "WEBSTER/FW", "old"); }},
        {"a file", [&](const fs::path& to) { folder_.write(to / "Webster", "a file"); }},
        {"a link", [&](const fs::path& to) { makeLink(at(to / "Webster"), "../precious"); }},
        {"a link to the dictionary itself",
         [&](const fs::path& to) { makeLink(at(to / "Webster"), "../DF/A/Webster"); }}};
    folder_.write("precious", "not to be followed");
    for (const auto& [why, make] : cases) {
        SCOPED_TRACE(why);
        const fs::path to = at(why);
        make(why);
        const Tree before = treeOf(folder_.path());

        const Record kept = exportFrom("DF/A/Webster", to, false);
        EXPECT_TRUE(kept.failures.empty());
        ASSERT_EQ(kept.deeds.size(), 1U);
        EXPECT_EQ(kept.deeds[0].deed, Deed::Skipped);
        EXPECT_EQ(treeOf(folder_.path()), before);

        EXPECT_EQ(failureMessage(exportFrom("DF/A/Webster", to, true)), "");
        EXPECT_TRUE(sameAsExported(FolderItem(at("DF/A/Webster")), FolderItem(to / "Webster")));
        EXPECT_EQ(std::distance(fs::directory_iterator(to), {}), 1) << "nothing else is left there";
        EXPECT_EQ(folder_.read("precious"), "not to be followed");
        EXPECT_EQ(std::exchange(asked_, {}), (std::vector<std::string>{"Webster", "Webster"}));
    }
}

TEST_F(Export, ADictionaryIsNeverExportedOntoOrIntoItself) {
    folder_.write("DF/A/Webster/Webster/FW", "a dictionary in a dictionary");
    const std::pair<const char*, const char*> cases[] = {{"DF/A/Webster", "DF/A"},
                                                         {"DF/A/Webster", "DF/A/Webster"},
                                                         {"DF/A/Webster/Webster", "DF/A"},
                                                         {"DF/A/Webster", "elsewhere/pages"}};
    for (const auto& [dictionary, destination] : cases) {
        SCOPED_TRACE(std::string(dictionary) + " to " + destination);
        const Tree before = treeOf(at("DF"));
        const Record record = exportFrom(dictionary, at(destination), true);
        EXPECT_GE(record.failures.size(), 1U);
        EXPECT_EQ(treeOf(at("DF")), before);
    }
}

TEST_F(Export, ListsEachPlaceOnceByName) {
    makeLink(at("DF/B/Webster"), at("DF/A/Webster"));
    makeLink(at("DF/C"), at("DF/A"));
    folder_.write("DF/B/latin/mHtm", "");
    folder_.write("DF/D/LATIN/BW", "");
    folder_.write("DF/D/no dictionary/readme", "");
    folder_.write("DF/D/.velmarin-9-9.tmp/FW", "a copy that was not whole yet");
    folder_.write("DF/file", "");
    std::vector<std::string> found;
    for (const FolderItem& each : exportableDictionaries(FolderItem(at("DF"))))
        found.push_back(each.path().lexically_relative(at("DF")));
    EXPECT_EQ(found, (std::vector<std::string>{"D/LATIN", "B/latin", "A/Webster"}));
}

} // namespace
} // namespace velmarin::test
