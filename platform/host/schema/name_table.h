/// Finds a parameter of an object by its own name.
#ifndef PLATFORM_HOST_NAME_TABLE_H
#define PLATFORM_HOST_NAME_TABLE_H

#include <cstddef>
#include <string_view>
#include <vector>

#include "schema/text_hash.h"

namespace host {

/// The places of names in a list, hashed once for all objects of a kind. The names' text must
/// outlive the table.
class NameTable {
 public:
  static constexpr std::size_t kNone = static_cast<std::size_t>(-1);

  NameTable() = default;
  explicit NameTable(const std::vector<std::string_view>& names);

  std::size_t find(std::string_view name) const {  ///< its place, or kNone
    if (slots_.empty()) return kNone;
    const std::size_t last = slots_.size() - 1;
    std::size_t at = TextHash::of_ends(name) & last;
    while (slots_[at].place != kNone && slots_[at].name != name) at = (at + 1) & last;
    return slots_[at].place;
  }

 private:
  struct Slot {
    std::string_view name;
    std::size_t place = kNone;
  };

  std::vector<Slot> slots_;  ///< a power of two of them, at least half of them free; or none
};

}  // namespace host

#endif  // PLATFORM_HOST_NAME_TABLE_H
