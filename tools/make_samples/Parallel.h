#pragma once

#include <algorithm>
#include <atomic>
#include <cstddef>
#include <exception>
#include <memory>
#include <mutex>
#include <thread>
#include <vector>

namespace velmarin {

/// Calls body(*workers[t], i) once for every i below `count`, from as many threads as there are workers. The first
/// exception ends the work and is thrown again.
template <class Worker, class Body>
void parallelFor(std::vector<std::unique_ptr<Worker>>& workers, std::size_t count, const Body& body) {
    std::atomic<std::size_t> next{0};
    std::exception_ptr failure;
    std::mutex guard;
    const auto run = [&](Worker& worker) {
        for (std::size_t i = next++; i < count; i = next++) {
            try {
                body(worker, i);
            } catch (...) {
                const std::lock_guard lock(guard);
                if (!failure)
                    failure = std::current_exception();
                next = count;
            }
        }
    };
    std::vector<std::thread> threads;
    for (std::size_t t = 1; t < workers.size(); ++t)
        threads.emplace_back([&run, &worker = *workers[t]] { run(worker); });
    run(*workers.front());
    for (std::thread& thread : threads)
        thread.join();
    if (failure)
        std::rethrow_exception(failure);
}

} // namespace velmarin
