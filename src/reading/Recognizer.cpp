#include "reading/Recognizer.h"

#include "text/LetterCase.h"

#include <tesseract/baseapi.h>
#include <tesseract/resultiterator.h>

#include <omp.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <utility>

namespace velmarin {

struct Recognizer::Engine {
    tesseract::TessBaseAPI api;
};

namespace {

constexpr std::size_t kMostOthers = 4;
constexpr double kLeastChoice = 0.01; // a letter less likely than this is not another reading

void silence(tesseract::TessBaseAPI& api) {
    api.SetVariable("debug_file", "/dev/null");
}

// Where Tesseract of this system keeps its data; as Tesseract itself, TESSDATA_PREFIX first.
std::string dataFolder() {
    if (const char* folder = std::getenv("TESSDATA_PREFIX"))
        return folder;
    tesseract::TessBaseAPI api;
    silence(api);
    // No language has this name: it fails, but only after it has found the folder.
    api.Init(nullptr, "-", tesseract::OEM_LSTM_ONLY);
    return api.GetDatapath();
}

std::string packageOf(std::string language) {
    std::ranges::replace(language, '_', '-');
    return "tesseract-ocr-" + language;
}

std::string joined(const std::vector<std::string>& parts, std::string_view separator) {
    std::string all;
    for (const std::string& part : parts)
        all += (all.empty() ? "" : std::string(separator)) + part;
    return all;
}

PageBox boxOf(const tesseract::ResultIterator& place, tesseract::PageIteratorLevel level) {
    int left = 0, top = 0, right = 0, bottom = 0;
    if (!place.BoundingBox(level, &left, &top, &right, &bottom))
        return {};
    return {left, top, right - left, bottom - top};
}

std::string textOf(const tesseract::ResultIterator& place, tesseract::PageIteratorLevel level) {
    char* text = place.GetUTF8Text(level);
    const std::string copy = text != nullptr ? text : "";
    delete[] text;
    return copy;
}

struct Letter {
    std::string text;
    std::vector<std::pair<double, std::string>> choices; // how likely, and which other letter
};

Letter letterAt(const tesseract::ResultIterator& place) {
    Letter letter{textOf(place, tesseract::RIL_SYMBOL), {}};
    tesseract::ChoiceIterator choice(place);
    do {
        const char* text = choice.GetUTF8Text();
        const double likely = static_cast<double>(choice.Confidence()) / 100;
        if (text != nullptr && *text != '\0' && letter.text != text && likely >= kLeastChoice)
            letter.choices.emplace_back(likely, text);
    } while (choice.Next());
    return letter;
}

// The word with one letter replaced by another choice of it, the most likely first.
std::vector<std::string> othersOf(const std::vector<Letter>& letters) {
    std::vector<std::pair<double, std::string>> words;
    for (std::size_t i = 0; i < letters.size(); ++i) {
        for (const auto& [likely, choice] : letters[i].choices) {
            std::string word;
            for (std::size_t j = 0; j < letters.size(); ++j)
                word += j == i ? choice : letters[j].text;
            words.emplace_back(likely, std::move(word));
        }
    }
    std::ranges::sort(words, [](const auto& a, const auto& b) { return a.first > b.first; });
    std::vector<std::string> others;
    for (auto& [likely, word] : words) {
        if (others.size() < kMostOthers && std::ranges::find(others, word) == others.end())
            others.push_back(std::move(word));
    }
    return others;
}

double likeliestOther(const std::vector<Letter>& letters) {
    double most = 0;
    for (const Letter& letter : letters) {
        for (const auto& [likely, choice] : letter.choices)
            most = std::max(most, likely);
    }
    return most;
}

} // namespace

Recognizer::Recognizer() : engine_(std::make_unique<Engine>()) {}
Recognizer::~Recognizer() = default;

std::vector<std::string> Recognizer::installedLanguages() {
    std::vector<std::string> languages;
    std::error_code error;
    const std::filesystem::path folder = dataFolder();
    for (std::filesystem::recursive_directory_iterator file(folder, error), end; !error && file != end;
         file.increment(error)) {
        if (file->path().extension() != ".traineddata" || file->path().stem() == "osd")
            continue;
        languages.push_back(file->path().lexically_relative(folder).replace_extension().string());
    }
    std::ranges::sort(languages);
    return languages;
}

Result Recognizer::open(const std::vector<std::string>& languages, std::shared_ptr<const WordList> words) {
    opened_ = false;
    words_ = std::move(words);
    const std::string folder = dataFolder();
    if (languages.empty())
        return Failure{FolderItem(folder), "no language is chosen"};
    const std::vector<std::string> installed = installedLanguages();
    for (const std::string& language : languages) {
        if (std::ranges::find(installed, language) == installed.end())
            return Failure{FolderItem(folder), "it has no data of the language \"" + language + "\"; the package \"" +
                                                   packageOf(language) + "\" brings them"};
    }
    silence(engine_->api);
    if (engine_->api.Init(folder.c_str(), joined(languages, "+").c_str(), tesseract::OEM_LSTM_ONLY) != 0)
        return Failure{FolderItem(folder),
                       "the data of the languages " + joined(languages, ", ") + " could not be read"};
    engine_->api.SetVariable("lstm_choice_mode", "2");
    engine_->api.SetPageSegMode(tesseract::PSM_RAW_LINE);
    opened_ = true;
    return {};
}

std::vector<TextWord> Recognizer::readLine(Pix* line, Alphabet alphabet) {
    if (!opened_)
        return {};
    // The caller reads one page in each thread; more threads for one line would wait for each other.
    omp_set_max_active_levels(0);
    engine_->api.SetVariable("tessedit_char_whitelist", alphabet == Alphabet::Digits ? "0123456789" : "");
    engine_->api.SetImage(line);
    engine_->api.SetSourceResolution(300);
    if (engine_->api.Recognize(nullptr) != 0)
        return {};
    const std::unique_ptr<tesseract::ResultIterator> place(engine_->api.GetIterator());
    std::vector<TextWord> words;
    if (!place || place->Empty(tesseract::RIL_SYMBOL))
        return words;
    std::vector<Letter> letters;
    const auto finishWord = [&] {
        if (!words.empty()) {
            words.back().others = othersOf(letters);
            words.back().confidence *= 1 - likeliestOther(letters);
        }
        letters.clear();
    };
    do {
        if (place->IsAtBeginningOf(tesseract::RIL_WORD)) {
            finishWord();
            words.push_back({textOf(*place, tesseract::RIL_WORD), boxOf(*place, tesseract::RIL_WORD),
                             static_cast<double>(place->Confidence(tesseract::RIL_WORD)) / 100});
        }
        letters.push_back(letterAt(*place));
    } while (place->Next(tesseract::RIL_SYMBOL));
    finishWord();
    std::erase_if(words, [](const TextWord& word) { return word.text.empty(); });
    return words;
}

bool Recognizer::knows(const std::string& word) const {
    if (!opened_ || word.empty())
        return false;
    // Tesseract's list has most words in small letters alone.
    return engine_->api.IsValidWord(word.c_str()) != 0 || engine_->api.IsValidWord(Lowercase(word).c_str()) != 0 ||
           (words_ && words_->has(word));
}

} // namespace velmarin
