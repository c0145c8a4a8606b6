#include "book/DraftRun.h"

#include "book/ScanPageReader.h"
#include "book/TakenPages.h"
#include "scan/OpenScan.h"

#include <algorithm>
#include <condition_variable>
#include <deque>
#include <exception>
#include <mutex>
#include <system_error>
#include <thread>
#include <utility>

namespace velmarin {

namespace {

/// How soon a run sees that it is asked to stop, and how often it reports.
constexpr std::chrono::milliseconds kBetweenLooks(200);

std::shared_ptr<const WordList> wordsFor(const BookSettings& settings) {
    auto words = std::make_shared<WordList>(WordList::ofLanguages(settings.languages));
    for (const std::string& list : settings.wordLists)
        words->add(FolderItem(list));
    return words;
}

/// Reads pages of a scan in threads of its own. What they read is taken by one.
class ReadingThreads {
  public:
    ReadingThreads(const BookFolder& book, const ScanSource& scan, const PageTaker& taker, std::vector<int> pages,
                   const std::atomic<bool>& stop)
        : book_(book), scan_(scan), taker_(taker), pages_(std::move(pages)), stop_(stop),
          words_(pages_.empty() ? nullptr : wordsFor(book.settings())) {
        const std::size_t cores = std::max(std::thread::hardware_concurrency(), 1U);
        const std::size_t wanted = std::min(cores, pages_.size());
        running_ = wanted;
        try {
            while (threads_.size() < wanted)
                threads_.emplace_back([this] { work(); });
        } catch (const std::system_error&) { // fewer threads read as well
            if (threads_.empty())
                throw;
            const std::lock_guard lock(mutex_);
            running_ -= wanted - threads_.size();
        }
    }
    ~ReadingThreads() { end(); }
    ReadingThreads(const ReadingThreads&) = delete;
    ReadingThreads& operator=(const ReadingThreads&) = delete;

    /// What was read since the last call, waiting for it a moment. nullopt once all threads have ended.
    std::optional<std::deque<std::pair<int, ReadScanPage>>> take() {
        std::unique_lock lock(mutex_);
        changed_.wait_for(lock, kBetweenLooks, [this] { return !read_.empty() || running_ == 0; });
        if (read_.empty() && running_ == 0)
            return std::nullopt;
        return std::exchange(read_, {});
    }
    /// Lets no thread begin another page.
    void end() { ended_ = true; }

  private:
    bool mayContinue() const { return !stop_ && !ended_; }

    void work() {
        try {
            readAll();
        } catch (const std::exception& error) { // memory ended before the first page
            const std::lock_guard lock(mutex_);
            read_.emplace_back(0, ReadScanPage{.result = Failure{book_.folder(), error.what()}, .fatal = true});
        }
        const std::lock_guard lock(mutex_);
        --running_;
        changed_.notify_one();
    }

    void readAll() {
        ScanPageReader reader(book_, scan_, taker_, words_);
        for (std::size_t i = next_++; i < pages_.size() && mayContinue(); i = next_++) {
            PageOptions options = pageOptions(book_.settings().pages, pages_[i]);
            options.mayContinue = [this] { return mayContinue(); };
            ReadScanPage page = reader.read(pages_[i], options);
            if (!page.result && !mayContinue())
                break;
            const std::lock_guard lock(mutex_);
            read_.emplace_back(pages_[i], std::move(page));
            changed_.notify_one();
        }
    }

    const BookFolder& book_;
    const ScanSource& scan_;
    const PageTaker& taker_;
    std::vector<int> pages_;
    const std::atomic<bool>& stop_;
    std::shared_ptr<const WordList> words_;
    std::atomic<bool> ended_ = false;
    std::atomic<std::size_t> next_ = 0;
    std::mutex mutex_;
    std::condition_variable changed_;
    std::deque<std::pair<int, ReadScanPage>> read_;
    std::size_t running_ = 0;
    std::vector<std::jthread> threads_; ///< the first to be destroyed
};

/// One call of readBook.
class BookReader {
  public:
    BookReader(BookFolder& book, const std::atomic<bool>& stop, std::function<void(const ReadingProgress&)> report)
        : book_(book), stop_(stop), report_(std::move(report)) {}

    BookReadingResult run() {
        outcome_.result = dropStalePages(book_);
        const OpenedScan opened = outcome_.result ? openScan(book_.source()) : OpenedScan();
        if (outcome_.result && !opened.scan)
            outcome_.result = opened.result;
        if (outcome_.result)
            outcome_.result = log_.open(book_.readingsFile());
        if (outcome_.result)
            readAll(*opened.scan);
        return std::move(outcome_);
    }

  private:
    bool isRead(const std::vector<BookPicture>& pages) const {
        return !pages.empty() && std::all_of(pages.begin(), pages.end(), [&](const BookPicture& page) {
            const auto found = readings_.find(page.name);
            return found != readings_.end() && isReadingOf(found->second, readingToBe(page.picture, book_.settings()));
        });
    }

    void readAll(const ScanSource& scan) {
        const PageTaker taker(book_, scan);
        readings_ = book_.readings();
        std::vector<int> pages;
        for (int page = 1; page <= static_cast<int>(scan.pageCount()); ++page) {
            if (book_.settings().leavesOut(page))
                continue;
            ++progress_.of;
            if (isRead(taker.found(page)))
                ++progress_.done;
            else
                pages.push_back(page);
        }
        if (progress_.of == 0)
            outcome_.result = Failure{book_.source(), "it has no pages"};
        else
            readPages(scan, taker, std::move(pages));
    }

    void readPages(const ScanSource& scan, const PageTaker& taker, std::vector<int> pages) {
        began_ = std::chrono::steady_clock::now();
        ReadingThreads threads(book_, scan, taker, std::move(pages), stop_);
        while (auto read = threads.take()) {
            for (const auto& [number, page] : *read)
                if (outcome_.result && !keep(page))
                    threads.end();
            reportProgress();
        }
        if (const Result flushed = log_.flush(); outcome_.result && !flushed)
            outcome_.result = flushed;
        outcome_.stopped = outcome_.result && progress_.done < progress_.of;
    }

    /// False if the run has to end.
    bool keep(const ReadScanPage& page) {
        ++progress_.done;
        ++outcome_.read;
        if (!page.result && page.fatal)
            outcome_.result = page.result;
        else if (!page.result)
            outcome_.failures.push_back(page.result.failure());
        for (const LoggedReading& reading : page.readings)
            if (outcome_.result)
                outcome_.result = log_.add(reading);
        return static_cast<bool>(outcome_.result);
    }

    void reportProgress() {
        constexpr std::size_t kEnoughToEstimate = 8;
        if (outcome_.read >= kEnoughToEstimate) {
            const auto passed = std::chrono::steady_clock::now() - began_;
            progress_.left =
                std::chrono::ceil<std::chrono::seconds>(passed * (progress_.of - progress_.done) / outcome_.read);
        }
        if (report_)
            report_(progress_);
    }

    BookFolder& book_;
    const std::atomic<bool>& stop_;
    std::function<void(const ReadingProgress&)> report_;
    BookReadingResult outcome_;
    ReadingProgress progress_;
    Readings readings_;
    ReadingLog log_;
    std::chrono::steady_clock::time_point began_ = {};
};

} // namespace

BookReadingResult readBook(BookFolder& book, const std::atomic<bool>& stop,
                           const std::function<void(const ReadingProgress&)>& report) {
    return BookReader(book, stop, report).run();
}

} // namespace velmarin
