#include "files/TreeCompare.h"
#include "files/ReadOnlyFile.h"

#include <algorithm>
#include <cstring>
#include <optional>

#include <fcntl.h>

namespace velmarin {

namespace fs = std::filesystem;

namespace {

constexpr std::size_t kPiece = std::size_t{1} << 20;

bool sameBytes(const fs::path& one, const fs::path& other, Work& work) {
    const auto a = ReadOnlyFile::open(FolderItem(one));
    const auto b = ReadOnlyFile::open(FolderItem(other));
    if (!a || !b || a->stamp().size != b->stamp().size)
        return false;
    // What was just written is to be read from the disk, not from the system's cache.
    ::posix_fadvise(b->descriptor(), 0, 0, POSIX_FADV_DONTNEED);
    std::string left(kPiece, '\0');
    std::string right(kPiece, '\0');
    const std::uint64_t size = a->stamp().size;
    for (std::uint64_t at = 0; at < size;) {
        const std::size_t count = static_cast<std::size_t>(std::min<std::uint64_t>(kPiece, size - at));
        if (a->read(at, left.data(), count) != count || b->read(at, right.data(), count) != count ||
            std::memcmp(left.data(), right.data(), count) != 0)
            return false;
        at += count;
        work.pass();
    }
    return true;
}

bool sameItem(const PlannedItem& a, const PlannedItem& b) {
    return a.name == b.name && a.kind == b.kind && a.size == b.size && a.leadsTo == b.leadsTo;
}

} // namespace

bool sameContents(const TreePlan& plan, const fs::path& other, Work& work) {
    const TreePlan there = planTree(other, {}, Links::Kept, Purpose::Move, work);
    if (!plan.whole() || !there.whole() || !there.leftOut.empty() ||
        !std::equal(plan.items.begin(), plan.items.end(), there.items.begin(), there.items.end(), sameItem))
        return false;
    return std::all_of(plan.items.begin(), plan.items.end(), [&](const PlannedItem& item) {
        if (item.kind != PlannedItem::Kind::File)
            return true;
        return sameBytes(plan.pathOf(item), TreePlan::placeOf(item, other), work);
    });
}

} // namespace velmarin
