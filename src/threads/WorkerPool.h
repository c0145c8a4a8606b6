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

/// A few threads for work without side effects: reading, decoding, reducing. A caller that needs them makes a pool and
/// ends it; there is none that lives as long as the program. Windows, messages and the models of windows belong to the
/// main thread and are not to be touched by the work.
class WorkerPool {
  public:
    /// As many threads as the process has processor cores.
    WorkerPool() : WorkerPool(coreCount()) {}
    /// At least one. Throws std::system_error if not even one can be started.
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
