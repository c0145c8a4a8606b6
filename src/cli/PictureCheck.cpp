#include "cli/PictureCheck.h"

#include "cli/LineCheck.h"
#include "view/Decoders.h"

#include <algorithm>
#include <atomic>
#include <exception>
#include <new>
#include <string>
#include <thread>
#include <unordered_set>

namespace velmarin {

namespace {

/// Why a picture cannot be decoded completely; empty if it can.
std::string faultOf(const FolderItem& file) {
    try {
        const DecodedPicture decoded = decodePicture(file);
        if (decoded.picture.isNil())
            return "cannot be decoded: " + decoded.reason;
        return decoded.reason.empty() ? std::string() : "can be decoded only in part: " + decoded.reason;
    } catch (const std::bad_alloc&) {
        return "cannot be decoded: not enough memory";
    } catch (const std::exception& error) {
        return std::string("cannot be decoded: ") + error.what();
    }
}

std::vector<const NamedPicture*> distinctFiles(const std::vector<NamedPicture>& pictures) {
    std::unordered_set<std::string> seen;
    std::vector<const NamedPicture*> distinct;
    for (const NamedPicture& picture : pictures) {
        if (seen.insert(picture.file.path().native()).second)
            distinct.push_back(&picture);
    }
    return distinct;
}

} // namespace

void checkPictures(const std::vector<NamedPicture>& pictures, Findings& findings) {
    const std::vector<const NamedPicture*> distinct = distinctFiles(pictures);
    std::vector<std::string> faults(distinct.size());
    std::atomic<std::size_t> next = 0;
    const auto work = [&] {
        for (std::size_t i = next++; i < distinct.size(); i = next++)
            faults[i] = faultOf(distinct[i]->file);
    };
    {
        // More threads would need too much memory for large pages, and the disk limits the speed anyway.
        constexpr std::size_t kMostThreads = 4;
        const std::size_t count =
            std::min<std::size_t>({std::max(std::thread::hardware_concurrency(), 1u), distinct.size(), kMostThreads});
        std::vector<std::jthread> threads;
        for (std::size_t i = 1; i < count; ++i)
            threads.emplace_back(work);
        work();
    }
    for (std::size_t i = 0; i < distinct.size(); ++i) {
        if (!faults[i].empty())
            findings.push_back(
                {distinct[i]->namedIn, distinct[i]->line, inQuotes(distinct[i]->name) + " " + faults[i]});
    }
}

} // namespace velmarin
