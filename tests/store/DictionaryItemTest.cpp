#include "store/DictionaryItem.h"
#include "store/DictionaryMembers.h"
#include "support/DictionaryBuilder.h"
#include "support/TempFolder.h"
#include "text/NilObjectException.h"

#include <gtest/gtest.h>

#include <sys/stat.h>

namespace velmarin {
namespace {

namespace fs = std::filesystem;
using test::DictionaryBuilder;
using test::TempFolder;
using Words = std::vector<std::string>;

Words wordsOf(const DictionaryItem& item) {
    Words words;
    for (std::size_t i = 0; i < item.IND.size(); ++i)
        words.emplace_back(item.IND[i]);
    return words;
}

DictionaryBuilder dictionary() {
    return DictionaryBuilder("Dic");
}
DictionaryBuilder two() {
    return dictionary().entries({"abc", "Straße"});
}
const Words kTwo = {"ABC", "STRASSE"};

TEST(MakeDictionaryItem, FillsTheItemAndLeavesItsImageMode) {
    const struct {
        const char* reason;
        DictionaryBuilder dictionary;
        Words words;
        bool loads = true;
        bool spanish = false;
        bool ijuv = false;
        std::string format = {};
        bool independent = false;
    } cases[] = {
        {"TheLeastThatLoads", two().without("mPimg"), kTwo},
        {"EmptyIndex", dictionary(), {}},
        {"KeyEndsAtTheFirstDelimiter",
         dictionary().member("ind", "abc__DLM__def__DLM__ghi\n__DLM__x\nplain"),
         {"ABC", "", "PLAIN"}},
        {"EmptyLinesKeepTheirPlace", dictionary().member("ind", "\na\n\nb\n"), {"", "A", "", "B"}},
        {"AllLineEnds", dictionary().member("ind", "a\rb\r\nc\nd"), {"A", "B", "C", "D"}},
        {"ByteOrderMark", dictionary().member("ind", "\xEF\xBB\xBFz\n"), {"Z"}},
        {"NotUtf8", dictionary().member("ind", "caf\xE9\nz\n"), {"CAF\xE9", "Z"}},
        {"Spanish", dictionary().entries({"mucho"}).spanish(), {"MUC\xC6\xA9O"}, true, true},
        {"Ijuv", dictionary().entries({"Julius"}).ijuv(), {"IULIUS"}, true, false, true},
        {"SpanishWinsOverIjuv", dictionary().entries({"chivo"}).spanish().ijuv(), {"C\xC6\xA9IVO"}, true, true, true},
        {"MarkerThatIsAFolder", two().member("Spanish/inside", ""), kTwo, true, true},
        {"Format", two().format("000"), kTwo, true, false, false, "000"},
        {"FormatAndIndependent", two().format("000", true), kTwo, true, false, false, "000", true},
        {"IndependentInAnyCase", two().member("Format", "\r\nTRUE"), kTwo, true, false, false, "", true},
        {"OtherSecondLine", two().member("Format", "0\ntrue \n"), kTwo, true, false, false, "0"},
        {"EmptyFormat", two().member("Format", ""), kTwo},
        {"FormatInSmallLetters", two().member("format", "00"), kTwo, true, false, false, "00"},
        {"HugeFormat", two().member("Format", "0\nfalse\n" + std::string(1'000'000, 'x')), kTwo, true, false, false,
         "0"},
        {"WithoutInd", two().without("ind").ijuv(), {}, false, false, true},
        {"WithoutTxt", two().without("txt").format("0"), {}, false, false, false, "0"},
        {"WithoutImages", two().without("mImg"), {}, false},
        {"MarkAlone", two().without("ind").without("txt").without("mImg"), {}, false}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.reason);
        const TempFolder folder;
        const FolderItem own(c.dictionary.writeTo(folder.path()));
        DictionaryItem item;
        item.ImageMode = 77;
        EXPECT_EQ(MakeDictionaryItem(own, item, 4), c.loads);
        EXPECT_EQ(item.loaded, c.loads);
        EXPECT_EQ(wordsOf(item), c.words);
        EXPECT_EQ(item.order.SpanishMode, c.spanish);
        EXPECT_EQ(item.order.IJUVMode, c.ijuv);
        EXPECT_EQ(item.order.FormatFom, c.format);
        EXPECT_EQ(item.Independent, c.independent);
        EXPECT_EQ(item.name, "Dic");
        EXPECT_EQ(item.TabNum, 4);
        EXPECT_EQ(item.ImageMode, 77);
        EXPECT_TRUE(item.ImageNameArray.empty());
    }
}

TEST(MakeDictionaryItem, WhatExistsAndCannotBeOpenedIsNamed) {
    const TempFolder folder;
    const auto raisesWith = [&](const fs::path& own, const std::string& member) {
        DictionaryItem item;
        try {
            MakeDictionaryItem(FolderItem(own), item, 0);
            return false;
        } catch (const NilObjectException& exception) {
            return std::string(exception.what()).find((own / member).string()) != std::string::npos && !item.loaded;
        }
    };
    EXPECT_TRUE(raisesWith(two().member("Format/inside", "").writeTo(folder.path() / "a"), "Format"));
    EXPECT_TRUE(raisesWith(two().without("ind").member("ind/inside", "").writeTo(folder.path() / "b"), "ind"));
    const fs::path withFifo = two().without("ind").writeTo(folder.path() / "c");
    ASSERT_EQ(::mkfifo((withFifo / "ind").c_str(), 0600), 0);
    EXPECT_TRUE(raisesWith(withFifo, "ind"));
    DictionaryItem item;
    EXPECT_THROW(MakeDictionaryItem(FolderItem(), item, 0), NilObjectException);
    EXPECT_FALSE(MakeDictionaryItem(FolderItem(folder.path() / "gone"), item, 0));
}

TEST(DicOrNot, AnyOneMemberMakesADictionary) {
    const TempFolder folder;
    for (const char* member : {"FW", "BW", "ind", "KW", "KWTB", "format", "Format", "FORMAT", "mImg", "mPimg", "mHtm",
                               "mMov", "mSnd", "fw"}) {
        folder.write(std::string("in-") + member + "/" + member, "");
        EXPECT_TRUE(mSub_DicOrNot(FolderItem(folder.path() / (std::string("in-") + member)))) << member;
    }
    for (const char* member : {"txt", "Spanish", "IJUV", "FW.txt"}) {
        folder.write(std::string("not-") + member + "/" + member, "");
        EXPECT_FALSE(mSub_DicOrNot(FolderItem(folder.path() / (std::string("not-") + member)))) << member;
    }
}

TEST(DicOrNot, RefusesLinksFilesAndWhatIsNotThere) {
    const TempFolder folder;
    folder.write("dic/FW", "");
    fs::create_directory_symlink("dic", folder.path() / "link");
    fs::create_directories(folder.path() / "faulty");
    fs::create_symlink("nowhere", folder.path() / "faulty/FW");
    for (const char* name : {"link", "dic/FW", "gone", "faulty"})
        EXPECT_FALSE(mSub_DicOrNot(FolderItem(folder.path() / name))) << name;
    EXPECT_THROW(mSub_DicOrNot(FolderItem()), NilObjectException);
}

} // namespace
} // namespace velmarin
