#include "cli/PictureNames.h"

#include "cli/LineCheck.h"
#include "view/Decoders.h"

#include <algorithm>
#include <atomic>
#include <exception>
#include <new>
#include <thread>

namespace velmarin {

void PictureNames::add(std::string_view name, std::uint64_t line) {
    const auto [mention, isNew] = mentions_.try_emplace(std::string(name), Mention{line, 0});
    if (isNew)
        names_.emplace_back(name);
    ++mention->second.lines;
}

std::string PictureNames::furtherLines(const std::string& name) const {
    const std::uint64_t more = mentions_.at(name).lines - 1;
    if (more == 0)
        return {};
    return more == 1 ? "; one more line names it" : "; " + std::to_string(more) + " more lines name it";
}

std::vector<NamedPicture> PictureNames::look(const FolderListing& folder, std::vector<Finding>& findings) const {
    std::vector<NamedPicture> found;
    for (const std::string& name : names_) {
        const std::uint64_t line = firstLine(name);
        const FolderItem file = folder.Child(name);
        if (isMemberName(name) && file.regularFile())
            found.push_back({file, namedIn_, line, name});
        else
            findings.push_back(
                {namedIn_, line,
                 "names " + inQuotes(name) + ", which is not in " + folder.folder().Name() + furtherLines(name)});
    }
    return found;
}

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

void decodeAll(const std::vector<NamedPicture>& pictures, std::vector<Finding>& findings) {
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
        std::vector<std::jthread> helpers;
        for (std::size_t i = 1; i < count; ++i)
            helpers.emplace_back(work);
        work();
    }
    for (std::size_t i = 0; i < distinct.size(); ++i) {
        if (!faults[i].empty())
            findings.push_back(
                {distinct[i]->namedIn, distinct[i]->line, inQuotes(distinct[i]->name) + " " + faults[i]});
    }
}

} // namespace velmarin
