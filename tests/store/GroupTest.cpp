#include "store/Group.h"
#include "store/GroupList.h"
#include "store/GroupPreferences.h"
#include "store/WindowPlacement.h"
#include "support/CollectedMessages.h"
#include "support/DictionaryBuilder.h"
#include "support/TempFolder.h"
#include "text/NilObjectException.h"

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

namespace velmarin {
namespace {

namespace fs = std::filesystem;
using test::CollectedMessages;
using test::DictionaryBuilder;
using test::GroupBuilder;
using test::TempFolder;
using Names = std::vector<std::string>;

DictionaryBuilder good(const std::string& name) {
    return DictionaryBuilder(name).entries({"a", "b", "zzz"});
}
DictionaryBuilder bad(const std::string& name) {
    return good(name).without("txt");
}

/// "name:mode:entries" of each, with "-" for one that did not load.
Names shown(const Group& group) {
    Names rows;
    for (std::size_t i = 0; i < group.dictionaries.size(); ++i) {
        const DictionaryItem& item = *group.dictionaries[i];
        EXPECT_EQ(item.TabNum, static_cast<int>(i));
        rows.push_back(item.name + ":" + std::to_string(item.ImageMode) + ":" +
                       (item.loaded ? std::to_string(item.IND.size()) : "-"));
    }
    return rows;
}

GroupBuilder group() {
    return GroupBuilder("G");
}
GroupBuilder three() {
    return group().dictionary(good("C")).dictionary(good("a")).dictionary(good("B"));
}

const struct {
    const char* reason;
    GroupBuilder group;
    Names dictionaries;
    std::string name = {};
    bool separately = false;
} kReadingCases[] = {
    {"UnlistedByNameWithWidthMode", three(), {"a:2:3", "B:2:3", "C:2:3"}},
    {"ListedFirstThenTheOthers",
     three().preferences("Old books\t1\t\nC\t1\n"),
     {"C:1:3", "a:2:3", "B:2:3"},
     "Old books",
     true},
    {"OrderEditorsShapeHasModeZero", three().preferences("Books\nC\nB\na\n"), {"C:0:3", "B:0:3", "a:0:3"}, "Books"},
    {"FlagIsTheDigitOneAlone",
     three().preferences("Books\t01\t\nC\t1\nB\ta\na\t-3.9\n"),
     {"C:1:3", "B:0:3", "a:-3:3"},
     "Books"},
    {"EmptyFile", three().preferences(""), {"a:2:3", "B:2:3", "C:2:3"}},
    {"EmptyTitle", three().preferences("\t1\t\r\nB\t0\r\n"), {"B:0:3", "a:2:3", "C:2:3"}, "", true},
    {"ListedTwiceIsShownOnce", three().preferences("G\t0\t\nC\t1\nB\t0\nC\t2\n"), {"C:1:3", "B:0:3", "a:2:3"}, "G"},
    {"ListedInOtherCaseHasTheFoldersName", three().preferences("G\t0\t\nb\t1\n"), {"B:1:3", "a:2:3", "C:2:3"}, "G"},
    {"NamesThatAreGoneOrLeadOutArePassedOver",
     three().preferences("G\t0\t\ngone\t1\n../G/B\t1\n\n.\t1\n/etc\t1\nC\t0\n"),
     {"C:0:3", "a:2:3", "B:2:3"},
     "G"},
    {"ListedThatFailsIsKept",
     group().dictionary(bad("X")).dictionary(good("Y")).preferences("G\t0\t\nX\t1\n"),
     {"X:1:-", "Y:2:3"},
     "G"},
    {"UnlistedThatFailsIsDropped", group().dictionary(bad("X")).dictionary(good("Y")), {"Y:2:3"}},
    {"WithoutMarkIsSkipped", group().dictionary(good("X").without("FW")).preferences("G\t0\t\nX\t1\n"), {}, "G"},
    {"HiddenIsSkipped", group().dictionary(good(".X")), {}},
    {"FolderOfFilesAlone", group().preferences("G\t1\t\n"), {}, "G", true},
    {"LinkHasItsOwnName", group().dictionary(good("Z")).alias("A", "Z").preferences("G\t0\t\nA\t1\n"), {"A:1:3"}, "G"},
    {"LinkLoopsAndLinksToNothing",
     three().alias("loop", "loop").alias("gone", "nowhere").alias("up", ".."),
     {"a:2:3", "B:2:3", "C:2:3"}},
    {"FolderBeforeALinkToIt", three().alias("A first link", "B"), {"a:2:3", "B:2:3", "C:2:3"}},
    {"ListedLinkStandsForItsFolder",
     three().alias("Link", "B").preferences("G\t0\t\nLink\t1\nB\t0\n"),
     {"Link:1:3", "a:2:3", "C:2:3"},
     "G"}};

TEST(Reading, GivesTheDictionariesInDisplayOrder) {
    for (const auto& each : kReadingCases) {
        SCOPED_TRACE(each.reason);
        const TempFolder folder;
        int calls = 0;
        const Group read = readGroup(FolderItem(each.group.writeTo(folder.path())), [&] { ++calls; });
        EXPECT_EQ(shown(read), each.dictionaries);
        EXPECT_EQ(read.groupName, each.name);
        EXPECT_EQ(read.separately, each.separately);
        EXPECT_GE(calls, static_cast<int>(read.dictionaries.size()));
    }
}

TEST(Reading, OfTwoLinksToOneFolderTheFirstGivesTheName) {
    const TempFolder folder;
    const fs::path elsewhere = good("real name").writeTo(folder.path() / "elsewhere");
    const fs::path own = group().alias("second", elsewhere).alias("First", elsewhere).writeTo(folder.path());
    EXPECT_EQ(shown(readGroup(FolderItem(own))), Names{"First:2:3"});
    folder.write("G/DictionaryPreferences.txt", "G\t0\t\nsecond\t0\nFirst\t1\n");
    EXPECT_EQ(shown(readGroup(FolderItem(own))), Names{"second:0:3"});
    EXPECT_TRUE(readGroup(FolderItem(own)).dictionaries[0]->ImageFolder.Exists());
}

TEST(Reading, FolderThatIsGoneIsMadeWithAMessage) {
    const TempFolder folder;
    const CollectedMessages messages;
    const FolderItem gone(folder.path() / "gone");
    EXPECT_TRUE(readGroup(gone).dictionaries.empty());
    EXPECT_TRUE(gone.Directory());
    EXPECT_EQ(messages.texts, Names{"Threre are no dictionaries."});
    readGroup(gone);
    EXPECT_EQ(messages.texts.size(), 1u);
    EXPECT_THROW(readGroup(FolderItem()), NilObjectException);
}

TEST(Reading, AFolderThatCannotBeListedIsAnError) {
    const TempFolder folder;
    EXPECT_THROW(readGroup(FolderItem(folder.write("file", ""))), NilObjectException);
    if (::geteuid() == 0)
        GTEST_SKIP() << "root may list and enter any folder";
    const fs::path own = three().preferences("G\t0\t\nB\t1\nC\t0\n").writeTo(folder.path());
    for (const auto mode : {fs::perms(0333), fs::perms(0444), fs::perms(0)}) {
        fs::permissions(own, mode);
        EXPECT_THROW(readGroup(FolderItem(own)), NilObjectException) << static_cast<unsigned>(mode);
    }
    fs::permissions(own, fs::perms(0755));
    for (const char* name : {"a", "B"})
        fs::permissions(own / name, fs::perms(0));
    const Group read = readGroup(FolderItem(own));
    for (const char* name : {"a", "B"})
        fs::permissions(own / name, fs::perms(0755));
    EXPECT_EQ(shown(read), (Names{"B:1:-", "C:0:3"})) << "what is listed keeps its place";
    EXPECT_EQ(read.failures.size(), 1u);
}

TEST(Reading, ADictionaryThatCannotBeOpenedKeepsItsPlaceAndTheOthersAreRead) {
    const TempFolder folder;
    const fs::path own = three()
                             .dictionary(good("D").without("ind").member("ind/x", ""))
                             .dictionary(good("E").without("ind").member("ind/x", ""))
                             .writeTo(folder.path());
    folder.write("G/DictionaryPreferences.txt", "Name\t1\t\nC\t1\nD\t1\na\t1\n");
    const Group read = readGroup(FolderItem(own));
    EXPECT_EQ(shown(read), (Names{"C:1:3", "D:1:-", "a:1:3", "B:2:3"})) << "E is not listed, and so drops out";
    ASSERT_EQ(read.failures.size(), 2u);
    EXPECT_NE(read.failures[0].find("/D/ind"), std::string::npos) << read.failures[0];
}

TEST(Reading, PreferencesThatCannotBeOpenedEndIt) {
    const TempFolder folder;
    const fs::path own = three().writeTo(folder.path());
    fs::remove(own / "DictionaryPreferences.txt");
    ASSERT_EQ(::mkfifo((own / "DictionaryPreferences.txt").c_str(), 0600), 0);
    EXPECT_THROW(readGroup(FolderItem(own)), NilObjectException);
}

TEST(Groups, AreTheVisibleFoldersAndLinksToFolders) {
    const TempFolder folder;
    for (const char* name : {"root/b/x", "root/A/x", "root/.hidden/x", "far/x", ".farHidden/x", "root/file"})
        folder.write(name, "");
    for (const auto& [name, target] :
         {std::pair{"alias", "../far"}, std::pair{"gone", "nowhere"}, std::pair{"loop", "loop"},
          std::pair{"toFile", "file"}, std::pair{"toHidden", "../.farHidden"}})
        fs::create_symlink(target, folder.path() / "root" / name);
    const auto rows = listGroups(FolderItem(folder.path() / "root"));
    Names names;
    for (const GroupRow& row : rows)
        names.push_back(row.name);
    ASSERT_EQ(names, (Names{"A", "alias", "b"}));
    EXPECT_EQ(rows[1].folder.Name(), "far");
    EXPECT_TRUE(listGroups(FolderItem(folder.path() / "missing")).empty());
}

TEST(GroupPreferences, AreWrittenAsTheyAreRead) {
    const GroupPreferences preferences{
        .groupName = "Old books", .separately = true, .dictionaries = {{"A b", 2}, {"C", -1}}};
    const std::string text = "Old books\t1\t\nA b\t2\nC\t-1\n";
    EXPECT_EQ(formatGroupPreferences(preferences), text);
    EXPECT_EQ(formatGroupPreferences(parseGroupPreferences(text)), text);
    EXPECT_EQ(formatGroupPreferences({}), "\t0\t\n");
}

TEST(GroupPreferences, OnceTheOrderWasSavedItsLinesGoIntoEveryGroup) {
    const TempFolder folder;
    const FolderItem own(group().writeTo(folder.path()));
    EXPECT_TRUE(writeGroupPreferences(own, {.groupName = "G", .separately = false, .dictionaries = {{"A", 1}}}));
    EXPECT_EQ(folder.read("G/DictionaryPreferences.txt"), "G\t0\t\nA\t1\n");
    EXPECT_TRUE(
        writeGroupPreferences(own, {.groupName = "G", .separately = true, .dictionaries = {}}, {"Other", "X", "Y"}));
    EXPECT_EQ(folder.read("G/DictionaryPreferences.txt"), "Other\nX\nY\n");
    EXPECT_TRUE(writeGroupPreferences(FolderItem(), {}));
    EXPECT_TRUE(writeGroupPreferences(FolderItem(folder.path() / "gone"), {}));
    EXPECT_FALSE(fs::exists(folder.path() / "gone"));
    const FolderItem blocked(folder.path() / "blocked");
    folder.write("blocked/DictionaryPreferences.txt/x", "");
    const Result failed = writeGroupPreferences(blocked, {});
    EXPECT_FALSE(failed);
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
    const FolderItem preferences(folder.path());
    EXPECT_FALSE(readWindowPlacement(preferences));
    EXPECT_TRUE(writeWindowPlacement(preferences, {.left = -12, .top = 34, .width = 800, .height = 600}));
    EXPECT_EQ(folder.read("MainWindow"), "-12\t34\t800\t600\t\n");
    struct Case {
        const char* text;
        std::vector<int> numbers;
    };
    for (const Case& c : {Case{"-12\t34\t800\t600\t\n", {-12, 34, 800, 600}}, Case{"1\t2", {1, 2, 0, 0}},
                          Case{"", {0, 0, 0, 0}}, Case{"a\t2.9\t99999999999\t4\t5\t6\r\n9", {0, 2, 2147483647, 4}}}) {
        folder.write("MainWindow", c.text);
        const auto placement = readWindowPlacement(preferences);
        ASSERT_TRUE(placement) << c.text;
        EXPECT_EQ((std::vector{placement->left, placement->top, placement->width, placement->height}), c.numbers);
    }
    EXPECT_FALSE(writeWindowPlacement(FolderItem(folder.path() / "missing"), {}));
    EXPECT_FALSE(readWindowPlacement(FolderItem(folder.path() / "missing")));
}

} // namespace
} // namespace velmarin
