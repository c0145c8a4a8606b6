#pragma once

#include "files/FolderItem.h"

#include <functional>
#include <string>
#include <vector>

namespace velmarin {

/// The user dictionaries of a group, as the pop-up `UserDicPU` lists them, and the chosen one.
class UserDictionaryList {
  public:
    /// Replaces the list by the visible folders and links to folders in `folder`, in the order of that folder.
    /// `showRow` is called for each of them, `yield` for each item, and may let events run. The number of the chosen
    /// row stays, even if it now means another dictionary or none.
    void read(const FolderItem& folder, const std::function<void(const std::string& name)>& showRow,
              const std::function<void()>& yield);

    /// A row that does not exist means none.
    void choose(int row);
    /// The chosen row, from 0; -1 for none.
    int chosenRow() const { return row_; }
    /// The folder of the chosen dictionary; nullptr for none. Valid until the next `read`.
    const FolderItem* chosen() const;

  private:
    std::vector<FolderItem> folders_;
    int row_ = -1;
};

} // namespace velmarin
