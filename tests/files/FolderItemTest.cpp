#include "files/FolderItem.h"
#include "files/FolderListing.h"
#include "support/TempFolder.h"
#include "text/LetterCase.h"
#include "text/NilObjectException.h"

#include <gtest/gtest.h>

#include <random>
#include <set>

namespace velmarin {
namespace {

namespace fs = std::filesystem;
using namespace std::string_literals;
using test::TempFolder;

TEST(FolderItem, ChildIsFoundByFolderAndByListingAlike) {
    const struct {
        std::vector<std::string> present;
        std::string asked, found;
    } cases[] = {
        {{"Format"}, "Format", "Format"},
        {{"format"}, "Format", "format"},
        {{"FORMAT", "Format", "format"}, "format", "format"},
        {{"FORMAT", "Format", "format"}, "fORMAT", "FORMAT"},
        {{"cafe\xCC\x81.tif"}, "caf\xC3\xA9.tif", "cafe\xCC\x81.tif"},
        {{"CAF\xC3\x89.tif"}, "cafe\xCC\x81.tif", "CAF\xC3\x89.tif"},
        {{"caf\xE9.tif"}, "caf\xE9.tif", "caf\xE9.tif"},
        {{"indx"}, "ind", ""},
        {{"a/b"}, "a/b", ""},
        {{"a"}, "../outside", ""},
        {{"a"}, "a\0"s, ""},
        {{"a"}, std::string(5000, 'a'), ""},
        {{"a"}, "", ""},
        {{"a"}, ".", ""},
        {{"a"}, "..", ""},
        {{"a"}, "/etc", ""},
        {{"a"}, "a\0b"s, ""},
    };
    for (const auto& each : cases) {
        const TempFolder folder;
        folder.write("outside", "");
        for (const std::string& name : each.present)
            folder.write("in/" + name, "");
        const FolderItem in(folder.at("in"));
        const FolderListing listing(in);
        for (const FolderItem& child : {in.Child(each.asked), listing.Child(each.asked)})
            EXPECT_EQ(child.Exists() ? child.path() : in.path() / "", in.path() / each.found) << each.asked;
    }
}

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
    EXPECT_TRUE(FolderItem("/.a/b.c").Visible() && !FolderItem("/a/.b").Visible());
    EXPECT_EQ(FolderItem("a").Parent().AbsolutePath(), fs::current_path());
}

TEST(FolderItem, LinksAreAliases) {
    const TempFolder folder;
    folder.write("real/ind", "");
    folder.link("link", "real");
    folder.link("dangling", "nowhere");
    folder.link("loop", "loop");
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
    }
    EXPECT_EQ(in.items().size(), 4u);
}

TEST(FolderItem, ListsInTheSystemsStringOrder) {
    const TempFolder folder;
    const std::vector<std::string> letters = {"a",   "B", "b", "Z", "_", "1", "\xC3\xA9", "\xC3\x89", "\xE3\x81\x82",
                                              "\xFF"};
    std::mt19937 random(7);
    std::set<std::string, ListingOrder> wanted;
    for (int i = 0; i < 300; ++i) {
        std::string name;
        for (std::size_t length = 1 + random() % 4; length > 0; --length)
            name += letters[random() % letters.size()];
        folder.write(name, "");
        wanted.insert(name);
    }
    const std::vector<std::string> names(wanted.begin(), wanted.end());
    std::vector<std::string> listed;
    for (const FolderItem& item : FolderItem(folder.path()).items())
        listed.push_back(item.Name());
    EXPECT_EQ(listed, names);
    const FolderListing listing(FolderItem(folder.path()));
    EXPECT_TRUE(listing.listed());
    EXPECT_EQ(listing.names(), names);
    EXPECT_FALSE(FolderListing(FolderItem(folder.at("missing"))).listed());
}

} // namespace
} // namespace velmarin
