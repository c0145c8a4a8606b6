#include "store/DictionaryItem.h"
#include "files/LineReader.h"
#include "store/DictionaryMembers.h"
#include "support/DictionaryBuilder.h"
#include "support/RandomText.h"
#include "support/TempFolder.h"
#include "text/NilObjectException.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace velmarin {
namespace {

namespace fs = std::filesystem;
using test::DictionaryBuilder;
using test::TempFolder;
using Words = std::vector<std::string>;

DictionaryBuilder dictionary() {
    return DictionaryBuilder("Dic");
}
DictionaryBuilder one() {
    return dictionary().entries({"Straße"});
}
DictionaryBuilder with(const std::string& member, const std::string& bytes) {
    return one().without(member).member(member, bytes);
}

/// What was read, such as "loaded Spanish IJUV independent 000: THE WORDS".
std::string shown(const DictionaryItem& item) {
    std::string text = item.loaded ? "loaded" : "failed";
    text += item.order.SpanishMode ? " Spanish" : "";
    text += item.order.IJUVMode ? " IJUV" : "";
    text += item.Independent ? " independent" : "";
    text += item.order.FormatFom.empty() ? ":" : " " + item.order.FormatFom + ":";
    for (std::size_t i = 0; i < item.IND.size(); ++i)
        text += " " + std::string(item.IND[i]);
    return text;
}

TEST(MakeDictionaryItem, FillsTheItemAndLeavesItsImageMode) {
    const std::pair<DictionaryBuilder, std::string> cases[] = {
        {one().without("mPimg"), "loaded: STRASSE"},
        {dictionary(), "loaded:"},
        {with("ind", "\nabc__DLM__def__DLM__ghi\n__DLM__x\nplain\n"), "loaded:  ABC  PLAIN"},
        {with("ind", "\xEF\xBB\xBF"
                     "a\rb\r\nc\nd"),
         "loaded: A B C D"},
        {with("ind", "caf\xE9\nz\n"), "loaded: CAF\xE9 Z"},
        {dictionary().entries({"mucho"}).spanish(), "loaded Spanish: MUC\xC6\xA9O"},
        {dictionary().entries({"Julius"}).ijuv(), "loaded IJUV: IULIUS"},
        {dictionary().entries({"chivo"}).spanish().ijuv(), "loaded Spanish IJUV: C\xC6\xA9IVO"},
        {with("Spanish/inside", ""), "loaded Spanish: STRASSE"},
        {with("Format", "000\ntrue"), "loaded independent 000: STRASSE"},
        {with("Format", "\r\nTRUE"), "loaded independent: STRASSE"},
        {with("Format", "0\ntrue \n"), "loaded 0: STRASSE"},
        {with("format", "00"), "loaded 00: STRASSE"},
        {with("Format", "0\nfalse\n" + std::string(1'000'000, 'x')), "loaded 0: STRASSE"},
        {one().without("ind").ijuv(), "failed IJUV:"},
        {one().without("txt").format("0"), "failed 0:"},
        {one().without("mImg"), "failed:"},
    };
    for (const auto& [builder, expected] : cases) {
        const TempFolder folder;
        DictionaryItem item;
        item.ImageMode = 77;
        EXPECT_EQ(MakeDictionaryItem(FolderItem(builder.writeTo(folder.path())), item, 4), item.loaded);
        EXPECT_EQ(shown(item), expected);
        EXPECT_EQ(item.name + std::to_string(item.TabNum) + std::to_string(item.ImageMode), "Dic477");
    }
}

TEST(MakeDictionaryItem, NamesWhatExistsAndCannotBeOpened) {
    const TempFolder folder;
    with("Format/inside", "").writeTo(folder.at("Format"));
    with("ind/inside", "").without("ind").writeTo(folder.at("ind"));
    one().without("ind").writeTo(folder.at("fifo"));
    folder.fifo("fifo/Dic/ind");
    one().without("ind").writeTo(folder.at("bad"));
    folder.unreadable("bad/Dic/ind");
    one().writeTo(folder.at("bad Format"));
    folder.unreadable("bad Format/Dic/Format");
    for (const char* file :
         {"Format/Dic/Format", "ind/Dic/ind", "fifo/Dic/ind", "bad/Dic/ind", "bad Format/Dic/Format"}) {
        DictionaryItem item;
        try {
            MakeDictionaryItem(FolderItem(folder.at(file).parent_path()), item, 0);
            ADD_FAILURE() << file;
        } catch (const NilObjectException& exception) {
            EXPECT_NE(std::string(exception.what()).find(folder.at(file)), std::string::npos) << exception.what();
            EXPECT_FALSE(item.loaded);
        }
    }
    DictionaryItem item;
    EXPECT_THROW(MakeDictionaryItem(FolderItem(), item, 0), NilObjectException);
    EXPECT_FALSE(MakeDictionaryItem(FolderItem(folder.at("gone")), item, 0));
}

TEST(DicOrNot, TakesAFolderWithOneOfTheMembers) {
    const TempFolder folder;
    const auto isDictionary = [&](const std::string& name) { return mSub_DicOrNot(FolderItem(folder.at(name))); };
    for (const std::string member : {"FW", "BW", "ind", "KW", "KWTB", "FORMAT", "mImg", "mPimg", "mHtm", "mMov", "mSnd",
                                     "txt", "Spanish", "IJUV", "FW.txt"})
        folder.write("in-" + member + "/" + member, "");
    for (const std::string member :
         {"FW", "BW", "ind", "KW", "KWTB", "FORMAT", "mImg", "mPimg", "mHtm", "mMov", "mSnd"})
        EXPECT_TRUE(isDictionary("in-" + member)) << member;
    folder.link("link", "in-FW");
    folder.link("faulty/FW", "nowhere");
    for (const char* name : {"in-txt", "in-Spanish", "in-IJUV", "in-FW.txt", "link", "in-FW/FW", "gone", "faulty"})
        EXPECT_FALSE(isDictionary(name)) << name;
    EXPECT_THROW(mSub_DicOrNot(FolderItem()), NilObjectException);
}

TEST(IndexWords, AreThoseOfEachLineInEveryOrder) {
    RandomText random({"ch",      "cH",     "ll", "Ll",     "l",      "C",        "jv",   "JV",
                       "__DLM__", "__DLM_", "_",  "\r",     "\n",     "\r\n",     "\n",   "カ",
                       "ß",       "É",      "ｊ", "\u0283", "\u0250", "\xE3\x82", "word", "\xEF\xBB\xBF"},
                      7);
    for (int round = 0; round < 400; ++round) {
        std::string ind;
        // Most are short; a few are longer than what is read at a time.
        for (std::size_t lines = round % 40 == 0 ? 8000 : random.below(8); lines > 0; --lines)
            ind += random(12);
        const IndexOrder order{.SpanishMode = round % 2 == 0, .IJUVMode = round % 3 == 0, .FormatFom = {}};
        std::string text;
        std::vector<std::uint32_t> ends;
        for (LineReader lines(ind); !lines.EOF_();)
            ends.push_back(static_cast<std::uint32_t>((text += indexSearchWord(lines.ReadLine(), order)).size()));
        const IndexWords words = readIndexWords(ind, order);
        ASSERT_EQ(words.text, text) << "round " << round;
        ASSERT_EQ(words.ends, ends) << "round " << round;
    }
}

/// The definition: from the front, the first entry that sorts after the word.
std::size_t plainLoop(const Words& words, const std::string& word) {
    const auto greater = [&](const std::string& each) { return word < each; };
    return static_cast<std::size_t>(std::find_if(words.begin(), words.end(), greater) - words.begin());
}

std::string randomWord(std::mt19937& random) {
    const Words letters = {"A", "B", "\xC6\xA9", "\xE3\x81\x82", "\xF0\x90\x80\x80", "\xFF", std::string(1, '\0')};
    std::string word;
    for (std::size_t length = random() % 4; length > 0; --length)
        word += letters[random() % letters.size()];
    return word;
}

TEST(HeadwordIndex, FindsTheFirstGreaterEntryOfAnyListAsThePlainLoopDoes) {
    std::mt19937 random(5);
    for (int round = 0; round < 2000; ++round) {
        Words words(random() % 40);
        std::generate(words.begin(), words.end(), [&] { return randomWord(random); });
        if (round % 3 == 0)
            std::sort(words.begin(), words.end());
        HeadwordIndex index;
        for (const std::string& word : words)
            EXPECT_TRUE(index.append(word));
        index.finish();
        IndexWords whole;
        for (const std::string& word : words)
            whole.ends.push_back(static_cast<std::uint32_t>((whole.text += word).size()));
        const HeadwordIndex ofWhole(std::move(whole));
        ASSERT_EQ(index.size(), words.size());
        for (std::size_t i = 0; i < words.size(); ++i)
            ASSERT_EQ(index[i], words[i]);
        for (int question = 0; question < 20; ++question) {
            const std::string word = randomWord(random);
            ASSERT_EQ(index.firstGreater(word), plainLoop(words, word)) << "round " << round;
            ASSERT_EQ(ofWhole.firstGreater(word), plainLoop(words, word)) << "round " << round;
        }
    }
}

} // namespace
} // namespace velmarin
