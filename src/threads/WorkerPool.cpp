#include "threads/WorkerPool.h"

#include <algorithm>
#include <exception>

namespace velmarin {

WorkerPool::WorkerPool(unsigned threads) {
    for (unsigned i = 0; i < std::max(threads, 1u); ++i) {
        try {
            threads_.emplace_back([this] { work(); });
        } catch (const std::exception&) { // no thread, or no memory for one
            if (threads_.empty())
                throw;
            break; // fewer threads do the same work
        }
    }
}

WorkerPool::~WorkerPool() {
    {
        const std::scoped_lock lock(mutex_);
        ending_ = true;
    }
    drop();
    changed_.notify_all();
}

void WorkerPool::drop() {
    std::deque<Task> dropped; // ends outside the lock
    const std::scoped_lock lock(mutex_);
    dropped.swap(waiting_);
}

unsigned WorkerPool::coreCount() {
    return std::max(std::thread::hardware_concurrency(), 1u);
}

void WorkerPool::add(Task task) {
    {
        const std::scoped_lock lock(mutex_);
        waiting_.push_back(std::move(task));
    }
    changed_.notify_one();
}

void WorkerPool::work() {
    std::unique_lock lock(mutex_);
    for (;;) {
        changed_.wait(lock, [this] { return ending_ || !waiting_.empty(); });
        if (waiting_.empty())
            return;
        const Task task = std::move(waiting_.front());
        waiting_.pop_front();
        lock.unlock();
        task();
        lock.lock();
    }
}

} // namespace velmarin
