// Loading an index, beside the plainest loop that could do it: one pass, one table look-up a character, one buffer. The
// loop knows neither "__DLM__" nor CR ends, checks no order and trusts its input to be UTF-8.

#include "MadeDictionaries.h"
#include "files/FolderItem.h"
#include "store/DictionaryItem.h"
#include "text/SearchWord.h"
#include "text/Utf8.h"

#include <benchmark/benchmark.h>

#include <cstdint>
#include <cstring>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

using namespace velmarin;
using namespace velmarin::bench;
namespace fs = std::filesystem;

constexpr std::size_t kLines = 200'000;

/// The dictionaries that are loaded, made once.
const fs::path& dictionaries() {
    static const ScratchFolder folder;
    static const bool made = [] {
        const auto english = letters('a', 'z');
        auto accented = english;
        for (const char* letter : {"é", "à", "ü", "ß", "ñ"})
            accented.emplace_back(letter);
        writeDictionary(folder.path() / "English", sortedWords(kLines, english, 5, 13), "");
        writeDictionary(folder.path() / "marked", sortedWords(kLines, english, 5, 13), "__DLM__n.");
        writeDictionary(folder.path() / "accented", sortedWords(kLines, accented, 5, 13), "");
        writeDictionary(folder.path() / "Japanese", sortedWords(kLines, letters(U'ぁ', U'ん'), 3, 8), "");
        return true;
    }();
    benchmark::DoNotOptimize(made);
    return folder.path();
}

/// The normal form of each character of the first plane.
struct Forms {
    struct Form {
        char bytes[7];
        std::uint8_t length;
    };
    std::vector<Form> forms{0x10000};
    Forms() {
        for (char32_t c = 0; c < 0x10000; ++c) {
            std::string character;
            appendUtf8(character, c);
            const std::string form = mSub_MakeSearchWord(character);
            std::memcpy(forms[c].bytes, form.data(), form.size());
            forms[c].length = static_cast<std::uint8_t>(form.size());
        }
    }
};

struct Arena {
    std::unique_ptr<char[]> words;
    std::vector<std::uint32_t> ends;
};

Arena arenaLoop(const fs::path& file) {
    static const Forms table;
    const int descriptor = ::open(file.c_str(), O_RDONLY | O_CLOEXEC);
    struct stat found {};
    ::fstat(descriptor, &found);
    const auto size = static_cast<std::size_t>(found.st_size);
    const std::unique_ptr<char[]> text(new char[size + 8]);
    const ssize_t got = ::read(descriptor, text.get(), size);
    ::close(descriptor);
    Arena arena{std::unique_ptr<char[]>(new char[size * 2 + 8]), {}};
    arena.ends.reserve(size / 4);
    char* out = arena.words.get();
    const char* const end = text.get() + got;
    for (const char* at = text.get(); at < end;) {
        const auto byte = static_cast<unsigned char>(*at);
        if (byte == '\n') {
            arena.ends.push_back(static_cast<std::uint32_t>(out - arena.words.get()));
            ++at;
        } else if (byte < 0x80) {
            *out++ = table.forms[byte].bytes[0];
            ++at;
        } else {
            const Utf8Unit unit = decodeUtf8({at, static_cast<std::size_t>(end - at)}, 0);
            const Forms::Form& form = table.forms[unit.value & 0xFFFF];
            std::memcpy(out, form.bytes, sizeof form.bytes);
            out += form.length;
            at += unit.length;
        }
    }
    return arena;
}

void countLines(benchmark::State& state) {
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(kLines));
}

void load(benchmark::State& state, const char* name) {
    const FolderItem folder(dictionaries() / name);
    for (auto _ : state) {
        DictionaryItem item;
        if (!MakeDictionaryItem(folder, item, 0) || item.IND.size() != kLines)
            state.SkipWithError("the dictionary did not load");
    }
    countLines(state);
}

void loop(benchmark::State& state, const char* name) {
    const fs::path file = dictionaries() / name / "ind";
    for (auto _ : state)
        if (arenaLoop(file).ends.size() != kLines)
            state.SkipWithError("lines are missing");
    countLines(state);
}

} // namespace

#define LOAD_AND_LOOP(name)                                                                                            \
    BENCHMARK_CAPTURE(load, name, #name)->Unit(benchmark::kMillisecond);                                               \
    BENCHMARK_CAPTURE(loop, name, #name)->Unit(benchmark::kMillisecond)

LOAD_AND_LOOP(English);
LOAD_AND_LOOP(marked);
LOAD_AND_LOOP(accented);
LOAD_AND_LOOP(Japanese);

BENCHMARK_MAIN();
