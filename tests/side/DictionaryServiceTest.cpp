// g++ 12 with the sanitizers takes a string of a computed length for one of any length.
#pragma GCC diagnostic ignored "-Wstringop-overflow"

#include "side/DictionaryService.h"

#include "side/DictdIndex.h"

#include "support/TempFolder.h"

#include <algorithm>
#include <filesystem>
#include <random>
#include <set>

#include <gtest/gtest.h>
#include <zlib.h>

namespace velmarin {
namespace {

namespace fs = std::filesystem;
using namespace std::string_literals;
using test::TempFolder;

std::string littleEndian(std::size_t value) {
    return {static_cast<char>(value & 0xFF), static_cast<char>(value >> 8 & 0xFF)};
}

/// A number as an index in the dictd format has it.
std::string dictdNumber(std::size_t value) {
    constexpr std::string_view kDigits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    return {kDigits[value >> 18 & 63], kDigits[value >> 12 & 63], kDigits[value >> 6 & 63], kDigits[value & 63]};
}

/// A gzip file that can be read chunk by chunk. Another program's subfield precedes the table.
std::string dictzip(std::string text, std::size_t chunkLength, bool withName) {
    std::string sizes, body;
    z_stream stream{};
    deflateInit2(&stream, Z_BEST_COMPRESSION, Z_DEFLATED, -MAX_WBITS, 8, Z_DEFAULT_STRATEGY);
    for (std::size_t at = 0; at < text.size(); at += chunkLength) {
        std::string piece(deflateBound(&stream, chunkLength) + 16, '\0');
        stream.next_in = reinterpret_cast<Bytef*>(text.data()) + at;
        stream.avail_in = static_cast<uInt>(std::min(chunkLength, text.size() - at));
        stream.next_out = reinterpret_cast<Bytef*>(piece.data());
        stream.avail_out = static_cast<uInt>(piece.size());
        deflate(&stream, at + chunkLength < text.size() ? Z_FULL_FLUSH : Z_FINISH);
        piece.resize(piece.size() - stream.avail_out);
        body += piece;
        sizes += littleEndian(piece.size());
    }
    deflateEnd(&stream);
    const std::string table = littleEndian(1) + littleEndian(chunkLength) + littleEndian(sizes.size() / 2) + sizes;
    const std::string extra = "ZZ" + littleEndian(3) + "abcRA" + littleEndian(table.size()) + table;
    return "\x1F\x8B\x08"s + (withName ? "\x0C" : "\x04") + "\0\0\0\0\x02\x03"s + littleEndian(extra.size()) + extra +
           (withName ? "name\0"s : "") + body + std::string(8, '\0');
}

/// A dictionary in the dictd format: entries in the order of its index, written as one pair of files.
struct DictdFixture {
    std::string index, text;

    DictdFixture& entry(const std::string& word, const std::string& meaning) {
        index += word + "\t" + dictdNumber(text.size()) + "\t" + dictdNumber(meaning.size()) + "\n";
        text += meaning;
        return *this;
    }
    /// "name.dict" for chunks of length 0, else "name.dict.dz". Chunks of under 50 bytes make a header without the
    /// name.
    void writeTo(const TempFolder& folder, const std::string& name, std::size_t chunkLength) const {
        folder.write(name + ".index", index);
        folder.write(name + (chunkLength == 0 ? ".dict" : ".dict.dz"),
                     chunkLength == 0 ? text : dictzip(text, chunkLength, chunkLength >= 50));
    }
};

constexpr const char* kVerse = "   A line,\n   another\n\n\n      O    o\t|\n  |\\__/";

/// Without a flag, in ASCII or ISO 8859-1: hyphens and capitals do not count.
DictdFixture webster() {
    return DictdFixture()
        .entry("00-database-info", "Facts of this dictionary\n")
        .entry("00-database-short", "00-database-short\n     The Webster\n")
        .entry("A", "A\n   the letter\n")
        .entry("a priori", "A priori\r\n   beforehand\r\n")
        .entry("Amour", "Amour\n   love\n")
        .entry("amour", "Amour\n   affair\n")
        .entry("naive", "Naive\n   artless\n")
        .entry("poem", "\r\n\n"s + kVerse + " \n\n")
        .entry("self-love", "Self-love\n   amour propre\n")
        .entry("the\xE9", "the\xE9 vert");
}

/// A UTF-8 dictionary: words in small letters, without signs.
DictdFixture latin() {
    return DictdFixture()
        .entry("00databaseshort", "Latin - Français\n")
        .entry("00databaseutf8", "\n")
        .entry("amo", "amo\n   aimer")
        .entry("dun coup ", "d'un coup\n   subito")
        .entry("malus", "malus\n   b\xF6se")
        .entry("naïve", "naïve\n   simplex")
        .entry("été", "été\n   aestas")
        .entry("ねこ", "ねこ\n   feles");
}

TEST(ServiceAnswer, IsOfAllDictionariesThatKnowTheWord) {
    const struct {
        const char* word;
        std::string answer;
        int start = 0, length = 100;
    } cases[] = {{"zz", ""},
                 {"", ""},
                 {"--", ""},
                 {"AMOUR", "The Webster\n\nAmour\n   love\n\nAmour\n   affair"},
                 {"naïve", "Latin - Français\n\nnaïve\n   simplex\n\n\nThe Webster\n\nNaive\n   artless"},
                 {"selflove", "The Webster\n\nSelf-love\n   amour propre"},
                 {"self-love", "The Webster\n\nSelf-love\n   amour propre"},
                 {" a   priori ", "The Webster\n\nA priori\r\n   beforehand"},
                 {"a", "The Webster\n\nA\n   the letter"},
                 {"ÉTÉ", "Latin - Français\n\nété\n   aestas"},
                 {"d'un coup", "Latin - Français\n\nd'un coup\n   subito"},
                 {"d’un coup", "Latin - Français\n\nd'un coup\n   subito"},
                 {"ねこ", "Latin - Français\n\nねこ\n   feles"},
                 {"00-database-info", ""},
                 {"\xFF\xC3", ""},
                 {"poem", "The Webster\n\n"s + kVerse},
                 {"THEÉ", "The Webster\n\ntheé vert"},
                 {"malus", "Latin - Français\n\nmalus\n   b\uFFFDse"},
                 {"ねこ été amo", "Latin - Français\n\nété\n   aestas", 3, 3},
                 {"amo", "", 5, 3},
                 {"amo", "", 0, 0}};
    for (const std::size_t chunk : {0U, 7U, 64U, 60000U}) {
        const TempFolder folder;
        webster().writeTo(folder, "web", chunk);
        latin().writeTo(folder, "lat", chunk);
        const DictionaryService service(FolderItem(folder.path()));
        for (const auto& each : cases) {
            int yields = 0;
            EXPECT_EQ(service.TextDefinition(each.word, each.start, each.length, [&] { ++yields; }), each.answer)
                << each.word << " in chunks of " << chunk;
            EXPECT_TRUE(yields == 2 || each.answer.empty()) << each.word;
        }
    }
}

const char* const kTexts = "bad.dict.dz";

void replaceAt(const TempFolder& folder, std::size_t position, const std::string& bytes) {
    const std::string file = folder.read(kTexts);
    folder.write(kTexts, file.substr(0, position) + bytes + file.substr(position + bytes.size()));
}

TEST(DamagedDictionary, DoesNotKeepTheOthersFromAnswering) {
    const struct {
        const char* name;
        void (*damage)(const TempFolder&);
    } cases[] = {
        {"NoText", [](const TempFolder& f) { fs::remove(f.at(kTexts)); }},
        {"CutInTheHeader", [](const TempFolder& f) { fs::resize_file(f.at(kTexts), 15); }},
        {"CutInTheChunks", [](const TempFolder& f) { fs::resize_file(f.at(kTexts), 100); }},
        {"GzipWithoutATable", [](const TempFolder& f) { f.write(kTexts, "\x1F\x8B\x08\0\0\0\0\0\0\3xyz"s); }},
        {"ChunksOfNoLength", [](const TempFolder& f) { replaceAt(f, f.read(kTexts).find("RA") + 6, "\0"s); }},
        {"NoiseForChunks",
         [](const TempFolder& f) { replaceAt(f, f.read(kTexts).size() - 60, std::string(60, '\xFF')); }},
        {"PlaceBeyondTheText", [](const TempFolder& f) { f.write("bad.index", "amo\t////////\tB\n"); }},
        {"HugeEntry", [](const TempFolder& f) { f.write("bad.index", "amo\tA\t////////\n"); }},
        {"NumbersThatAreNone", [](const TempFolder& f) { f.write("bad.index", "amo\t*\t-1\n"); }},
        {"IndexOfOneEndlessLine", [](const TempFolder& f) { f.write("bad.index", std::string(3'000'000, 'a')); }},
        {"FifoForTheIndex", [](const TempFolder& f) { fs::remove(f.at("bad.index")), f.fifo("bad.index"); }},
        {"FolderForTheText",
         [](const TempFolder& f) { fs::remove(f.at(kTexts)), fs::create_directory(f.at(kTexts)); }}};
    for (const auto& each : cases) {
        SCOPED_TRACE(each.name);
        const TempFolder folder;
        latin().writeTo(folder, "lat", 50);
        DictdFixture().entry("amo", std::string(500, 'x')).writeTo(folder, "bad", 50);
        each.damage(folder);
        const DictionaryService service(FolderItem(folder.path()));
        EXPECT_EQ(service.TextDefinition("amo", 0, 3), "Latin - Français\n\namo\n   aimer");
    }
    const TempFolder folder;
    latin().writeTo(folder, "lat", 50);
    fs::remove(folder.at("lat.dict.dz"));
    folder.unreadable("lat.dict.dz");
    EXPECT_NE(DictionaryService(FolderItem(folder.path())).TextDefinition("amo", 0, 3).find("could not be read"),
              std::string::npos);
}

TEST(IndexOrder, BisectionFindsWhatALinearSearchFinds) {
    const std::vector<std::string> parts{"a", "B", "b", "-", "c", "é", "7", " z"};
    for (const std::string flag :
         {"00-database-info", "00databaseutf8", "00-database-allchars", "00-database-case-sensitive"}) {
        SCOPED_TRACE(flag);
        const TempFolder folder;
        std::mt19937 random(17);
        std::vector<std::string> words(1500);
        for (std::string& word : words)
            for (auto left = 1 + random() % 4; left > 0; --left)
                word += parts[random() % parts.size()];
        words.push_back(flag);
        // An index with only the flag gives the keys to sort by.
        const auto order = DictdIndex::open(FolderItem(folder.write("f.index", flag + "\tA\tA\n")));
        std::stable_sort(words.begin(), words.end(),
                         [&](const std::string& a, const std::string& b) { return order->key(a) < order->key(b); });
        DictdFixture made;
        for (const std::string& word : words)
            made.entry(word, word);
        const auto index = DictdIndex::open(FolderItem(folder.write("i.index", made.index)));
        EXPECT_EQ(index->utf8(), flag.find("utf8") != std::string::npos);
        for (std::size_t at = 0; at < words.size(); at += 7) {
            const std::string key = index->key(words[at]);
            if (key.empty() || key.starts_with(' '))
                continue; // callers trim the word
            std::set<std::string> found;
            for (const DictdPlace& place : index->find(key))
                found.insert(made.text.substr(place.offset, place.size));
            for (const std::string& word : words)
                EXPECT_TRUE(word == flag || index->key(word) != key || found.contains(word)) << word;
        }
    }
}

} // namespace
} // namespace velmarin
