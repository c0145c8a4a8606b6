#pragma once

#include <condition_variable>
#include <deque>
#include <functional>
#include <future>
#include <memory>
#include <mutex>
#include <thread>
#include <type_traits>
#include <utility>
#include <vector>

namespace velmarin {

/// A few threads for work without side effects: reading, decoding, scaling. A caller makes a pool for one job and
/// destroys it; no pool lives as long as the program. Windows, messages and the models of windows belong to the main
/// thread, and the work must not touch them.
class WorkerPool {
  public:
    /// As many threads as the machine has processor cores.
    WorkerPool() : WorkerPool(coreCount()) {}
    /// At least one; fewer than asked for if the system starts no more. Throws std::system_error if it starts none.
    explicit WorkerPool(unsigned threads);
    /// Drops the work that has not begun, and waits for the end of what has.
    ~WorkerPool();
    WorkerPool(const WorkerPool&) = delete;
    WorkerPool& operator=(const WorkerPool&) = delete;

    /// Begins each work in the order of the calls. What it returns or throws is in the future; the future of work that
    /// was dropped throws std::future_error.
    template <typename Work> std::future<std::invoke_result_t<Work>> run(Work work) {
        auto task = std::make_shared<std::packaged_task<std::invoke_result_t<Work>()>>(std::move(work));
        auto result = task->get_future();
        add([task = std::move(task)] { (*task)(); });
        return result;
    }

    /// Drops the work that has not begun.
    void drop();

    static unsigned coreCount();

  private:
    using Task = std::function<void()>;

    void add(Task task);
    void work();

    std::mutex mutex_;
    std::condition_variable changed_;
    std::deque<Task> waiting_;
    bool ending_ = false;
    std::vector<std::jthread> threads_; // last, so that they end before what they use
};

} // namespace velmarin
