#include "files/FolderItem.h"
#include "files/FolderListing.h"
#include "support/TempFolder.h"
#include "text/LetterCase.h"
#include "text/NilObjectException.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include <sys/stat.h>

namespace velmarin {
namespace {

namespace fs = std::filesystem;
using namespace std::string_literals;
using test::TempFolder;

struct ChildCase {
    const char* reason;
    std::vector<std::string> present;
    std::string asked;
    /// The name that is found; empty: nothing is.
    std::string found;
};

class ChildByName : public testing::TestWithParam<ChildCase> {};

TEST_P(ChildByName, IsFoundByFolderAndByListingAlike) {
    const TempFolder folder;
    folder.write("outside", "");
    for (const std::string& name : GetParam().present)
        folder.write("in/" + name, "");
    fs::create_directories(folder.path() / "in");
    const FolderItem in(folder.path() / "in");
    const FolderListing listing(in);
    for (const FolderItem& child : {in.Child(GetParam().asked), listing.Child(GetParam().asked)}) {
        EXPECT_EQ(child.Exists(), !GetParam().found.empty());
        if (child.Exists()) {
            EXPECT_EQ(child.path(), in.path() / GetParam().found);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(
    Names, ChildByName,
    testing::Values(ChildCase{"ExactName", {"Format"}, "Format", "Format"},
                    ChildCase{"OtherCase", {"format"}, "Format", "format"},
                    ChildCase{"ExactNameBeforeOtherCase", {"FORMAT", "Format", "format"}, "format", "format"},
                    ChildCase{"FirstInListingOrder", {"FORMAT", "Format", "format"}, "fORMAT", "FORMAT"},
                    ChildCase{"ExtensionInOtherCase", {"PAGE1.TIF"}, "page1.tif", "PAGE1.TIF"},
                    ChildCase{"DecomposedOnDisk", {"caf\x65\xCC\x81.tif"}, "caf\xC3\xA9.tif", "caf\x65\xCC\x81.tif"},
                    ChildCase{"ComposedOnDisk", {"CAF\xC3\x89.tif"}, "cafe\xCC\x81.tif", "CAF\xC3\x89.tif"},
                    ChildCase{"NotUtf8", {"caf\xE9.tif"}, "caf\xE9.tif", "caf\xE9.tif"},
                    ChildCase{"Absent", {"ind"}, "txt", ""}, ChildCase{"Prefix", {"indx"}, "ind", ""},
                    ChildCase{"EmptyName", {"a"}, "", ""}, ChildCase{"Point", {"a"}, ".", ""},
                    ChildCase{"TwoPoints", {"a"}, "..", ""}, ChildCase{"WayOut", {"a"}, "../outside", ""},
                    ChildCase{"WayIn", {"a/b"}, "a/b", ""}, ChildCase{"AbsolutePath", {"a"}, "/etc", ""},
                    ChildCase{"NulByte", {"a"}, "a\0b"s, ""}, ChildCase{"NulAtTheEnd", {"a"}, "a\0"s, ""},
                    ChildCase{"TooLong", {"a"}, std::string(5000, 'a'), ""}),
    [](const auto& info) { return info.param.reason; });

TEST(FolderItem, ChildWithImpossibleNameCannotBeMade) {
    const TempFolder folder;
    for (const std::string& name : {""s, "."s, ".."s, "a/b"s, "/x"s, "a\0b"s}) {
        const FolderItem child = FolderItem(folder.path()).Child(name);
        EXPECT_FALSE(child.CreateAsFolder()) << name;
        EXPECT_FALSE(child.occupied()) << name;
    }
    EXPECT_TRUE(fs::is_empty(folder.path()));
}

TEST(FolderItem, IsNamedHoweverItsPathEnds) {
    const TempFolder folder;
    folder.write("a/b/file", "");
    for (const char* path : {"a/b", "a/b/", "a/b//", "a/b/.", "a/b/missing/.."})
        EXPECT_EQ(FolderItem(folder.path() / path).path(), folder.path() / "a/b") << path;
    EXPECT_EQ(FolderItem("/").path(), "/");
    EXPECT_EQ(FolderItem("a").Parent().AbsolutePath(), fs::current_path());
}

TEST(FolderItem, LinksAreAliases) {
    const TempFolder folder;
    folder.write("real/ind", "");
    fs::create_directory_symlink("real", folder.path() / "link");
    fs::create_symlink("nowhere", folder.path() / "dangling");
    fs::create_symlink("loop", folder.path() / "loop");
    const FolderItem in(folder.path());

    const FolderItem link = in.Child("link");
    EXPECT_TRUE(link.Alias() && link.Directory() && link.Exists());
    EXPECT_EQ(link.Name(), "link");
    EXPECT_EQ(link.resolved(), FolderItem(fs::canonical(folder.path() / "real")));
    EXPECT_EQ(link.AbsolutePath(), in.Child("real").AbsolutePath());
    EXPECT_TRUE(link.Child("IND").Exists());
    for (const char* name : {"dangling", "loop"}) {
        const FolderItem item = in.Child(name);
        EXPECT_TRUE(item.Alias() && item.occupied()) << name;
        EXPECT_FALSE(item.Exists() || item.Directory() || item.regularFile()) << name;
        EXPECT_EQ(item.resolved(), item) << name;
        EXPECT_TRUE(item.items().empty()) << name;
        EXPECT_FALSE(item.AbsolutePath().empty()) << name;
    }
    EXPECT_EQ(in.items().size(), 4u);
}

TEST(FolderItem, ListsInTheSystemsStringOrder) {
    const TempFolder folder;
    const std::vector<std::string> alphabet = {"a",   "B", "b", "Z", "_", "1", "\xC3\xA9", "\xC3\x89", "\xE3\x81\x82",
                                               "\xFF"};
    std::mt19937 random(7);
    std::vector<std::string> names;
    for (int i = 0; i < 300; ++i) {
        std::string name;
        for (std::size_t length = 1 + random() % 4; length > 0; --length)
            name += alphabet[random() % alphabet.size()];
        folder.write(name, "");
        names.push_back(name);
    }
    std::sort(names.begin(), names.end(), ListingOrder{});
    names.erase(std::unique(names.begin(), names.end()), names.end());
    std::vector<std::string> listed;
    for (const FolderItem& item : FolderItem(folder.path()).items())
        listed.push_back(item.Name());
    EXPECT_EQ(listed, names);
    const FolderListing listing(FolderItem(folder.path()));
    EXPECT_TRUE(listing.listed());
    EXPECT_EQ(listing.names(), names);
    EXPECT_FALSE(FolderListing(FolderItem(folder.path() / "missing")).listed());
}

} // namespace
} // namespace velmarin
