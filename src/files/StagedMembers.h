#pragma once

#include "files/Descriptor.h"
#include "files/Result.h"
#include "files/TemporaryName.h"
#include "files/TreeCopy.h"

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace velmarin {

/// New members of a folder, made whole and flushed in a hidden folder inside it (files/TemporaryName.h) before they get
/// their names. Either one member is moved into place, or several change places with the old ones of their names:
///
///     copy or placeOf, listed by add, for each member; beginSwap; swap, once or more; keepOld or forgetOld
///
/// If the process is killed before keepOld or forgetOld, clearLeftovers undoes its swaps in a later run. The object
/// locks the hidden folder, so that clearLeftovers leaves it alone while the process lives. The destructor undoes an
/// unfinished swap and removes the hidden folder, unless replaced members still have to be moved out of it.
class StagedMembers {
  public:
    /// nullopt with errno if the hidden folder cannot be made.
    static std::optional<StagedMembers> in(const std::filesystem::path& folder);

    StagedMembers(StagedMembers&& other) noexcept;
    StagedMembers& operator=(StagedMembers&&) = delete;
    ~StagedMembers();

    /// Where a new member is to be made.
    std::filesystem::path placeOf(std::string_view name) const;
    /// Says that a member has been made there, whole and flushed.
    void add(std::string name) { names_.push_back(std::move(name)); }
    /// Copies what was planned as a member of that name, and adds it if it is whole.
    CopyOutcome copy(const TreePlan& plan, const std::string& name, Work& work, Failures& failures);

    /// Moves a member to `target`, on the same file system. The name must be free; a folder may also replace an empty
    /// folder. False with errno.
    bool moveTo(std::string_view name, const std::filesystem::path& target);
    /// Swaps a new member with the old one of its name, in one step. False with errno if the file system cannot.
    bool exchange(std::string_view name);

    /// Writes down which members are to be swapped. False with errno.
    bool beginSwap();
    /// Moves the old members of these names aside (also those whose names differ only in case or composition), in the
    /// order given, then the new ones into their places, in reverse order. If that fails, it adds a failure, puts these
    /// members back and returns false. If they cannot be put back, it adds a second failure and abandons the object.
    bool swap(const std::vector<std::string>& names, Work& work, Failures& failures);
    /// Takes all swaps back. Otherwise returns false with a failure, and the object is abandoned.
    bool undo(Work& work, Failures& failures);
    /// Whether a swap could not be taken back: the hidden folder stays as it is, for clearLeftovers in a later run.
    bool abandoned() const { return hidden_.empty(); }
    /// Ends the swaps; the old members are to be removed. False with errno, and then undo is to be called.
    bool forgetOld();
    /// Ends the swaps; the old members are the caller's to move from the places that it returns. Returns nullopt
    /// with errno on failure, and then undo is to be called.
    std::optional<std::vector<std::filesystem::path>> keepOld();
    /// Returns from keepOld to before it. False with errno.
    bool undoKeepOld();

    /// Removes what is hidden. False with errno if something of it is left.
    bool drop(Work& work);

  private:
    explicit StagedMembers(std::filesystem::path hidden, Descriptor lock)
        : hidden_(std::move(hidden)), lock_(std::move(lock)) {}

    std::filesystem::path folder() const { return hidden_.parent_path(); }
    bool becomes(TemporaryKind kind);
    bool putAside(const std::filesystem::path& old, Work& work, Failures& failures);
    bool abandon(Failures& failures);
    bool putIn(const std::string& name, Failures& failures);

    std::filesystem::path hidden_;
    Descriptor lock_;
    std::vector<std::string> names_;
};

} // namespace velmarin
