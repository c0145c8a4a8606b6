#pragma once

#include "files/FileCopy.h"
#include "files/Work.h"

#include <filesystem>
#include <optional>
#include <vector>

namespace velmarin {

/// A member of an installed copy that has gone to the backup folder, whole and flushed, and whose name is free now.
class MovedOut {
  public:
    /// Renames `member` into `backup`; between file systems copies it there (by way of a hidden name beside `backup`),
    /// compares, and only then takes its name away. Nothing, and one failure or more, where the member stays.
    static std::optional<MovedOut> toBackup(const std::filesystem::path& member, const std::filesystem::path& backup,
                                            Work& work, std::vector<CopyFailure>& failures);

    /// Gives it its place and name back. False with errno where it stays in the backup folder.
    bool putBack() const;
    /// To be called once something new has its name: removes what a copy between file systems has left. False with
    /// errno where something of it stays, under a hidden name.
    bool finish(Work& work) const;

    const std::filesystem::path& inBackup() const { return inBackup_; }

  private:
    MovedOut(std::filesystem::path member, std::filesystem::path inBackup, std::filesystem::path original)
        : member_(std::move(member)), inBackup_(std::move(inBackup)), original_(std::move(original)) {}

    std::filesystem::path member_;
    std::filesystem::path inBackup_;
    /// What was the member: in the backup folder, or under a hidden name where it stood.
    std::filesystem::path original_;
};

} // namespace velmarin
