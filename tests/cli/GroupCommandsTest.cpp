#include "RunCli.h"

#include "support/DictionaryBuilder.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace {

namespace fs = std::filesystem;
using velmarin::test::CliRun;
using velmarin::test::DictionaryBuilder;
using velmarin::test::GroupBuilder;
using velmarin::test::runCli;
using velmarin::test::TempFolder;

CliRun runIn(const TempFolder& folder, const std::vector<std::string>& arguments) {
    return runCli(arguments, {.folder = folder.path()});
}

TEST(GroupsCommand, FoldersAndLinksToThemComeByName) {
    const TempFolder folder;
    for (const char* name : {"DF/latin", "DF/English", "DF/.hidden", "DF/a\tb", "elsewhere"})
        fs::create_directories(folder.path() / name);
    folder.write("DF/notes.txt", "");
    fs::create_symlink("../elsewhere", folder.path() / "DF/Greek");
    fs::create_symlink("nowhere", folder.path() / "DF/Broken");
    const CliRun run = runIn(folder, {"groups", "DF/"});
    EXPECT_EQ(run.out, "a␉b\nEnglish\nGreek\nlatin\n");
    EXPECT_EQ(run.err, "");
    EXPECT_EQ(run.status, 0);
}

TEST(DictionariesCommand, ColumnsInDisplayOrder) {
    const TempFolder folder;
    GroupBuilder("G")
        .dictionary(DictionaryBuilder("Zulu").entries({"a", "b", "zz"}))
        .dictionary(DictionaryBuilder("Both").spanish().ijuv())
        .dictionary(DictionaryBuilder("Elements").entries({"001", "999"}).format("0,00", true))
        .dictionary(DictionaryBuilder("Listed in vain").without("txt"))
        .dictionary(DictionaryBuilder("Broken").without("ind"))
        .dictionary(DictionaryBuilder("No mark").without("FW"))
        .preferences("Title\t1\t\nZulu\t1\nListed in vain\t0\nGone\t2\n")
        .writeTo(folder.path());
    const CliRun run = runIn(folder, {"dictionaries", "G"});
    EXPECT_EQ(run.out, "Zulu\t1\t3\t\n"
                       "Listed in vain\t0\t\t\n"
                       "Both\t2\t0\tspanish,ijuv\n"
                       "Elements\t2\t2\tindependent,format=0,00\n");
    EXPECT_EQ(run.err, "");
    EXPECT_EQ(run.status, 0);
}

TEST(DictionariesCommand, GroupIsFoundByAnyWayToIt) {
    const TempFolder folder;
    const fs::path group = GroupBuilder("G").dictionary(DictionaryBuilder("D").entries({"a"})).writeTo(folder.path());
    fs::create_symlink("G", folder.path() / "link");
    fs::create_symlink("D", group / "also D");
    for (const std::string& way :
         {std::string("G"), std::string("./G//"), std::string("G/D/.."), group.string(), std::string("link")}) {
        SCOPED_TRACE(way);
        EXPECT_EQ(runIn(folder, {"dictionaries", way}).out, "D\t2\t1\t\n");
    }
}

TEST(DictionariesCommand, IndexThatCannotBeOpenedIsNamedAndTheOthersAreListed) {
    const TempFolder folder;
    const fs::path group = GroupBuilder("G")
                               .dictionary(DictionaryBuilder("Bad").without("ind"))
                               .dictionary(DictionaryBuilder("Good").entries({"a"}))
                               .writeTo(folder.path());
    fs::create_directory(group / "Bad/ind");
    const CliRun run = runIn(folder, {"dictionaries", "G"});
    EXPECT_EQ(run.out, "Good\t2\t1\t\n");
    EXPECT_EQ(run.err, "velmarin-cli: The index \"G/Bad/ind\" could not be opened.\n");
    EXPECT_EQ(run.status, 2);
}

TEST(GroupCommands, AnEmptyFolderIsNothingFound) {
    const TempFolder folder;
    for (const char* command : {"groups", "dictionaries"}) {
        const CliRun run = runIn(folder, {command, "."});
        EXPECT_EQ(run.out + run.err, "") << command;
        EXPECT_EQ(run.status, 1) << command;
    }
}

} // namespace
