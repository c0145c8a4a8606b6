#pragma once

#include "files/Descriptor.h"
#include "files/TreePlan.h"

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace velmarin {

/// A copy under a hidden name (files/TemporaryName.h), whole and flushed to the disk, on its way to its own name.
/// What has the hidden name when the object dies is removed; a run that is killed leaves it behind for
/// clearLeftoverTemporaries, which the lock that the object holds keeps off meanwhile.
class StagedItem {
  public:
    /// Copies what was planned into `folder`. Nothing, and one failure more, where not all of it could be: then
    /// nothing is left of it.
    static std::optional<StagedItem> copy(const TreePlan& plan, const std::filesystem::path& folder, Work& work,
                                          std::vector<CopyFailure>& failures);

    StagedItem(StagedItem&& other) noexcept;
    StagedItem& operator=(StagedItem&&) = delete;
    ~StagedItem();

    const std::filesystem::path& path() const { return path_; }

    /// Gives it its name, which must be free, in a folder of the same file system. False with errno.
    bool moveTo(const std::filesystem::path& target);
    /// The same where the name may belong to a folder, as long as that is empty.
    bool moveToEvenOverEmptyFolder(const std::filesystem::path& target);
    /// Gives it its name in the place of the item `there` of the same folder, whose name may differ in case, and which
    /// gets a hidden name. False with errno where that did not happen.
    bool moveInPlaceOf(const std::filesystem::path& there, const std::filesystem::path& target);

    /// Removes what has the hidden name now. False with errno where something of it is left.
    bool drop(Work& work);

  private:
    explicit StagedItem(std::filesystem::path path) : path_(std::move(path)) {}

    class Copier;
    std::filesystem::path path_;
    Descriptor lock_;
};

} // namespace velmarin
