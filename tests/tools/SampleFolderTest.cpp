#include "make_samples/SampleFolder.h"

#include <algorithm>
#include <memory>
#include <set>
#include <stdexcept>
#include <string>

#include <gtest/gtest.h>
#include <leptonica/allheaders.h>

#include "files/FolderItem.h"
#include "make_samples/Parsers.h"
#include "press/Text.h"
#include "support/TempFolder.h"
#include "support/Tree.h"

namespace velmarin {
namespace {

namespace fs = std::filesystem;
using test::TempFolder;

/// Writes the source of a dictionary of 90 words, "bab" to "zuz".
void writeTinySource(const TempFolder& folder) {
    constexpr std::string_view digits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    const auto number = [&](std::size_t n) {
        return std::string{digits[n / 4096], digits[n / 64 % 64], digits[n % 64]};
    };
    std::string text, index;
    for (const char first : std::string("zyxwvtsrqpnmlkjhgb"))
        for (const char middle : std::string("aeiou")) {
            const std::string word{first, middle, first};
            const std::string article = word + " <n>\na word of no meaning, though said at some length\n";
            index += word + "\t" + number(text.size()) + "\t" + number(article.size()) + "\n";
            text += article;
        }
    folder.write("tiny.index", index);
    folder.write("tiny.dict", text);
}

Sample tinySample(const std::string& name, PageKind kind) {
    return {"Group", name, [kind](const fs::path& folder) {
                Book book;
                book.design.typeface = "Linux Libertine O";
                book.design.hyphenation = "/usr/share/hyphen/hyph_en_US.dic";
                book.design.kind = kind;
                book.design.pageWidth = 800;
                book.design.pageHeight = 700;
                book.design.sideMargin = 60;
                book.design.headBaseline = 80;
                book.design.textTop = 110;
                book.design.textBottom = 640;
                book.articles = articlesOf(sourceArticles(folder, "tiny"), parseFreedictArticle, 1000);
                book.articles.front().supplement = book.articles.front().paragraphs;
                return book;
            }};
}

class SampleFolder : public ::testing::Test {
  protected:
    SampleFolder() { writeTinySource(sources_); }

    bool make(const std::vector<Sample>& samples) {
        return makeSampleFolder(place_.at("Samples"), sources_.path(), samples);
    }
    std::vector<std::string> names() const { return *listNames(place_.path()); }

    TempFolder sources_;
    TempFolder place_;
};

/// The name between two marks; empty if there is none.
std::string between(std::string_view line, std::string_view open, std::string_view close) {
    const auto start = line.find(open);
    if (start == std::string_view::npos)
        return {};
    return std::string(line.substr(start + open.size(), line.find(close, start) - start - open.size()));
}

void expectPrinted(const fs::path& page, int depth) {
    const std::unique_ptr<Pix, void (*)(Pix*)> pix(pixRead(page.c_str()), [](Pix* read) { pixDestroy(&read); });
    ASSERT_NE(pix, nullptr) << page;
    EXPECT_EQ(pixGetWidth(pix.get()), 800);
    EXPECT_EQ(pixGetDepth(pix.get()), depth);
    EXPECT_EQ(pixGetXRes(pix.get()), 300);
    l_int32 ink = 0;
    EXPECT_TRUE(depth > 1 || (pixCountPixels(pix.get(), &ink, nullptr) == 0 && ink > 5000)) << page;
}

TEST_F(SampleFolder, DictionaryIsSortedParallelAndComplete) {
    ASSERT_TRUE(make({tinySample("Tiny", PageKind::BilevelTiff), tinySample("Png", PageKind::ColorPng),
                      tinySample("Jpeg", PageKind::ColorJpeg)}));
    const fs::path group = place_.at("Samples/Group");
    const std::string ind = place_.read(group / "Tiny/ind"), txt = place_.read(group / "Tiny/txt");
    const auto keys = linesOf(ind), texts = linesOf(txt);
    ASSERT_EQ(keys.size(), 91U) << "90 words and the closing line";
    ASSERT_EQ(texts.size(), keys.size());
    EXPECT_TRUE(std::ranges::is_sorted(keys, {}, [](auto key) { return indexSearchWord(key, {}); }));
    const auto pageOf = [](std::string_view text) { return between(text, "<@_", "_>"); };
    EXPECT_TRUE(std::ranges::is_sorted(texts, {}, pageOf)) << "pages follow the words";
    std::set<std::string> pages;
    std::ranges::transform(texts, std::inserter(pages, pages.end()), pageOf);
    EXPECT_GT(pages.size(), 2U);
    for (const std::string& page : pages)
        expectPrinted(group / "Tiny/mImg" / page, 1);
    expectPrinted(group / "Png/mImg/png-0001.png", 32);
    expectPrinted(group / "Jpeg/mImg/jpeg-0001.jpg", 32);
    EXPECT_TRUE(place_.read(group / "Tiny/mImg/ImageIndex2")
                    .starts_with(std::to_string(pages.size()) + "\ntiny-0000.tif\tTitle\ntiny-0001.tif\t1\n"))
        << "the last index: the title page is one more";
    EXPECT_TRUE(fs::is_regular_file(group / "Tiny/mPimg" / between(txt, "<^_", "_>")))
        << "the page of an article in full";
    EXPECT_EQ(place_.read(group / "DictionaryPreferences.txt"), "Group\t0\t\nTiny\t2\nPng\t2\nJpeg\t2\n");
}

TEST_F(SampleFolder, WithContentIsLeftAlone) {
    place_.write("Samples/mine", "");
    EXPECT_FALSE(make({tinySample("Tiny", PageKind::BilevelTiff)}));
    EXPECT_EQ(test::filesOf(place_.path()), "Samples/mine=");
}

TEST_F(SampleFolder, FailedRunLeavesNothing) {
    const Sample broken{"Group", "Broken", [](const fs::path&) -> Book { throw std::runtime_error("torn"); }};
    EXPECT_THROW(make({tinySample("Tiny", PageKind::BilevelTiff), broken}), std::runtime_error);
    EXPECT_EQ(names(), std::vector<std::string>{});
    EXPECT_TRUE(make({tinySample("Other", PageKind::BilevelTiff)}));
    EXPECT_EQ(names(), std::vector<std::string>{"Samples"});
    EXPECT_FALSE(fs::exists(place_.at("Samples/Group/Tiny"))) << "nothing of the first run is used";
}

} // namespace
} // namespace velmarin
