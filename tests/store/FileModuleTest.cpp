#include "store/CopyAndMove.h"
#include "store/FileNames.h"
#include "store/TextFileLines.h"
#include "store/UserPreferencesFolder.h"
#include "support/CollectedMessages.h"
#include "support/TempFolder.h"
#include "support/Tree.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace velmarin {
namespace {

namespace fs = std::filesystem;
using namespace std::string_literals;
using test::filesOf;
using test::TempFolder;
using Texts = std::vector<std::string>;

FolderItem itemAt(const TempFolder& folder, const fs::path& name) {
    return FolderItem(folder.at(name));
}

TEST(CopyFileOrFolder, KeepsOrFollowsLinksAndLeavesOutWhatCannotBeCopied) {
    const TempFolder folder;
    folder.write("from/Dic/ind", "a");
    folder.write("from/Dic/sub/.hidden", "h");
    folder.write("real", "r");
    folder.link("from/Dic/alias", "../../real");
    folder.link("from/Dic/gone", "nowhere");
    folder.fifo("from/Dic/fifo");
    for (const char* name : {"to", "complete"})
        fs::create_directories(folder.at(name));
    const FolderItem copy = mFiMod_CopyFileOrFolderTo(itemAt(folder, "from/Dic"), itemAt(folder, "to"));
    EXPECT_EQ(copy.path(), folder.at("to/Dic"));
    EXPECT_EQ(filesOf(copy.path()), "alias->" + fs::canonical(folder.at("real")).string() + " ind=a sub/.hidden=h");
    mFiMod_CopyFileOrFolderTo_Complete(itemAt(folder, "from/Dic"), itemAt(folder, "complete"));
    EXPECT_EQ(filesOf(folder.at("complete/Dic")), "alias=r ind=a sub/.hidden=h");
}

TEST(CopyFileOrFolder, FillsUpAFolderAndReplacesNothing) {
    const TempFolder folder;
    for (const char* name : {"from/a", "from/sub/b", "words"})
        folder.write(name, "new");
    for (const char* name : {"to/from/a", "to/words"})
        folder.write(name, "old");
    const FolderItem to = itemAt(folder, "to");
    mFiMod_CopyFileOrFolderTo(itemAt(folder, "from"), to);
    for (const auto& [source, name] :
         {std::pair{"words", "text"}, {"words", "words"}, {"words", "from"}, {"from", "words"}, {"from/a", "text"}})
        EXPECT_EQ(mFiMod_CopyFiToFolderWIthNewName(itemAt(folder, source), to, name).path(), to.path() / name);
    EXPECT_EQ(filesOf(to.path()), "from/a=old from/sub/b=new text=new words=old");
}

TEST(CopyFileOrFolder, ThatFailsLeavesNothing) {
    const TempFolder folder;
    folder.write("file", "f");
    folder.write("dir/sub/inside", "f");
    const struct {
        const char *source, *folder;
        std::string name;
    } cases[] = {{"missing", "dir", "x"},
                 {"file", "nowhere", "x"},
                 {"dir", "dir/sub", "x"},
                 {"file", "dir", ""},
                 {"file", "dir", ".."},
                 {"file", "dir", "a/b"},
                 {"file", "dir", std::string(300, 'n')}};
    for (const auto& each : cases)
        mFiMod_CopyFiToFolderWIthNewName(itemAt(folder, each.source), itemAt(folder, each.folder), each.name);
    EXPECT_EQ(filesOf(folder.path()), "dir/sub/inside=f file=f");
}

TEST(MoveFileOrFolder, OntoAnExistingNameMovesNothingAndReportsIt) {
    const TempFolder folder;
    folder.write("from/Dic/ind", "new");
    folder.write("to/dic/ind", "old");
    const FolderItem source = itemAt(folder, "from/Dic"), to = itemAt(folder, "to");
    const test::CollectedMessages messages;
    EXPECT_TRUE(mFiMod_MoveFileOrFolderTo(source, to).isNil());
    EXPECT_EQ(messages.texts,
              Texts{"The item which has the same name exists already.\n" + to.AbsolutePath() + "\nDic"});
    EXPECT_EQ(filesOf(folder.path()), "from/Dic/ind=new to/dic/ind=old");
    fs::remove_all(folder.at("to/dic"));
    EXPECT_EQ(mFiMod_MoveFileOrFolderTo(source, to).path(), folder.at("to/Dic"));
    EXPECT_TRUE(mFiMod_MoveFileOrFolderTo(source, to).isNil());
    EXPECT_EQ(filesOf(folder.path()), "to/Dic/ind=new");
}

std::string x(std::size_t count, const std::string& end) {
    return std::string(count, 'x') + end;
}

std::string accents(int count, const std::string& end) {
    return count == 0 ? end : "\xC3\xA9" + accents(count - 1, end);
}

TEST(FileNames, AreMadeUnique) {
    Texts upToNine = {x(27, ".tif")};
    for (const char digit : "123456789"s)
        upToNine.push_back(x(25, "_"s + digit + ".tif"));
    const struct {
        const char* reason;
        Texts taken;
        std::string name, unique;
    } cases[] = {
        {"free long name", {}, x(40, ".tif"), x(40, ".tif")},
        {"number before the extension", {"a.tif"}, "a.tif", "a_1.tif"},
        {"next number", {"a.tif", "a_1.tif", "a_2.tif"}, "a.tif", "a_3.tif"},
        {"without extension", {"Latin"}, "Latin", "Latin_1"},
        {"two points", {"a.b.tif"}, "a.b.tif", "a.b_1.tif"},
        {"extension alone", {".hidden"}, ".hidden", "_1.hidden"},
        {"point at the end is dropped", {"a."}, "a.", "a"},
        {"other case is taken", {"A.TIF"}, "a.tif", "a_1.tif"},
        {"cut to 31 bytes", {x(28, ".tif")}, x(28, ".tif"), x(27, ".tif")},
        {"31 bytes fit, not numbered", {x(27, ".tif")}, x(27, ".tif"), x(25, "_1.tif")},
        {"numbered form of 32 bytes", {x(25, ".jpeg")}, x(25, ".jpeg"), x(24, "_1.jpeg")},
        {"two digits cut one more", upToNine, x(27, ".tif"), x(24, "_10.tif")},
        {"first cut counts characters", {accents(40, ".tif")}, accents(40, ".tif"), accents(27, ".tif")},
        {"next cut counts bytes", {accents(27, ".tif")}, accents(27, ".tif"), accents(12, "\xC3_1.tif")},
        {"extension fills the room", {"b." + x(40, "")}, "b." + x(40, ""), "." + x(40, "")},
        {"extension beyond the room", {"b." + x(40, ""), "." + x(40, "")}, "b." + x(40, ""), "_1." + x(40, "")},
    };
    for (const auto& each : cases) {
        const TempFolder folder;
        for (const std::string& name : each.taken)
            folder.write(name, "");
        EXPECT_EQ(mFiMod_GetUniqueFileName(each.name, FolderItem(folder.path())), each.unique) << each.reason;
    }
}

TEST(LinesByNumbers, EndAtANumberThatDoesNotRise) {
    const struct {
        std::vector<int> numbers;
        Texts lines;
    } cases[] = {{{1, 3, 4, 5}, {"one", "three", "", "five"}},
                 {{2, 2, 3}, {"two"}},
                 {{0, 3}, {}},
                 {{-1}, {}},
                 {{5, 6, 9}, {"five"}},
                 {{3, 1}, {}}};
    const TempFolder folder;
    const FolderItem file(folder.write("txt", "one\r\ntwo\rthree\n\nfive"));
    for (const auto& each : cases) {
        Texts lines = {"before"};
        mFiMod_GetTextFiLinesByLineNums(file, each.numbers, lines);
        EXPECT_EQ(lines.front(), "before");
        EXPECT_EQ(Texts(lines.begin() + 1, lines.end()), each.lines) << each.numbers.front();
    }
    EXPECT_EQ(mFiMod_GetLineCountFromTextFi(file), 5);
    for (const FolderItem& none : {FolderItem(folder.path()), FolderItem()})
        EXPECT_EQ(mFiMod_GetLineCountFromTextFi(none), 0);
}

TEST(LinesByNumbers, ReportWhatIsMissing) {
    const TempFolder folder;
    const test::CollectedMessages messages;
    Texts lines;
    for (const FolderItem& file : {FolderItem(), itemAt(folder, "gone"), FolderItem(folder.path())})
        mFiMod_GetTextFiLinesByLineNums(file, {1}, lines);
    mFiMod_GetTextFiLinesByLineNums(FolderItem(folder.write("txt", "one\n")), {}, lines);
    EXPECT_TRUE(lines.empty());
    EXPECT_EQ(messages.texts, (Texts{"mFiMod_GetTextFiLinesByLineNums_StringArray, TextFileFi is NilObject.",
                                     "mFiMod_GetTextFiLinesByLineNums_StringArray,TextFileFi does not exist.",
                                     "NilObjectException: mFiMod_GetTextFiLinesByLineNums: StrArray",
                                     "mFiMod_GetTextFiLinesByLineNums_String, LineNum does not exist."}));
}

TEST(OpenFiModule, MakesThePerUserFolderOnceWithTheUsersName) {
    const TempFolder home;
    const fs::path name = home.at("config/Selorin_SoftWare/LocalUserName");
    ::setenv("XDG_CONFIG_HOME", home.at("config").c_str(), 1);
    mFiMod_OpenThisModule();
    EXPECT_EQ(pFiMod_UserPrefContainer.path(), name.parent_path());
    EXPECT_GT(home.read(name).size(), 1u);
    EXPECT_EQ(home.read(name).find('\n'), home.read(name).size() - 1);
    home.write(name, "kept");
    mFiMod_OpenThisModule();
    EXPECT_EQ(home.read(name), "kept");
    ::setenv("XDG_CONFIG_HOME", "relative/paths/do/not/count", 1);
    ::setenv("HOME", home.path().c_str(), 1);
    mFiMod_OpenThisModule();
    EXPECT_EQ(pFiMod_UserPrefContainer.path(), home.at(".config/Selorin_SoftWare"));
}

TEST(OpenFiModule, WithoutAPreferencesFolderReportsItIfThereIsADesktop) {
    const TempFolder home;
    home.write(".config", "a file of that name");
    fs::create_directories(home.at("Desktop"));
    ::unsetenv("XDG_CONFIG_HOME");
    ::setenv("HOME", home.path().c_str(), 1);
    const test::CollectedMessages messages;
    mFiMod_OpenThisModule();
    EXPECT_EQ(messages.texts, Texts{"mFiMod_OpenThisModule::Application Dataフォルダが見つかりません。"});
    fs::create_directories(home.at("Application Data"));
    mFiMod_OpenThisModule();
    EXPECT_TRUE(fs::exists(home.at("Application Data/Selorin_SoftWare/LocalUserName")));
}

} // namespace
} // namespace velmarin
