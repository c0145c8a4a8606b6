#include "draft/Draft.h"

#include "support/TempFolder.h"

#include <gtest/gtest.h>

namespace velmarin {
namespace {

const Draft kDraft{{{"p1.tif", "i", "", "", 100, PageState::Certain},
                    {"p2.tif", "1", "a\tb", "\"ab\nc", 87, PageState::Mended},
                    {"p3, 4.tif", "2", "ä; ö", "", 0, PageState::Doubtful},
                    {"p5.tif", "", "ad", "ae", 100, PageState::Set}}};

TEST(Draft, ComesBackFromAFileAsItWas) {
    const test::TempFolder files;
    ASSERT_TRUE(saveDraft(kDraft, files.path() / "draft.tsv"));
    EXPECT_EQ(parseDraft(files.read("draft.tsv")), kDraft);
    EXPECT_FALSE(saveDraft(kDraft, files.path() / "none" / "draft.tsv"));
}

TEST(Draft, ReadsWhatASpreadsheetMakesOfIt) {
    const auto read = parseDraft("\xEF\xBB\xBFState;LAST;page;confidence;mine\r\n"
                                 "Set;\"ab\";p1.tif;87%;x\r\n;;;;note\r\nsure;;p2.tif;1e9;\r\nmended;;p3.tif;-4;\r\n");
    EXPECT_EQ(read, (Draft{{{"p1.tif", "", "", "ab", 87, PageState::Set},
                            {"p2.tif", "", "", "", 1, PageState::Doubtful},
                            {"p3.tif", "", "", "", 0, PageState::Mended}}}));
    EXPECT_FALSE(parseDraft("first\tlast\na\tb\n"));
}

TEST(Draft, KeepsWhatPeopleAddWhenRowsAreMadeAgain) {
    Draft draft{{{.page = "p2.tif", .first = "b"}, {.page = "p3.tif", .first = "c"}, {.page = "p4.tif"}}};
    keepAddedColumns({{{.page = "p1.tif", .errata = "e.tif"},
                       {.page = "p2.tif", .first = "x", .errata = "f.tif"},
                       {.page = "p4.jpg", .errata = "g.tif"}}},
                     draft);
    EXPECT_EQ(draft, (Draft{{{.page = "p2.tif", .first = "b", .errata = "f.tif"},
                             {.page = "p3.tif", .first = "c"},
                             {.page = "p4.tif", .errata = "g.tif"}}}));
}

} // namespace
} // namespace velmarin
