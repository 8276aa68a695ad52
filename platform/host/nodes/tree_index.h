/// Finds the parts of a tree without walking it. Three things make a tree fast, each for somebody
/// else:
///   - the path table, for every read and write: one hash finds the object of a full name, and a
///     second, by the name table of its kind, the parameter in it;
///   - the listing, for libigd, which looks for a connection, bridge or port by reading a parameter
///     of each instance in order: its names and cells lie side by side and come without a search;
///   - inline texts, for all who read values: most lie in the object itself (stored_text.h), so
///     that a gateway's tree stays in the processor's caches.
#ifndef PLATFORM_HOST_TREE_INDEX_H
#define PLATFORM_HOST_TREE_INDEX_H

#include <cstddef>
#include <memory>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "nodes/listing.h"
#include "nodes/node.h"
#include "nodes/path_table.h"

namespace host {

/// Every node by its path, every parameter by its full name, and what each ObjectType enumerates.
/// Points into nodes, which enter when they are made and leave before they go.
class TreeIndex {
 public:
  void enter(Node& node);
  void leave(const Node& node);

  Node* node(std::string_view path) const { return nodes_.find(path); }
  Cell cell(std::string_view full_name) const;

  /// A type's instances, in numeric order at every level. Its names stay good when objects go, its
  /// cells do not.
  std::shared_ptr<const Listing> listing(int object_type) const;

 private:
  PathTable nodes_;
  std::unordered_map<const ObjectSchema*, std::vector<const Node*>> enumerated_;

  /// Whoever walks over instances asks for the value of each in turn. So the newest listing is kept
  /// until an object comes or goes, and the name that is due in it is found without a search.
  struct Walk {
    std::shared_ptr<const Listing> listing;
    int object_type = 0;
    std::size_t due = 0;
  };
  mutable Walk walk_;
};

}  // namespace host

#endif  // PLATFORM_HOST_TREE_INDEX_H
