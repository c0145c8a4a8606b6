#include "workshop/ReadingRun.h"

#include <exception>

#include <sys/resource.h>

namespace velmarin {

namespace {

using Clock = std::chrono::steady_clock;

constexpr std::chrono::seconds kBetweenReadings(2);
/// The share of the time that goes into showing what was read, at most.
constexpr int kShareOfReadings = 10;
/// Of fewer pages it is not known where their guide words are.
constexpr std::size_t kFewestPages = 20;
constexpr int kNiceness = 5;

} // namespace

ReadingRun::ReadingRun(BookFolder& book, QObject* parent) : QObject(parent), book_(book) {}

ReadingRun::~ReadingRun() {
    ending_ = true;
    stop();
    if (running())
        thread_.join();
}

void ReadingRun::start() {
    if (running())
        return;
    stop_ = false;
    nextReadings_ = {};
    thread_ = std::thread([this] { work(); });
}

void ReadingRun::work() {
    // The threads and programs that read inherit it, so that the window stays quick while they use all processors.
    ::setpriority(PRIO_PROCESS, 0, kNiceness);
    BookReadingResult result;
    try {
        handOverReadings();
        result = readBook(book_, stop_, [this](const ReadingProgress& progress) { report(progress); });
        handOverReadings();
    } catch (const std::exception& failure) {
        result.result = Failure{book_.folder(), failure.what()};
    }
    QMetaObject::invokeMethod(
        this,
        [this, result] {
            thread_.join();
            emit ended(result);
        },
        Qt::QueuedConnection);
}

void ReadingRun::report(const ReadingProgress& progress) {
    QMetaObject::invokeMethod(
        this, [this, progress] { emit progressed(progress); }, Qt::QueuedConnection);
    if (Clock::now() >= nextReadings_ && progress.done >= kFewestPages)
        handOverReadings();
}

void ReadingRun::handOverReadings() {
    if (ending_)
        return;
    const Clock::time_point began = Clock::now();
    auto readings = std::make_shared<const BookReadings>(book_);
    QMetaObject::invokeMethod(
        this, [this, readings] { emit read(readings); }, Qt::QueuedConnection);
    const Clock::duration cost = Clock::now() - began;
    nextReadings_ = Clock::now() + std::max<Clock::duration>(kBetweenReadings, kShareOfReadings * cost);
}

} // namespace velmarin
