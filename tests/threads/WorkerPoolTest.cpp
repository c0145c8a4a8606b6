#include "threads/WorkerPool.h"

#include <gtest/gtest.h>

#include <atomic>
#include <latch>
#include <optional>
#include <stdexcept>
#include <string>

namespace velmarin {
namespace {

TEST(WorkerPool, HandsOverResultsAndExceptionsInEveryNumberOfThreads) {
    for (const unsigned threads : {0u, 1u, 2u, 7u}) {
        WorkerPool pool(threads);
        std::vector<std::future<std::string>> results;
        for (int i = 0; i < 200; ++i)
            results.push_back(pool.run([i] {
                if (i % 10 == 3)
                    throw std::runtime_error("three");
                return std::to_string(i);
            }));
        for (int i = 0; i < 200; ++i) {
            if (i % 10 == 3)
                EXPECT_THROW(results[static_cast<std::size_t>(i)].get(), std::runtime_error);
            else
                EXPECT_EQ(results[static_cast<std::size_t>(i)].get(), std::to_string(i));
        }
    }
}

TEST(WorkerPool, RunsWorkAtTheSameTime) {
    WorkerPool pool(2);
    std::latch both(2);
    const auto meet = [&] { both.arrive_and_wait(); };
    auto first = pool.run(meet), second = pool.run(meet);
    first.get();
    second.get();
}

TEST(WorkerPool, EndsWhatHasBegunAndDropsTheRest) {
    for (const bool byDrop : {true, false}) {
        std::latch begun(1), dropped(1);
        std::atomic<int> ran = 0;
        std::optional<WorkerPool> pool(std::in_place, 1u);
        auto first = pool->run([&] {
            begun.count_down();
            dropped.wait();
            return ++ran;
        });
        std::vector<std::future<int>> others;
        for (int i = 0; i < 50; ++i)
            others.push_back(pool->run([&] { return ++ran; }));
        begun.wait();
        const std::jthread opener([&] {
            others.back().wait();
            dropped.count_down();
        });
        if (byDrop)
            pool->drop();
        pool.reset();
        EXPECT_EQ(first.get(), 1);
        for (auto& other : others)
            EXPECT_THROW(other.get(), std::future_error);
    }
}

} // namespace
} // namespace velmarin
