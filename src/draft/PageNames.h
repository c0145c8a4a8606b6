#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <unordered_map>

namespace velmarin {

/// Places of pages by their names. A page whose picture has another extension now, because it was turned, is the same.
class PageNames {
  public:
    /// Of pages with the same name, the first counts.
    void add(const std::string& name, std::size_t place);
    /// nullopt if there is no such page.
    std::optional<std::size_t> placeOf(const std::string& name) const;

  private:
    std::unordered_map<std::string, std::size_t> byName_, byStem_;
};

} // namespace velmarin
