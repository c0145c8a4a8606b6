#include "reading/WordList.h"

#include <gtest/gtest.h>

#include "support/TempFolder.h"

namespace velmarin {
namespace {

TEST(WordList, HasTheWordsOfItsLanguagesAndOfTheReader) {
    const test::TempFolder folder;
    folder.write("american-english-small", "dryad\nSoper\nrésumé\nwell-known\n");
    folder.write("ngerman", "Haus\n");
    folder.write("french", "maison\n");
    folder.write("ind", "cantus__DLM__cantus firmus\nzelus\n");
    WordList words = WordList::ofLanguages({"deu", "eng"}, FolderItem(folder.path()));
    words.add(FolderItem(folder.at("ind")));
    words.add(FolderItem(folder.at("missing")));
    for (const char* word : {"dryad", "DRYAD", "Resume", "Wellknown", "haus", "Cantus", "zelus"})
        EXPECT_TRUE(words.has(word)) << word;
    for (const char* word : {"drvad", "Soper", "maison", "cantus firmus", "zel", ""})
        EXPECT_FALSE(words.has(word)) << word;
    EXPECT_FALSE(WordList::ofLanguages({"eng"}, FolderItem(folder.at("missing"))).has("dryad"));
}

} // namespace
} // namespace velmarin
