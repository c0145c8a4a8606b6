#include "store/Group.h"
#include "store/GroupList.h"
#include "store/GroupPreferences.h"
#include "store/WindowPlacement.h"
#include "support/CollectedMessages.h"
#include "support/DictionaryBuilder.h"
#include "support/TempFolder.h"
#include "text/NilObjectException.h"

#include <gtest/gtest.h>

#include <unistd.h>

namespace velmarin {
namespace {

namespace fs = std::filesystem;
using test::DictionaryBuilder;
using test::GroupBuilder;
using test::TempFolder;

DictionaryBuilder good(const std::string& name) {
    return DictionaryBuilder(name).entries({"a", "b", "zzz"});
}
DictionaryBuilder unreadable(const std::string& name) {
    return good(name).without("ind").member("ind/x", "");
}
GroupBuilder group() {
    return GroupBuilder("G");
}
GroupBuilder goodAndBad(const std::string& name) {
    return group().dictionary(good(name)).dictionary(good("bad").without("txt"));
}
GroupBuilder three() {
    return group().dictionary(good("C")).dictionary(good("a")).dictionary(good("B"));
}
GroupBuilder listed(const std::string& preferences) {
    return three().preferences(preferences);
}

/// The name, "1" for separate windows, and "name:mode:entries" of each; "-" for one that did not load.
std::string shown(const Group& group) {
    std::string text = group.groupName + (group.separately ? "|1|" : "|0|");
    for (std::size_t i = 0; i < group.dictionaries.size(); ++i) {
        const DictionaryItem& item = *group.dictionaries[i];
        EXPECT_EQ(item.TabNum, static_cast<int>(i));
        text += " " + item.name + ":" + std::to_string(item.ImageMode) + ":" +
                (item.loaded ? std::to_string(item.IND.size()) : "-");
    }
    return text;
}

TEST(ReadGroup, GivesTheDictionariesInDisplayOrder) {
    const struct {
        const char* reason;
        GroupBuilder group;
        std::string shown;
    } cases[] = {
        {"unlisted: by name, mode 2", three(), "|0| a:2:3 B:2:3 C:2:3"},
        {"listed, then the others", listed("Old books\t1\t\nC\t1\n"), "Old books|1| C:1:3 a:2:3 B:2:3"},
        {"without modes", listed("Books\nC\nB\na\n"), "Books|0| C:0:3 B:0:3 a:0:3"},
        {"flag is 1 alone", listed("Books\t01\t\nC\t1\nB\ta\na\t-3.9\n"), "Books|0| C:1:3 B:0:3 a:-3:3"},
        {"empty title", listed("\t1\t\r\nB\t0\r\n"), "|1| B:0:3 a:2:3 C:2:3"},
        {"listed twice", listed("G\t0\t\nC\t1\nB\t0\nC\t2\n"), "G|0| C:1:3 B:0:3 a:2:3"},
        {"listed in other case", listed("G\t0\t\nb\t1\n"), "G|0| B:1:3 a:2:3 C:2:3"},
        {"names of no member", listed("G\n../G/B\t1\n\n.\t1\n/etc\t1\ngone\t1\nC\t0\n"), "G|0| C:0:3 a:2:3 B:2:3"},
        {"listed that does not load", goodAndBad("Y").preferences("G\nbad\t1\n"), "G|0| bad:1:- Y:2:3"},
        {"unlisted that does not load", goodAndBad("Y"), "|0| Y:2:3"},
        {"without its mark", group().dictionary(good("X").without("FW")).preferences("G\nX\t1\n"), "G|0|"},
        {"hidden", group().dictionary(good(".X")), "|0|"},
        {"link has its own name", goodAndBad("Z").alias("A", "Z").preferences("G\nA\t1\n"), "G|0| A:1:3"},
        {"links that lead nowhere", three().alias("loop", "loop").alias("gone", "nowhere").alias("up", ".."),
         "|0| a:2:3 B:2:3 C:2:3"},
        {"listed link before its folder", listed("G\nLink\t1\nB\t0\n").alias("Link", "B"), "G|0| Link:1:3 a:2:3 C:2:3"},
        {"of two links the first", goodAndBad("../far").alias("y", "../far").alias("X", "../far"), "|0| X:2:3"},
        {"of two links the listed one",
         goodAndBad("../far").alias("y", "../far").alias("X", "../far").preferences("G\ny\t0\nX\t1\n"), "G|0| y:0:3"},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.reason);
        const TempFolder folder;
        int calls = 0;
        const auto count = [&](std::size_t, std::size_t) { return ++calls > 0; };
        const Group read = readGroup(FolderItem(each.group.writeTo(folder.path())), {.onProgress = count});
        EXPECT_EQ(shown(read), each.shown);
        EXPECT_GE(calls, static_cast<int>(read.dictionaries.size()));
    }
}

TEST(ReadGroup, FolderThatIsGoneIsMadeWithAMessage) {
    const TempFolder folder;
    const test::CollectedMessages messages;
    for (int i = 0; i < 2; ++i)
        EXPECT_EQ(shown(readGroup(FolderItem(folder.at("gone")))), "|0|");
    EXPECT_EQ(messages.texts, std::vector<std::string>{"Threre are no dictionaries."}) << "once: the folder is made";
}

TEST(ReadGroup, ADictionaryThatCannotBeReadKeepsItsPlaceIfItIsListed) {
    const TempFolder folder;
    const fs::path own = listed("Name\t1\t\nC\t1\nD\t1\na\t1\n")
                             .dictionary(unreadable("D"))
                             .dictionary(unreadable("E"))
                             .writeTo(folder.path());
    const Group read = readGroup(FolderItem(own));
    EXPECT_EQ(shown(read), "Name|1| C:1:3 D:1:- a:1:3 B:2:3");
    ASSERT_EQ(read.failures.size(), 2u);
    EXPECT_NE(read.failures[0].find("/D/ind"), std::string::npos) << read.failures[0];
    if (::geteuid() == 0)
        return; // root may list and enter any folder
    for (const auto mode : {fs::perms(0333), fs::perms(0444), fs::perms(0)}) {
        fs::permissions(own, mode);
        EXPECT_THROW(readGroup(FolderItem(own)), NilObjectException) << static_cast<unsigned>(mode);
    }
    fs::permissions(own, fs::perms(0755));
    for (const char* name : {"a", "B"})
        fs::permissions(own / name, fs::perms(0));
    const Group refused = readGroup(FolderItem(own));
    for (const char* name : {"a", "B"})
        fs::permissions(own / name, fs::perms(0755));
    EXPECT_EQ(shown(refused), "Name|1| C:1:3 D:1:- a:1:-");
    EXPECT_EQ(refused.failures.size(), 4u);
}

TEST(ReadGroup, StopsWhenItIsTold) {
    const TempFolder folder;
    GroupBuilder many = group();
    for (char name = 'a'; name <= 'z'; ++name)
        many = many.dictionary(good(std::string(1, name)));
    const FolderItem own(many.writeTo(folder.path()));
    for (const std::size_t last : {1u, 7u, 26u, 27u}) {
        std::size_t before = 0;
        const auto until = [&](std::size_t done, std::size_t of) {
            EXPECT_EQ(of, 26u);
            EXPECT_LE(before, done);
            before = done;
            return done < last;
        };
        const Group read = readGroup(own, {.findTxtLines = true, .onProgress = until});
        EXPECT_EQ(read.stopped, last <= 26u);
        EXPECT_EQ(read.dictionaries.size(), std::min<std::size_t>(last, 26u));
    }
}

TEST(ReadGroup, ThrowsIfTheFolderCannotBeReadButNotForItsPreferences) {
    const TempFolder folder;
    three().writeTo(folder.path());
    folder.unreadable("G/DictionaryPreferences.txt");
    for (const FolderItem& item : {FolderItem(), FolderItem(folder.write("file", ""))})
        EXPECT_THROW(readGroup(item), NilObjectException);
    const Group read = readGroup(FolderItem(folder.at("G")));
    EXPECT_EQ(shown(read), "|0| a:2:3 B:2:3 C:2:3");
    EXPECT_FALSE(read.preferencesRead);
    ASSERT_EQ(read.failures.size(), 1U);
    EXPECT_NE(read.failures[0].find("/G/DictionaryPreferences.txt\" could not be read: Input/output error"),
              std::string::npos);
}

TEST(ListGroups, GivesTheVisibleFoldersAndLinksToFolders) {
    const TempFolder folder;
    for (const char* name : {"root/b/x", "root/A/x", "root/.hidden/x", "far/x", ".farHidden/x", "root/file"})
        folder.write(name, "");
    for (const auto& [name, target] :
         {std::pair{"alias", "../far"}, {"gone", "nowhere"}, {"toFile", "file"}, {"toHidden", "../.farHidden"}})
        folder.link(fs::path("root") / name, target);
    std::string rows;
    for (const GroupRow& row : listGroups(FolderItem(folder.at("root"))))
        rows += row.name + "=" + row.folder.Name() + " ";
    EXPECT_EQ(rows, "A=A alias=far b=b ");
    EXPECT_TRUE(listGroups(FolderItem(folder.at("missing"))).empty());
}

TEST(GroupPreferences, AreWrittenWithTheSavedOrderInTheirPlace) {
    const TempFolder folder;
    const FolderItem own(group().writeTo(folder.path()));
    const GroupPreferences books{.groupName = "Old books", .separately = true, .dictionaries = {{"A b", 2}, {"C", -1}}};
    EXPECT_TRUE(writeGroupPreferences(own, books));
    const std::string text = folder.read("G/DictionaryPreferences.txt");
    EXPECT_EQ(text, "Old books\t1\t\nA b\t2\nC\t-1\n");
    EXPECT_EQ(formatGroupPreferences(parseGroupPreferences(text)), text);
    EXPECT_TRUE(writeGroupPreferences(own, books, {"Other", "X", "Y"}));
    EXPECT_EQ(folder.read("G/DictionaryPreferences.txt"), "Other\nX\nY\n");
    for (const FolderItem& none : {FolderItem(), FolderItem(folder.at("gone"))})
        EXPECT_TRUE(writeGroupPreferences(none, {}));
    EXPECT_FALSE(fs::exists(folder.at("gone")));
    folder.write("blocked/DictionaryPreferences.txt/x", "");
    const Result failed = writeGroupPreferences(FolderItem(folder.at("blocked")), {});
    EXPECT_NE(failed.failure().message().find("DictionaryPreferences.txt"), std::string::npos);
    if (::geteuid() == 0)
        return; // root may write anywhere
    fs::permissions(own.path(), fs::perms(0555));
    EXPECT_TRUE(writeGroupPreferences(own, {}, {"Other", "X", "Y"})) << "nothing is lost";
    EXPECT_FALSE(writeGroupPreferences(own, {}, {"Other", "Y", "X"}));
    fs::permissions(own.path(), fs::perms(0755));
}

TEST(WindowPlacement, IsReadBackAndMissingNumbersAreZero) {
    const TempFolder folder;
    const FolderItem preferences(folder.path()), missing(folder.at("missing"));
    const auto rewritten = [&](const char* text) {
        folder.write("MainWindow", text);
        const auto placement = readWindowPlacement(preferences);
        EXPECT_TRUE(placement && writeWindowPlacement(preferences, *placement));
        return folder.read("MainWindow");
    };
    EXPECT_EQ(rewritten("-12\t34\t800\t600\t\n"), "-12\t34\t800\t600\t\n");
    EXPECT_EQ(rewritten("1\t2"), "1\t2\t0\t0\t\n");
    EXPECT_EQ(rewritten("\n"), "0\t0\t0\t0\t\n");
    EXPECT_EQ(rewritten("a\t2.9\t99999999999\t4\t5\t6\r\n9"), "0\t2\t2147483647\t4\t\n");
    EXPECT_FALSE(writeWindowPlacement(missing, {}));
    EXPECT_FALSE(readWindowPlacement(missing));
}

} // namespace
} // namespace velmarin
