#include "make_samples/SampleFolder.h"

#include <set>
#include <stdexcept>
#include <string>

#include <gtest/gtest.h>
#include <leptonica/allheaders.h>

#include "make_samples/Parsers.h"
#include "make_samples/Text.h"
#include "support/TempFolder.h"

namespace velmarin {
namespace {

namespace fs = std::filesystem;
using test::TempFolder;

/// Writes a dictionary of 90 words, "bab" to "zuz", and returns its name.
std::string writeTinySource(const TempFolder& folder) {
    constexpr std::string_view digits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    const auto number = [&](std::size_t n) {
        return std::string{digits[n / 4096], digits[n / 64 % 64], digits[n % 64]};
    };
    std::string text;
    std::string index;
    for (const char first : std::string("zyxwvtsrqpnmlkjhgb"))
        for (const char middle : std::string("aeiou")) {
            const std::string word{first, middle, first};
            const std::string article = word + " <n>\na word of no meaning, though said at some length\n";
            index += word + "\t" + number(text.size()) + "\t" + number(article.size()) + "\n";
            text += article;
        }
    folder.write("tiny.index", index);
    folder.write("tiny.dict", text);
    return "tiny";
}

Design tinyDesign(PageKind kind) {
    Design design;
    design.typeface = "Linux Libertine O";
    design.hyphenation = "/usr/share/hyphen/hyph_en_US.dic";
    design.kind = kind;
    design.pageWidth = 800;
    design.pageHeight = 700;
    design.sideMargin = 60;
    design.headBaseline = 80;
    design.textTop = 110;
    design.textBottom = 640;
    return design;
}

Sample tinySample(const std::string& name, PageKind kind) {
    return {"Group", name, "tiny", [kind](const fs::path& folder) {
                Book book;
                book.title = {"Tiny", {"a book"}, {"made for a test"}};
                book.design = tinyDesign(kind);
                book.articles = articlesOf(sourceArticles(folder, "tiny"), parseFreedictArticle, 1000);
                book.articles.front().supplement = book.articles.front().paragraphs;
                return book;
            }};
}

class SampleFolder : public ::testing::Test {
  protected:
    SampleFolder() { writeTinySource(sources_); }

    bool make(const std::vector<Sample>& samples) {
        return makeSampleFolder(target(), sources_.path(), samples, 2, [](const std::string&) {});
    }
    fs::path target() const { return place_.path() / "Samples"; }
    std::size_t itemsBeside() const {
        return static_cast<std::size_t>(std::distance(fs::directory_iterator(place_.path()), fs::directory_iterator()));
    }

    TempFolder sources_;
    TempFolder place_;
};

/// The name between two marks; empty where there is none.
std::string between(std::string_view line, std::string_view open, std::string_view close) {
    const auto start = line.find(open);
    if (start == std::string_view::npos)
        return {};
    const auto end = line.find(close, start);
    return std::string(line.substr(start + open.size(), end - start - open.size()));
}

TEST_F(SampleFolder, DictionaryIsSortedParallelAndComplete) {
    ASSERT_TRUE(make({tinySample("Tiny", PageKind::BilevelTiff)}));
    const fs::path dictionary = fs::path("Samples") / "Group" / "Tiny";
    const std::string ind = place_.read(dictionary / "ind");
    const std::string txt = place_.read(dictionary / "txt");
    const auto keys = linesOf(ind);
    const auto texts = linesOf(txt);
    ASSERT_EQ(keys.size(), 91U) << "90 words and the closing line";
    ASSERT_EQ(texts.size(), keys.size());
    std::set<std::string> pages;
    std::string lastPage;
    for (std::size_t i = 0; i < keys.size(); ++i) {
        if (i > 0) {
            EXPECT_LE(indexSearchWord(keys[i - 1], {}), indexSearchWord(keys[i], {}));
        }
        const std::string page = between(texts[i], "<@_", "_>");
        EXPECT_LE(lastPage, page) << "pages follow the words";
        lastPage = page;
        pages.insert(page);
    }
    EXPECT_GT(pages.size(), 2U);
    for (const std::string& page : pages) {
        Pix* pix = pixRead((place_.path() / dictionary / "mImg" / page).c_str());
        ASSERT_NE(pix, nullptr) << page;
        EXPECT_EQ(pixGetDepth(pix), 1);
        EXPECT_EQ(pixGetXRes(pix), 300);
        l_int32 ink = 0;
        pixCountPixels(pix, &ink, nullptr);
        EXPECT_GT(ink, 5000) << page << " is printed";
        pixDestroy(&pix);
    }
    EXPECT_TRUE(place_.read(dictionary / "mImg" / "ImageIndex2")
                    .starts_with(std::to_string(pages.size()) + "\ntiny-0000.tif\tTitle\ntiny-0001.tif\t1\n"))
        << "the last index: the title page is one more";
    const std::string extra = between(texts[89], "<^_", "_>");
    EXPECT_TRUE(fs::exists(place_.path() / dictionary / "mPimg" / extra)) << extra;
    EXPECT_EQ(place_.read("Samples/Group/DictionaryPreferences.txt"), "Group\t0\t\nTiny\t2\n");
}

TEST_F(SampleFolder, EachKindOfPageCanBeDecoded) {
    const std::vector<std::pair<PageKind, int>> kinds{
        {PageKind::BilevelTiff, 1}, {PageKind::ColorPng, 32}, {PageKind::ColorJpeg, 32}};
    std::vector<Sample> samples;
    for (std::size_t i = 0; i < kinds.size(); ++i)
        samples.push_back(tinySample("Kind " + std::to_string(i), kinds[i].first));
    ASSERT_TRUE(make(samples));
    for (std::size_t i = 0; i < kinds.size(); ++i) {
        const std::string name = "kind-0001" + std::string(extensionOf(kinds[i].first));
        Pix* pix = pixRead((target() / "Group" / ("Kind " + std::to_string(i)) / "mImg" / name).c_str());
        ASSERT_NE(pix, nullptr) << name;
        EXPECT_EQ(pixGetDepth(pix), kinds[i].second) << name;
        EXPECT_EQ(pixGetWidth(pix), 800) << name;
        pixDestroy(&pix);
    }
}

TEST_F(SampleFolder, WholeFolderIsLeftAlone) {
    fs::create_directories(target() / "Mine");
    EXPECT_FALSE(make({tinySample("Tiny", PageKind::BilevelTiff)}));
    EXPECT_FALSE(fs::exists(target() / "Group"));
}

TEST_F(SampleFolder, InterruptedRunLeavesNoFolderAndIsCleared) {
    const Sample broken{"Group", "Broken", "tiny", [](const fs::path&) -> Book { throw std::runtime_error("torn"); }};
    EXPECT_THROW(make({tinySample("Tiny", PageKind::BilevelTiff), broken}), std::runtime_error);
    EXPECT_FALSE(fs::exists(target()));
    EXPECT_EQ(itemsBeside(), 1U) << "the stage, with the first dictionary in it";
    EXPECT_TRUE(make({tinySample("Other", PageKind::BilevelTiff)}));
    EXPECT_EQ(itemsBeside(), 1U) << "the folder alone";
    EXPECT_FALSE(fs::exists(target() / "Group" / "Tiny")) << "nothing of the first run is taken over";
}

} // namespace
} // namespace velmarin
