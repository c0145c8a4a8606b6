#include "book/AllPages.h"

#include <algorithm>
#include <chrono>
#include <exception>
#include <new>
#include <thread>
#include <utility>

namespace velmarin {

namespace {

/// The threads of one call, and what they have done.
class PageThreads {
  public:
    PageThreads(const ScanSource& scan, std::filesystem::path folder, const std::atomic<bool>& stop)
        : scan_(scan), folder_(std::move(folder)), stop_(stop), names_(scan.pageCount()) {
        const std::size_t cores = std::max(std::thread::hardware_concurrency(), 1U);
        running_ = std::min(cores, names_.size());
        for (std::size_t i = running_; i > 0; --i)
            threads_.emplace_back([this] {
                work();
                --running_;
            });
    }

    bool running() const { return running_ > 0; }
    std::size_t done() const { return done_; }

    AllPages take() {
        threads_.clear();
        return {.names = std::move(names_), .result = std::move(result_)};
    }

  private:
    PagePictures takeOut(std::size_t page, const PageOptions& options) const {
        try {
            return scan_.takeOut(page, options, folder_);
        } catch (const std::bad_alloc&) {
            return {.result = Failure{FolderItem(folder_), "a page needs more memory than there is"}};
        } catch (const std::exception& error) {
            return {.result = Failure{FolderItem(folder_), error.what()}};
        }
    }

    void work() {
        const PageOptions options{.mayContinue = [this] { return !stop_ && !failed_; }};
        for (std::size_t page = next_++; page < names_.size() && !failed_; page = next_++) {
            const PagePictures pictures = takeOut(page, options);
            if (pictures.result)
                names_[page] = pictures.files.front().filename().string();
            else if (!failed_.exchange(true))
                result_ = pictures.result;
            ++done_;
        }
    }

    const ScanSource& scan_;
    std::filesystem::path folder_;
    const std::atomic<bool>& stop_;
    std::vector<std::string> names_;
    Result result_; ///< set by the thread that has set failed_
    std::atomic<bool> failed_ = false;
    std::atomic<std::size_t> next_ = 0, done_ = 0, running_ = 0;
    std::vector<std::jthread> threads_; ///< the first to be destroyed
};

} // namespace

AllPages takeAllPages(const ScanSource& scan, const std::filesystem::path& folder, const std::atomic<bool>& stop,
                      const std::function<void(const ReadingProgress&)>& report) {
    constexpr std::chrono::milliseconds kBetweenLooks(100);
    PageThreads threads(scan, folder, stop);
    while (threads.running()) {
        report({.done = threads.done(), .of = scan.pageCount()});
        std::this_thread::sleep_for(kBetweenLooks);
    }
    return threads.take();
}

} // namespace velmarin
