#include "workshop/WorkshopModel.h"
#include "ScriptedBook.h"
#include "book/PageChanges.h"
#include "workshop/OtherReadings.h"
#include "workshop/StripPlan.h"

#include <gtest/gtest.h>

namespace velmarin::test {
namespace {

/// Keeps what it is told, as a view would show it.
struct ToldDisplay : WorkshopDisplay {
    const WorkshopModel* model = nullptr;
    std::string list, page, counts, saved;
    bool done = false;
    std::size_t takenOver = 0;

    void showRows() override {
        list.clear();
        for (const std::size_t row : model->visibleRows())
            list += (list.empty() ? "" : " ") + model->draft().pages[row].number;
    }
    void showChangedRows(const std::vector<std::size_t>&) override {}
    void showCurrentPage() override {
        page = model->current() ? model->currentPage().number + " " + model->currentPage().first : "";
    }
    void showCounts() override { counts = model->counts().text(); }
    void showAllDone() override { done = true; }
    void showSaved(const Result& result) override { saved = result ? "" : result.failure().message(); }
    void showTakenOver(std::size_t rows) override { takenOver = rows; }
};

struct Workshop {
    explicit Workshop(const std::string& rows) {
        display.model = &model;
        model.showIn(display);
        model.open(draftOf(rows));
    }
    std::string rows() const { return rowsOf(model.draft()); }
    std::string currentWord() const { return model.currentPage().first; }
    void take(const std::string& word) {
        model.take({.first = word, .last = word, .number = model.currentPage().number});
    }
    /// A key of the window: R takes the page as it is, D and U step, F and f are the next and previous doubtful page, Z
    /// and Y undo and redo; a letter takes that word.
    void press(char key) {
        switch (key) {
        case 'R':
            return model.take(wordsOf(model.currentPage()));
        case 'D':
            return model.step(1);
        case 'U':
            return model.step(-1);
        case 'F':
            return model.goToDoubtful(1);
        case 'P':
            return model.goToDoubtful(-1);
        case 'Z':
            return model.undo();
        case 'Y':
            return model.redo();
        case 'o':
            return model.setDoubtfulOnly(true);
        default:
            return take(std::string(1, key));
        }
    }

    ScriptedBook book;
    ToldDisplay display;
    WorkshopModel model{book};
};

TEST(WorkshopModel, KeysLeadThroughTheBook) {
    struct {
        const char *draft, *keys, *rows, *page;
    } const cases[] = {
        {"a+ x? d+", "", "a+ x? d+", "2 x"}, // it begins at the first doubtful page
        {"a+ d+", "", "a+ d+", "1 a"},
        {"a? m? d? e+", "R", "a! m? d? e+", "2 m"},
        {"a? m? d? e+", "DDRR", "a! m? d! e+", "2 m"}, // from the end to the beginning
        {"a? m? e?", "DFF", "a? m? e?", "1 a"},
        {"a? m+ e?", "P", "a? m+ e?", "3 e"},
        {"a? m+ e?", "UUDDDD", "a? m+ e?", "3 e"},   // the ends hold
        {"a? x? y? e?", "b", "b! c~ y? e?", "3 y"},  // a page that mends is not looked at
        {"a? x? y? e?", "bZ", "a? x? y? e?", "1 a"}, // what mended goes back with it
        {"a? x? y? e?", "bDZY", "b! c~ y? e?", "1 b"},
        {"a? x? y? e?", "bkZZYk", "k! c~ y? e?", "3 y"},
        {"a? x? e?", "bZkY", "k! x? e?", "2 x"}, // nothing to redo after another change
        {"a+ x+", "RR", "a! x+", "1 a"},
        {"a? x?", "RZZ", "a? x?", "1 a"},
    };
    for (const auto& each : cases) {
        Workshop workshop(each.draft);
        for (const char key : std::string(each.keys))
            workshop.press(key);
        EXPECT_EQ(workshop.rows(), each.rows) << each.draft << " " << each.keys;
        EXPECT_EQ(workshop.display.page, each.page) << each.draft << " " << each.keys;
        EXPECT_TRUE(workshop.book.saves == 0 || workshop.book.savedDraft == workshop.model.draft()) << each.keys;
    }
}

TEST(WorkshopModel, TheLastDoubtfulPageIsTheEnd) {
    Workshop workshop("a+ x? d+");
    workshop.press('R');
    EXPECT_TRUE(workshop.display.done);
    EXPECT_EQ(workshop.display.counts, "2 certain, 0 mended, 0 doubtful, 1 set: 0 to look at");
    Workshop empty("");
    for (const char key : std::string("DUFPZYo"))
        empty.press(key);
    EXPECT_EQ(empty.model.current(), std::nullopt);
}

TEST(WorkshopModel, TheFilterShowsDoubtfulPagesAndTheCurrentOne) {
    Workshop workshop("a+ m? d~ e? f! g?");
    workshop.press('o');
    EXPECT_EQ(workshop.display.list, "2 4 6");
    workshop.press('R');
    EXPECT_EQ(workshop.display.list, "4 6") << "the page that was set leaves the list";
    workshop.press('Z');
    EXPECT_EQ(workshop.display.list, "2 4 6");
    workshop.model.select(0);
    EXPECT_EQ(workshop.display.list, "1 2 4 6");
    workshop.press('D');
    EXPECT_EQ(workshop.display.list + ", " + workshop.display.page, "2 4 6, 2 m");
    workshop.model.setDoubtfulOnly(false);
    EXPECT_EQ(workshop.display.list, "1 2 3 4 5 6");
}

TEST(WorkshopModel, PagesThatAreReadMeanwhileLeaveWhatAPersonHasSet) {
    Workshop workshop("a? m?");
    workshop.take("k");
    workshop.model.takeRead(draftOf("b+ n+ o? p?"));
    EXPECT_EQ(workshop.rows() + ", " + workshop.display.page, "k! n+ o? p?, 2 n");
    EXPECT_EQ(workshop.display.list, "1 2 3 4");
    EXPECT_EQ(workshop.book.savedDraft, workshop.model.draft());
    Draft shorter = workshop.model.draft();
    shorter.pages.pop_back();
    shorter.pages.erase(shorter.pages.begin() + 1);
    workshop.model.takeRead(shorter);
    EXPECT_EQ(workshop.display.page, "3 o") << "the page in the place of one that was left out";
    workshop.press('Z');
    EXPECT_EQ(workshop.rows(), "a? o?") << "undo finds its page where it is now";
}

TEST(WorkshopModel, NothingIsLostOnAFullDisk) {
    Workshop workshop("a? m?");
    workshop.book.full = true;
    workshop.take("k");
    EXPECT_EQ(workshop.display.saved, "\"/book/draft.tsv\" could not be written: No space left on device");
    EXPECT_FALSE(workshop.model.saved());
    workshop.book.full = false;
    workshop.model.saveAgain();
    EXPECT_TRUE(workshop.model.saved());
    EXPECT_EQ(rowsOf(workshop.book.savedDraft) + workshop.display.saved, "k! m?");
    workshop.model.saveAgain();
    EXPECT_EQ(workshop.book.saves, 2) << "only what was not saved";
}

TEST(WorkshopModel, TakesOverWhatAnotherProgramWrites) {
    struct {
        const char *draft, *outside, *rows;
        std::size_t taken;
    } const cases[] = {
        {"a? m? o+", "a? m? o+", "a? m? o+", 0}, {"a? m? o+", "b? m? o+", "b! c~ o+", 1}, // it mends the others
        {"a? m? o+", "a! m? o?", "a! m? o?", 2},                                          // states alone
        {"a? m? o+", "a?", "a? m? o+", 0},                                                // rows that are gone
        {"a? m?", "a? m? o+", "a? m?", 0}, // pages that the book does not have
    };
    for (const auto& each : cases) {
        Workshop workshop(each.draft);
        workshop.book.outside = draftOf(each.outside);
        workshop.model.lookOutside();
        EXPECT_EQ(workshop.rows(), each.rows) << each.outside;
        EXPECT_EQ(workshop.display.takenOver, each.taken) << each.outside;
        workshop.press('Z');
        EXPECT_EQ(workshop.rows(), each.draft) << each.outside;
    }
}

TEST(OtherReadings, ShareTheDigitKeys) {
    struct {
        int first, last;
        std::size_t ofFirst, ofLast;
    } const cases[] = {{0, 0, 0, 0}, {2, 3, 2, 3}, {9, 9, 4, 5}, {20, 2, 7, 2}, {1, 20, 1, 8}, {20, 0, 9, 0}};
    for (const auto& each : cases) {
        PageGuess guess{.page = "1.tif", .first = {{"f", 0.9}, {"", 0.1}}, .last = {{"l", 0.9}}};
        for (int i = 0; i < each.first; ++i)
            guess.first.insert(guess.first.end(), 2, {"f" + std::to_string(i), 0.1});
        for (int i = 0; i < each.last; ++i)
            guess.last.push_back({"l" + std::to_string(i), 0.1});
        std::size_t ofFirst = 0, ofLast = 0;
        for (const OtherReading& other : otherReadings(guess, {.page = "1.tif", .first = "f", .last = "l"}))
            ++(other.place == GuidePlace::First ? ofFirst : ofLast);
        EXPECT_EQ(std::pair(ofFirst, ofLast), std::pair(each.ofFirst, each.ofLast)) << each.first << " " << each.last;
    }
}

TEST(OtherReadings, TheWordThatIsLikelierWrongComesFirst) {
    struct {
        const char *first, *last;
        double ofFirst, ofLast;
        GuidePlace place;
    } const cases[] = {
        {"", "x", 1, 1, GuidePlace::First},      {"m", "a", 1, 1, GuidePlace::Last},
        {"z", "z", 1, 1, GuidePlace::First},     {"c", "d", 0.9, 0.5, GuidePlace::Last},
        {"c", "d", 0.5, 0.9, GuidePlace::First}, {"c", "", 0.9, 0, GuidePlace::First},
    };
    for (const auto& each : cases) {
        ScriptedBook book;
        Draft draft = draftOf("b+ m? n+");
        draft.pages[1].first = each.first;
        draft.pages[1].last = each.last;
        book.guesses["2.tif"] = {
            .page = "2.tif", .first = {{each.first, each.ofFirst}}, .last = {{each.last, each.ofLast}}};
        EXPECT_EQ(likelierWrong(draft, 1, book), each.place) << each.first << "–" << each.last;
    }
}

TEST(StripPlan, ShowsTheStripAndWhatFollows) {
    struct {
        StripRequest request;
        PageBox source, strip;
    } const cases[] = {
        {{1000, 2000, {}, 500, 200}, {0, 0, 1000, 400}, {0, 0, 500, 125}},                      // the top eighth
        {{1000, 2000, {10, 100, 980, 80}, 500, 200}, {0, 90, 1000, 400}, {0, 0, 500, 50}},      // with a margin
        {{1000, 2000, {10, 1900, 980, 80}, 500, 200}, {0, 1590, 1000, 400}, {0, 150, 500, 50}}, // at the foot
        {{1000, 2000, {10, 100, 980, 80}, 500, 200, 2, StripSide::Right}, {500, 90, 500, 200}, {0, 0, 500, 100}},
        {{1000, 2000, {10, 100, 980, 80}, 500, 200, 2, StripSide::Middle}, {250, 90, 500, 200}, {0, 0, 500, 100}},
        {{100, 200, {}, 1000, 100}, {0, 0, 100, 50}, {400, 0, 200, 50}},                   // at most twice as large
        {{1000, 2000, {0, 0, 990, 390}, 500, 100}, {0, 0, 1000, 400}, {125, 0, 250, 100}}, // a high strip is reduced
        {{1000, 2000, {5000, 0, 10, 10}, 500, 200}, {0, 0, 1000, 400}, {0, 0, 500, 125}},  // not on the page
    };
    for (const auto& each : cases) {
        const StripPlan plan = planStrip(each.request);
        const auto numbers = [](const PageBox& box) { return std::vector{box.x, box.y, box.width, box.height}; };
        EXPECT_EQ(numbers(plan.source), numbers(each.source)) << each.request.strip.y << " zoom " << each.request.zoom;
        EXPECT_EQ(numbers(plan.strip), numbers(each.strip)) << each.request.strip.y << " zoom " << each.request.zoom;
    }
}

TEST(StripPlan, EnlargesWordsThatHaveRoom) {
    const StripRequest request{2000, 3000, {100, 50, 1800, 60}, 500, 240};
    // A word of two parts, and one that would leave the view.
    const std::vector<StripPiece> pieces =
        planWords(request, {{100, 60, 100, 30}, {210, 60, 60, 30}, {1700, 60, 200, 30}});
    ASSERT_EQ(pieces.size(), 2U);
    EXPECT_EQ(pieces[0].source.x, 85);
    EXPECT_EQ(pieces[0].source.right(), 285);
    EXPECT_GE(pieces[0].target.x, 0);
    EXPECT_LE(pieces[0].target.right(), pieces[1].target.x);
    EXPECT_LE(pieces[1].target.right(), request.width);
    EXPECT_GT(pieces[1].target.width, pieces[1].source.width / 3);
    EXPECT_TRUE(planWords(request, {{100, 60, 1700, 30}}).empty()) << "the line is full";
}

TEST(PageChanges, TurnFromWhereThePageIs) {
    BookSettings settings;
    settings.pages.turned = {{.pages = {1, kLastPage}, .degrees = 180}};
    const auto turnOf = [&settings](int page) {
        int degrees = 0;
        for (const TurnedPages& each : settings.pages.turned)
            degrees = each.pages.has(page) ? each.degrees : degrees;
        return degrees;
    };
    turnPage(settings, 3, 90);
    EXPECT_EQ(std::pair(turnOf(3), turnOf(4)), std::pair(270, 180));
    turnPage(settings, 3, 90);
    EXPECT_EQ(turnOf(3), 0);
    turnPage(settings, 3, -90);
    EXPECT_EQ(turnOf(3), 270);
    EXPECT_EQ(settings.pages.turned.size(), 2U);
}

} // namespace
} // namespace velmarin::test
