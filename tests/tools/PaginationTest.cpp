#include "make_samples/Pagination.h"

#include <random>

#include <gtest/gtest.h>

namespace velmarin {
namespace {

FlowLine flowLine(std::size_t article, bool opens, bool keep, double leading = 10) {
    FlowLine line;
    line.leading = leading;
    line.article = article;
    line.opensArticle = opens;
    line.keepWithNext = keep;
    return line;
}

TEST(Pagination, EveryLineStandsOnceInOrderAndFits) {
    std::mt19937 random(7);
    for (int round = 0; round < 200; ++round) {
        std::vector<FlowLine> flow;
        const std::size_t count = 1 + random() % 300;
        for (std::size_t i = 0; i < count; ++i) {
            const bool opens = i == 0 || random() % 4 == 0;
            const std::size_t article = i == 0 ? 0 : flow.back().article + (opens ? 1 : 0);
            flow.push_back(
                flowLine(article, opens, opens && random() % 2 == 0, 8.0 + static_cast<double>(random() % 4)));
        }
        const double height = 100;
        std::size_t next = 0;
        for (const Page& page : paginate(flow, height)) {
            ASSERT_FALSE(page.lines.empty());
            double last = 0;
            int column = 0;
            for (const SetLine& set : page.lines) {
                ASSERT_EQ(set.line, next++);
                if (set.column != column) {
                    EXPECT_FALSE(flow[set.line - 1].keepWithNext) << "round " << round;
                    last = 0;
                    column = set.column;
                }
                EXPECT_GT(set.baseline, last);
                EXPECT_LE(set.baseline, height + 1e-6);
                last = set.baseline;
            }
            if (next < flow.size()) {
                EXPECT_FALSE(flow[next - 1].keepWithNext) << "round " << round;
            }
        }
        EXPECT_EQ(next, flow.size());
    }
}

TEST(Pagination, GuideWordsAreTheFirstAndLastThatOpenOnThePage) {
    std::vector<FlowLine> flow;
    for (std::size_t article = 0; article < 3; ++article)
        for (int line = 0; line < 20; ++line)
            flow.push_back(flowLine(article, line == 0, false));
    const auto pages = paginate(flow, 120);
    ASSERT_EQ(pages.size(), 3U);
    EXPECT_EQ(pages[0].firstArticle, 0U);
    EXPECT_EQ(pages[0].lastArticle, 1U);
    EXPECT_EQ(pages[1].firstArticle, 2U) << "article 1 only runs on";
    EXPECT_EQ(pages[2].firstArticle, 2U) << "none opens, one runs through";
}

} // namespace
} // namespace velmarin
