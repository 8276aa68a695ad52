/// Grows a tree by full names, in whatever order a dump lists them.
#ifndef PLATFORM_HOST_DUMP_TREE_H
#define PLATFORM_HOST_DUMP_TREE_H

#include <string>

#include "nodes/tree_store.h"

namespace host {

/// Starts with no instance at all. The steps return the reason why a name cannot stand in the
/// tree, or "" when it now does; after a reason the tree is of no further use.
class DumpTree {
 public:
  /// Sees to it that the object exists, with every object above it. Instances get the number they
  /// are named by, and in tables of the data model everything that a new instance has.
  std::string make_object(const std::string& path, Node*& object);

  /// Sees to it that the parameter exists, with its object. `type` and `access` are for one that
  /// the data model does not know.
  std::string make_parameter(const std::string& name, ValueType type, Access access, Cell& cell);

  /// Lets a table go on counting above this number, in decimal text, or above the highest instance
  /// that it has. An object that the data model does not know becomes a table by it, unless
  /// the number is 0.
  static std::string count_from(Node& table, const std::string& highest);

  TreeStore& store() { return store_; }

 private:
  std::string make_below(Node& parent, const std::string& name, Node*& object);
  std::string make_instance(Node& parent, const std::string& number, Node*& object);

  TreeStore store_;
};

}  // namespace host

#endif  // PLATFORM_HOST_DUMP_TREE_H
