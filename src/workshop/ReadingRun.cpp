#include "workshop/ReadingRun.h"

#include <exception>

namespace velmarin {

namespace {

using Clock = std::chrono::steady_clock;

constexpr std::chrono::seconds kBetweenReadings(2);
/// The share of the time that goes into showing what was read, at most.
constexpr int kShareOfReadings = 10;

} // namespace

ReadingRun::ReadingRun(BookFolder& book, QObject* parent) : QObject(parent), book_(book) {}

ReadingRun::~ReadingRun() {
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
    if (Clock::now() >= nextReadings_)
        handOverReadings();
}

void ReadingRun::handOverReadings() {
    const Clock::time_point began = Clock::now();
    auto readings = std::make_shared<const BookReadings>(book_);
    QMetaObject::invokeMethod(
        this, [this, readings] { emit read(readings); }, Qt::QueuedConnection);
    const Clock::duration cost = Clock::now() - began;
    nextReadings_ = Clock::now() + std::max<Clock::duration>(kBetweenReadings, kShareOfReadings * cost);
}

} // namespace velmarin
