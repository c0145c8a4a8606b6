#include "CliTest.h"

#include "support/DictionaryBuilder.h"

namespace velmarin::test {

namespace fs = std::filesystem;

namespace {

/// "groups" and "dictionaries".
using ListCommands = CliTest;

TEST_F(ListCommands, GroupsAreFoldersAndLinksToThemByName) {
    for (const char* name : {"DF/latin", "DF/English", "DF/.hidden", "DF/a\tb", "elsewhere"})
        fs::create_directories(folder_.at(name));
    folder_.write("DF/notes.txt", "");
    folder_.link("DF/Greek", "../elsewhere");
    folder_.link("DF/Broken", "nowhere");
    expectRun({"groups", {"groups", "DF/"}, "a␉b\nEnglish\nGreek\nlatin\n"});
    for (const char* command : {"groups", "dictionaries"})
        expectRun({"empty folder", {command, "elsewhere"}, "", "", 1});
}

TEST_F(ListCommands, DictionariesHaveColumnsAndAnOrder) {
    GroupBuilder("G")
        .dictionary(DictionaryBuilder("Zulu").entries({"a", "b", "zz"}))
        .dictionary(DictionaryBuilder("Both").spanish().ijuv())
        .dictionary(DictionaryBuilder("Elements").entries({"001", "999"}).format("0,00", true))
        .dictionary(DictionaryBuilder("Unloaded").without("txt"))
        .dictionary(DictionaryBuilder("Broken").without("ind"))
        .dictionary(DictionaryBuilder("No mark").without("FW"))
        .alias("also Zulu", "Zulu")
        .preferences("Title\t1\t\nZulu\t1\nUnloaded\t0\nGone\t2\n")
        .writeTo(folder_.path());
    folder_.link("link", "G");
    const std::string rows =
        "Zulu\t1\t3\t\nUnloaded\t0\t\t\nBoth\t2\t0\tspanish,ijuv\nElements\t2\t2\tindependent,format=0,00\n";
    for (const std::string& path : {std::string("G"), std::string("./G//"), std::string("G/Zulu/.."),
                                    folder_.at("G").string(), std::string("link")})
        expectRun({"path to the group", {"dictionaries", path}, rows});
    fs::create_directory(folder_.at("G/Broken/ind"));
    expectRun(
        {"index that is a folder", {"dictionaries", "G"}, rows, "The index \"G/Broken/ind\" could not be opened.", 2});
}

} // namespace
} // namespace velmarin::test
