#include "workshop/PictureShelf.h"

#include <algorithm>
#include <cstdint>
#include <exception>
#include <utility>

namespace velmarin {

namespace {

/// Enough for the strips on the screen and some pages ahead, at 600 dpi in grey.
constexpr std::int64_t kMostBytes = 400'000'000;
constexpr std::size_t kFewest = 3;

std::int64_t bytesOf(const Picture& picture) {
    return picture ? std::int64_t{picture.Width()} * picture.Height() * picture.depth() / 8 : 0;
}

DecodedPicture decodeOrTellWhy(const FolderItem& file) {
    try {
        return decodePicture(file);
    } catch (const std::exception& failure) {
        return {.picture = {}, .reason = failure.what()};
    }
}

} // namespace

PictureShelf::PictureShelf(QObject* parent) : QObject(parent), thread_([this] { work(); }) {}

PictureShelf::~PictureShelf() {
    {
        const std::lock_guard lock(mutex_);
        ending_ = true;
    }
    wake_.notify_one();
    thread_.join();
}

const DecodedPicture* PictureShelf::find(const FolderItem& file) {
    const auto found = std::find_if(shelved_.begin(), shelved_.end(), [&](const Shelved& s) { return s.file == file; });
    if (found == shelved_.end())
        return nullptr;
    shelved_.splice(shelved_.begin(), shelved_, found);
    return &found->decoded;
}

void PictureShelf::want(const std::vector<FolderItem>& files) {
    std::deque<FolderItem> missing;
    for (const FolderItem& file : files)
        if (find(file) == nullptr)
            missing.push_back(file);
    {
        const std::lock_guard lock(mutex_);
        wanted_ = std::move(missing);
    }
    wake_.notify_one();
}

void PictureShelf::work() {
    for (;;) {
        Shelved next;
        {
            std::unique_lock lock(mutex_);
            wake_.wait(lock, [this] { return ending_ || !wanted_.empty(); });
            if (ending_)
                return;
            next.file = std::move(wanted_.front());
            wanted_.pop_front();
        }
        next.decoded = decodeOrTellWhy(next.file);
        QMetaObject::invokeMethod(
            this, [this, next = std::move(next)] { shelve(next); }, Qt::QueuedConnection);
    }
}

void PictureShelf::shelve(Shelved shelved) {
    const FolderItem file = shelved.file;
    shelved_.remove_if([&file](const Shelved& each) { return each.file == file; });
    shelved_.push_front(std::move(shelved));
    std::int64_t bytes = 0;
    std::size_t count = 0;
    const auto tooMuch = [&](const Shelved& each) {
        bytes += bytesOf(each.decoded.picture);
        return ++count > kFewest && bytes > kMostBytes;
    };
    shelved_.erase(std::find_if(shelved_.begin(), shelved_.end(), tooMuch), shelved_.end());
    emit ready(file);
}

} // namespace velmarin
