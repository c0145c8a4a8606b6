// What the text rules cost: medians of several rounds, one line each.

#include "text/FindReplace.h"
#include "text/Grep.h"
#include "text/LetterCase.h"
#include "text/SearchWord.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <functional>
#include <random>
#include <string>
#include <vector>

namespace {

using namespace velmarin;

std::size_t sink = 0;

void measure(const char* what, std::size_t operations, const std::function<void()>& round) {
    constexpr int rounds = 9;
    std::vector<double> seconds;
    for (int i = 0; i < rounds; ++i) {
        const auto start = std::chrono::steady_clock::now();
        round();
        seconds.push_back(std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
    }
    std::nth_element(seconds.begin(), seconds.begin() + rounds / 2, seconds.end());
    const double median = seconds[rounds / 2];
    std::printf("%-52s %10.3f ms %10.1f ns each\n", what, median * 1e3, median * 1e9 / double(operations));
}

std::vector<std::string> words(std::size_t count, const std::vector<std::string>& letters) {
    std::mt19937 engine(1);
    std::uniform_int_distribution<std::size_t> length(8, 16), letter(0, letters.size() - 1);
    std::vector<std::string> result(count);
    for (std::string& word : result)
        for (std::size_t left = length(engine); left > 0; --left)
            word += letters[letter(engine)];
    return result;
}

void measureWords(const std::string& kind, const std::vector<std::string>& list) {
    const auto all = [&](const auto& operation) {
        return [&list, operation] {
            for (const std::string& word : list)
                sink += operation(word);
        };
    };
    const std::size_t n = list.size();
    measure((kind + ": search word").c_str(), n, all([](const auto& w) { return mSub_MakeSearchWord(w).size(); }));
    IndexOrder order;
    measure((kind + ": index line").c_str(), n, all([&](const auto& w) { return indexSearchWord(w, order).size(); }));
    order.IJUVMode = true;
    measure((kind + ": index line, IJUV").c_str(), n,
            all([&](const auto& w) { return indexSearchWord(w, order).size(); }));
    order.SpanishMode = true;
    measure((kind + ": index line, Spanish").c_str(), n,
            all([&](const auto& w) { return indexSearchWord(w, order).size(); }));
    std::string arena;
    measure((kind + ": search words into one buffer").c_str(), n, [&] {
        arena.clear();
        for (const std::string& word : list)
            appendSearchWord(arena, word);
        sink += arena.size();
    });
    measure((kind + ": comparison with the next").c_str(), n - 1, [&] {
        for (std::size_t i = 1; i < list.size(); ++i)
            sink += compareStrings(list[i - 1], list[i]) < 0;
    });
}

void measureTexts() {
    std::string text;
    while (text.size() < 5'000'000)
        text += "A line of a dictionary's text, with a word or two in it.\n";
    measure("last word of 5 MB, case ignored", 1, [&] { sink += InStr(0, text + "palimpsest", "PALIMPSEST"); });
    measure("last word of 5 MB, beyond ASCII", 1, [&] { sink += InStr(0, text + "écrire", "ÉCRIRE"); });

    constexpr int calls = 1000;
    const auto search = [&](const char* what, const std::string& line) {
        measure(what, calls, [&] {
            for (int i = 0; i < calls; ++i)
                sink += static_cast<std::size_t>(mStrMod_GrepMBS_Search(0, line, kPageMarkerPattern));
        });
    };
    search("page marker of a short line", "palimpsest <@_page 0123.tif_>");
    search("missing page marker of a short line", "palimpsest, palimpsestic, palimpsestical");
    search("missing page marker of 10 kB", text.substr(0, 10'000));
    measure("missing page marker of 5 MB", 1,
            [&] { sink += static_cast<std::size_t>(mStrMod_GrepMBS_Search(0, text, kPageMarkerPattern)); });
    std::string opened;
    while (opened.size() < 1'000'000)
        opened += "<@_";
    opened += '>';
    measure("a megabyte of markers that never close", 1,
            [&] { sink += static_cast<std::size_t>(mStrMod_GrepMBS_Search(0, opened, kPageMarkerPattern)); });
    measure("number format", calls, [] {
        for (int i = 0; i < calls; ++i)
            sink += mSub_Format("12-3", "000-00").size();
    });
}

} // namespace

int main() {
    std::vector<std::string> ascii;
    for (char c = 'a'; c <= 'z'; ++c)
        ascii.emplace_back(1, c);
    constexpr std::size_t million = 1'000'000;
    measureWords("1 M ASCII words", words(million, ascii));
    std::vector<std::string> accented = ascii;
    for (const char* letter : {"é", "à", "ü", "ß", "ñ"})
        accented.emplace_back(letter);
    measureWords("1 M accented words", words(million, accented));
    measureWords("1 M kana words", words(million, {"ア", "カ", "サ", "タ", "な", "ハ", "ー", "セ"}));
    measureTexts();
    return sink == 0;
}
