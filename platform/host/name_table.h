/// Finds a parameter of an object by its own name.
#ifndef PLATFORM_HOST_NAME_TABLE_H
#define PLATFORM_HOST_NAME_TABLE_H

#include <cstddef>
#include <string_view>
#include <vector>

namespace host {

/// The places of names in a list, hashed once for all objects of a kind. The names' text must
/// outlive the table.
class NameTable {
 public:
  static constexpr std::size_t kNone = static_cast<std::size_t>(-1);

  NameTable() = default;
  explicit NameTable(const std::vector<std::string_view>& names);

  std::size_t find(std::string_view name) const;  ///< its place, or kNone

 private:
  struct Slot {
    std::string_view name;
    std::size_t place = kNone;
  };

  std::vector<Slot> slots_;  ///< a power of two of them, at least half of them free; or none
};

}  // namespace host

#endif  // PLATFORM_HOST_NAME_TABLE_H
