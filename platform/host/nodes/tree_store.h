/// The tree itself: makes, changes and removes its parts, and keeps the index true.
///
/// Nothing is judged here. Which calls are refused is decided by Tree, what an import may bring by
/// the importer.
#ifndef PLATFORM_HOST_TREE_STORE_H
#define PLATFORM_HOST_TREE_STORE_H

#include <memory>
#include <string>
#include <string_view>

#include "nodes/node.h"
#include "nodes/tree_index.h"

namespace host {

class TreeStore {
 public:
  TreeStore();  ///< the single objects of the data model with their defaults, every table empty
  TreeStore(const TreeStore& other);
  TreeStore(TreeStore&&) noexcept = default;
  TreeStore& operator=(const TreeStore&) = delete;
  TreeStore& operator=(TreeStore&&) noexcept = default;
  ~TreeStore() = default;

  const Node& root() const { return *root_; }
  Node* node(std::string_view path) const { return index_.node(path); }
  Cell cell(std::string_view full_name) const { return index_.cell(full_name); }
  std::shared_ptr<const Listing> listing(int object_type) const {
    return index_.listing(object_type);
  }

  /// Makes an instance that is not there yet. In a table of the data model it comes with all its
  /// parameters and single objects. Elsewhere it is empty, and makes a table of an object that the
  /// data model does not know. The later numbers of a table start above it.
  Node& add_instance(Node& table, int number);
  /// Makes an empty object that the data model does not know.
  Node& add_foreign_object(Node& parent, const std::string& name);
  /// Makes a parameter that the data model does not know.
  static Cell add_foreign_parameter(Node& owner, const std::string& name, ValueType type,
                                    Access access);

  static void set(const Cell& cell, std::string_view text);

  /// Removes an instance, or an object the data model does not know, with all below it.
  void remove(Node& node);
  /// Removes a parameter that the data model does not know.
  void remove(const Cell& cell);
  /// Brings an object of the data model back to how a new tree has it. Its tables, which lose all
  /// instances, go on counting where they were.
  void reset(Node& node);

 private:
  Node& attach(Node& parent, std::unique_ptr<Node> node);
  void complete(Node& node);
  void forget(const Node& node);
  void remove_instances(Node& node);

  std::unique_ptr<Node> root_;
  TreeIndex index_;
};

}  // namespace host

#endif  // PLATFORM_HOST_TREE_STORE_H
