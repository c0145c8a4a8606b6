#include "make_samples/DictdReader.h"

#include <stdexcept>
#include <string>

#include <gtest/gtest.h>
#include <zlib.h>

#include "support/TempFolder.h"

namespace velmarin {
namespace {

using test::TempFolder;

void writeGzip(const std::filesystem::path& path, const std::string& bytes) {
    gzFile file = gzopen(path.c_str(), "wb");
    ASSERT_NE(file, nullptr);
    ASSERT_EQ(gzwrite(file, bytes.data(), static_cast<unsigned>(bytes.size())), static_cast<int>(bytes.size()));
    ASSERT_EQ(gzclose(file), Z_OK);
}

/// 70 bytes, so that an offset of two digits is needed.
const std::string text = "alpha\nfirst\n" + std::string(52, '.') + "omega\n";

TEST(DictdReader, EntriesAreFoundByTheirBase64Numbers) {
    const TempFolder folder;
    folder.write("tiny.index", "00-database-info\tA\tB\nalpha\tA\tM\nomega\tBA\tG\n");
    folder.write("plain.index", "alpha\tA\tM\tAlpha\n");
    folder.write("plain.dict", text);
    writeGzip(folder.path() / "tiny.dict.dz", text);
    const DictdReader tiny(folder.path(), "tiny");
    ASSERT_EQ(tiny.entries().size(), 2U) << "the database's own entry is none";
    EXPECT_EQ(tiny.entries()[0].headword, "alpha");
    EXPECT_EQ(tiny.text(tiny.entries()[0]), "alpha\nfirst\n");
    EXPECT_EQ(tiny.text(tiny.entries()[1]), "omega\n") << "BA is 64";
    const DictdReader plain(folder.path(), "plain");
    EXPECT_EQ(plain.text(plain.entries().at(0)), "alpha\nfirst\n") << "a fourth column is passed over";
}

TEST(DictdReader, ArticlesComeOnceEachInTheOrderOfTheText) {
    const TempFolder folder;
    folder.write("tiny.dict", text);
    folder.write("tiny.index", "ende\tBA\tG\nalpha\tA\tM\nomega\tBA\tG\n");
    const DictdReader reader(folder.path(), "tiny");
    const auto articles = reader.articles();
    ASSERT_EQ(articles.size(), 2U);
    EXPECT_EQ(articles[0], "alpha\nfirst\n");
    EXPECT_EQ(articles[1], "omega\n");
}

TEST(DictdReader, WhatCannotBeReadIsNamed) {
    struct Row {
        const char* reason;
        const char* index;
        const char* inMessage;
    };
    const Row rows[] = {
        {"no tabs", "alpha\tA\tM\nomega\n", "tiny.index, line 2"},
        {"one number", "alpha\tA\n", "line 1"},
        {"no digit of base 64", "alpha\tA\t-\n", "line 1"},
        {"empty number", "alpha\t\tM\n", "line 1"},
        {"beyond 32 bits", "alpha\tA\t///////\n", "line 1"},
        {"length beyond the text", "alpha\tBA\tH\n", "outside"},
        {"offset beyond the text", "alpha\tEA\tA\n", "outside"},
    };
    const TempFolder folder;
    folder.write("tiny.dict", text);
    for (const Row& row : rows) {
        folder.write("tiny.index", row.index);
        try {
            const DictdReader reader(folder.path(), "tiny");
            ADD_FAILURE() << row.reason << ": was read";
        } catch (const std::runtime_error& failure) {
            EXPECT_NE(std::string(failure.what()).find(row.inMessage), std::string::npos)
                << row.reason << ": " << failure.what();
        }
    }
}

} // namespace
} // namespace velmarin
