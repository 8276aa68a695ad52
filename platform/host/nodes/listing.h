/// What an ObjectType enumerates.
#ifndef PLATFORM_HOST_LISTING_H
#define PLATFORM_HOST_LISTING_H

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "nodes/node.h"

namespace host {

/// The instances of a type in the order of a walk. What a walk needs of them lies side by side, so
/// that it takes as long for one of thousands as for one of a few.
class Listing {
 public:
  Listing(const Enumeration& enumeration, const std::vector<const Node*>& objects);

  std::size_t size() const { return ends_.size(); }
  /// Full name of an instance. Stays good when the object goes.
  std::string_view name(std::size_t place) const {
    const std::size_t start = place > 0 ? ends_[place - 1] : 0;
    return std::string_view(names_).substr(start, ends_[place] - start);
  }

  /// None when the type enumerates objects.
  const std::vector<Cell>& cells() const { return cells_; }

 private:
  std::string names_;  ///< one behind the other
  std::vector<std::size_t> ends_;
  std::vector<Cell> cells_;
};

}  // namespace host

#endif  // PLATFORM_HOST_LISTING_H
