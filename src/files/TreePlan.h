#pragma once

#include "files/Result.h"
#include "files/Work.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include <sys/stat.h>

namespace velmarin {

/// Whether symbolic links are copied as links, or replaced by copies of what they lead to.
enum class Links { Kept, Followed };

struct PlannedItem {
    enum class Kind { Folder, File, Link };
    /// Its path below the top; empty for the top itself. No fs::path: a plan can hold very many.
    std::string name;
    Kind kind = Kind::File;
    std::uint64_t size = 0; ///< of a file
    std::string leadsTo;    ///< of a link
    mode_t permissions = 0;
    timespec read{}, changed{};
};

/// Everything that a copy will consist of. It is planned before the first byte is written, so that obstacles and the
/// amount of work are known.
struct TreePlan {
    std::filesystem::path source;
    /// The top first, every folder before what is in it. Empty if nothing can be copied.
    std::vector<PlannedItem> items;
    std::uint64_t bytes = 0;
    /// What no copy can hold: FIFOs, devices and sockets; if links are followed, those that lead nowhere, in a
    /// circle, or to a folder that the destination lies in. The copy counts as whole without them.
    Failures leftOut;
    /// What ought to be in the copy and cannot be read: without it the copy would not be whole.
    Failures unreadable;

    std::filesystem::path pathOf(const PlannedItem& item) const { return placeOf(item, source); }
    /// Where an item is in a copy whose top is `top`.
    static std::filesystem::path placeOf(const PlannedItem& item, const std::filesystem::path& top) {
        return item.name.empty() ? top : std::filesystem::path(top.native() + "/" + item.name);
    }
    bool whole() const { return !items.empty() && unreadable.empty(); }
};

/// How many paths, through followed links, may lead to one folder. Without a limit, a few folders that link to each
/// other could give a plan without end.
inline constexpr int kMostWays = 64;

/// A copy leaves out the hidden leftovers of earlier runs (files/TemporaryName.h). Its relative links lead to the same
/// targets as the original's: links to a place outside are rewritten, and broken ones count as unreadable. A move takes
/// everything as it is.
enum class Purpose { Copy, Move };

/// Plans the copy of `source` into the folder `destination`. With Links::Followed the source itself is followed too.
/// `whole` is the folder whose visible members are copied together with `source`, if that is one of them: links between
/// these members stay as they are.
TreePlan planTree(const std::filesystem::path& source, const std::filesystem::path& destination, Links links,
                  Purpose purpose, Work& work, const std::filesystem::path& whole = {});

/// Whether `item` is the folder `folder` or lies in it, however the two are reached.
bool liesIn(const std::filesystem::path& item, const std::filesystem::path& folder);

} // namespace velmarin
