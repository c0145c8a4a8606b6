#include "side/DictionaryService.h"

#include "DictdFixture.h"
#include "side/DictdIndex.h"

#include <algorithm>
#include <random>
#include <set>

#include <gtest/gtest.h>

#include <sys/stat.h>

namespace velmarin {
namespace {

using namespace std::string_literals;
using test::DictdFixture;
using test::TempFolder;

/// An ASCII dictionary: hyphens and capitals do not count.
DictdFixture webster() {
    DictdFixture made;
    made.entry("00-database-info", "Facts of this dictionary\n")
        .entry("00-database-short", "00-database-short\n     The Webster\n")
        .entry("A", "A\n   the letter\n")
        .entry("a priori", "A priori\n   beforehand\n\n")
        .entry("Amour", "Amour\n   love\n")
        .entry("amour", "Amour\n   affair\n")
        .entry("naive", "Naive\n   artless\n")
        .entry("self-love", "Self-love\n   amour propre\n");
    return made;
}

/// A UTF-8 dictionary: words in small letters, without signs.
DictdFixture latin() {
    DictdFixture made;
    made.entry("00databaseshort", "Latin - Français\n")
        .entry("00databaseutf8", "\n")
        .entry("amo", "amo\n   aimer")
        .entry("dun coup ", "d'un coup\n   subito")
        .entry("naïve", "naïve\n   simplex")
        .entry("été", "été\n   aestas")
        .entry("ねこ", "ねこ\n   feles");
    return made;
}

const struct {
    const char* name;
    const char* word;
    const char* answer;
} kAnswers[] = {
    {"One", "amo", "Latin - Français\n\namo\n   aimer"},
    {"None", "amor", ""},
    {"BehindAll", "zz", ""},
    {"Empty", "", ""},
    {"SignsAlone", "--", ""},
    {"AllEntriesOfAWord", "AMOUR", "The Webster\n\nAmour\n   love\n\nAmour\n   affair"},
    {"InSeveralDictionaries", "naïve", "Latin - Français\n\nnaïve\n   simplex\n\n\nThe Webster\n\nNaive\n   artless"},
    {"HyphenDoesNotCount", "selflove", "The Webster\n\nSelf-love\n   amour propre"},
    {"HyphenInTheQuestion", "self-love", "The Webster\n\nSelf-love\n   amour propre"},
    {"BlanksCountOnce", " a   priori ", "The Webster\n\nA priori\n   beforehand"},
    {"ShorterWordIsItself", "a", "The Webster\n\nA\n   the letter"},
    {"CapitalsBeyondAscii", "ÉTÉ", "Latin - Français\n\nété\n   aestas"},
    {"ApostropheAndABlankBehindTheWord", "d'un coup", "Latin - Français\n\nd'un coup\n   subito"},
    {"TypographicApostrophe", "d’un coup", "Latin - Français\n\nd'un coup\n   subito"},
    {"Kana", "ねこ", "Latin - Français\n\nねこ\n   feles"},
    {"DatabaseEntriesAreNotWords", "00-database-info", ""},
    {"InvalidUtf8", "\xFF\xC3", ""}};

TEST(ServiceAnswer, IsOfAllDictionariesThatKnowTheWord) {
    for (const auto& each : kAnswers) {
        SCOPED_TRACE(each.name);
        for (const std::size_t chunk : {0U, 7U, 64U, 60000U}) {
            const TempFolder folder;
            webster().writeTo(folder, "web", chunk);
            latin().writeTo(folder, "lat", chunk);
            const DictionaryService service(FolderItem(folder.path()));
            EXPECT_EQ(service.TextDefinition(each.word, 0, 100), each.answer) << "chunks of " << chunk;
        }
    }
}

TEST(ServiceAnswer, LetsEventsRunAfterEachDictionary) {
    const TempFolder folder;
    webster().writeTo(folder, "web");
    latin().writeTo(folder, "lat");
    int yields = 0;
    DictionaryService(FolderItem(folder.path())).TextDefinition("amo", 0, 3, [&] { ++yields; });
    EXPECT_EQ(yields, 2) << "also after one that does not know the word";
}

TEST(ServiceStretch, IsCountedInCharacters) {
    const TempFolder folder;
    latin().writeTo(folder, "lat");
    const DictionaryService service(FolderItem(folder.path()));
    EXPECT_EQ(service.TextDefinition("ねこ été amo", 3, 3), "Latin - Français\n\nété\n   aestas");
    EXPECT_EQ(service.TextDefinition("amo", 5, 3), "");
    EXPECT_EQ(service.TextDefinition("amo", 0, 0), "");
}

TEST(ServiceText, IsThatOfTheDictionary) {
    const std::string verse = "   A line that is as long as the longest line of the whole entry, so\n"
                              "   that its next word begins another\n\n\n"
                              "      O    o\t|\n"
                              "  |\\__/";
    const TempFolder folder;
    DictdFixture()
        .entry("amo", "\r\n\n" + verse + " \n\n")
        .entry("amor", "a\r\nb\r\n")
        .entry("caf\xE9", "caf\xE9 bar")
        .writeTo(folder, "d");
    const DictionaryService service(FolderItem(folder.path()));
    EXPECT_EQ(service.TextDefinition("amo", 0, 3), "d\n\n" + verse);
    EXPECT_EQ(service.TextDefinition("amor", 0, 4), "d\n\na\r\nb");
    EXPECT_EQ(service.TextDefinition("CAFÉ", 0, 4), "d\n\ncafé bar") << "an old one is in ISO 8859-1";
}

void cut(const TempFolder& folder, const char* file, std::size_t length) {
    folder.write(file, folder.read(file).substr(0, length));
}

const struct {
    const char* name;
    void (*damage)(const TempFolder&);
} kDamages[] = {
    {"NoText", [](const TempFolder& f) { std::filesystem::remove(f.path() / "bad.dict.dz"); }},
    {"CutInTheHeader", [](const TempFolder& f) { cut(f, "bad.dict.dz", 15); }},
    {"CutInTheChunks", [](const TempFolder& f) { cut(f, "bad.dict.dz", 100); }},
    {"GzipWithoutATable", [](const TempFolder& f) { f.write("bad.dict.dz", "\x1F\x8B\x08\0\0\0\0\0\0\3xyz"s); }},
    {"ChunksOfNoLength",
     [](const TempFolder& f) {
         std::string file = f.read("bad.dict.dz");
         file[file.find("RA") + 6] = 0;
         f.write("bad.dict.dz", file);
     }},
    {"NoiseForChunks",
     [](const TempFolder& f) {
         std::string file = f.read("bad.dict.dz");
         std::fill(file.end() - 60, file.end(), '\xFF');
         f.write("bad.dict.dz", file);
     }},
    {"PlaceBehindTheText", [](const TempFolder& f) { f.write("bad.index", "amo\t////////\tB\n"); }},
    {"HugeEntry", [](const TempFolder& f) { f.write("bad.index", "amo\tA\t////////\n"); }},
    {"NumbersThatAreNone", [](const TempFolder& f) { f.write("bad.index", "amo\t*\t-1\n"); }},
    {"IndexOfOneEndlessLine", [](const TempFolder& f) { f.write("bad.index", std::string(3'000'000, 'a')); }},
    {"FifoForTheIndex",
     [](const TempFolder& f) {
         std::filesystem::remove(f.path() / "bad.index");
         ::mkfifo((f.path() / "bad.index").c_str(), 0600);
     }},
    {"FolderForTheText", [](const TempFolder& f) {
         std::filesystem::remove(f.path() / "bad.dict.dz");
         std::filesystem::create_directory(f.path() / "bad.dict.dz");
     }}};

TEST(DamagedDictionary, DoesNotKeepTheOthersFromAnswering) {
    for (const auto& each : kDamages) {
        SCOPED_TRACE(each.name);
        const TempFolder folder;
        latin().writeTo(folder, "lat", 50);
        DictdFixture().entry("amo", std::string(500, 'x')).writeTo(folder, "bad", 50);
        each.damage(folder);
        const DictionaryService service(FolderItem(folder.path()));
        EXPECT_EQ(service.TextDefinition("amo", 0, 3), "Latin - Français\n\namo\n   aimer");
    }
}

TEST(IndexOrder, BisectionFindsWhatALinearSearchFinds) {
    for (const std::string flag :
         {"00-database-info", "00databaseutf8", "00-database-allchars", "00-database-case-sensitive"}) {
        SCOPED_TRACE(flag);
        const TempFolder folder;
        std::mt19937 random(17);
        std::vector<std::string> words{flag};
        for (int i = 0; i < 1500; ++i) {
            words.emplace_back();
            for (unsigned length = 1 + random() % 4; length > 0; --length)
                words.back() += std::vector<std::string>{"a", "B", "b", "-", "c", "é", "7", " z"}[random() % 8];
        }
        // An index with only the flag gives the keys to sort by.
        const auto order = DictdIndex::open(FolderItem(folder.write("f.index", flag + "\tA\tA\n")));
        std::stable_sort(words.begin(), words.end(),
                         [&](const std::string& a, const std::string& b) { return order->key(a) < order->key(b); });
        DictdFixture made;
        for (const std::string& word : words)
            made.entry(word, "text of " + word);
        const auto index = DictdIndex::open(FolderItem(folder.write("i.index", made.index())));
        EXPECT_EQ(index->utf8(), flag.find("utf8") != std::string::npos);
        for (int round = 0; round < 200; ++round) {
            const std::string key = index->key(words[random() % words.size()]);
            if (key.empty() || key.starts_with(' '))
                continue; // callers trim the word
            std::set<std::string> found;
            for (const DictdPlace& place : index->find(key))
                found.insert(made.text().substr(place.offset, place.size));
            for (const std::string& word : words)
                EXPECT_TRUE(word == flag || index->key(word) != key || found.contains("text of " + word)) << word;
        }
    }
}

} // namespace
} // namespace velmarin
