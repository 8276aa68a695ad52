/// The objects of a tree and the parameters in them.
#ifndef PLATFORM_HOST_NODE_H
#define PLATFORM_HOST_NODE_H

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "nodes/stored_text.h"
#include "schema/schema.h"

namespace host {

/// A parameter that only an import brought.
struct Extension {
  StoredText text;
  ValueType type;
  Access access;
};
using Extensions = std::map<std::string, Extension, std::less<>>;

/// An object in the tree. A gateway has thousands, so what a lookup touches comes first, and
/// parameters of the data model take no more than their place in `values`.
struct Node {
  enum class Kind { kObject, kTable, kInstance };

  /// Comes with its parameters, each at its default.
  Node(Kind its_kind, std::string its_path, const ObjectSchema* its_schema, Node* its_parent,
       int its_number = 0);

  Kind kind;
  std::uint32_t path_hash = 0;  ///< this and the chain belong to PathTable
  Node* next_in_chain = nullptr;
  std::string path;                      ///< ends in a dot
  const ObjectSchema* schema;            ///< null for an object that only an import brought
  std::unique_ptr<StoredText[]> values;  ///< those of schema->parameters; null when there are none
  std::unique_ptr<Extensions> extensions;  ///< null when there are none
  Node* parent;
  int number;                                    ///< of an instance, else 0
  int last_number = 0;                           ///< highest instance number this table ever had
  std::vector<std::unique_ptr<Node>> children;   ///< in byte order of their names
  std::vector<std::unique_ptr<Node>> instances;  ///< in numeric order

  std::string_view name() const;  ///< last component of the path, without its dot
};

/// A parameter in the tree, or none. Lasts as long as its object has it.
struct Cell {
  const Node* owner = nullptr;
  const SchemaRow* row = nullptr;        ///< null for an extension
  const Extension* extension = nullptr;  ///< null for a parameter of the data model
  StoredText* text = nullptr;            ///< none while it has its default

  explicit operator bool() const { return text != nullptr; }
  bool is_count() const { return row != nullptr && row->kind == kCountRow; }
  ValueType type() const { return row != nullptr ? row->type : extension->type; }
  Access access() const { return row != nullptr ? row->access : extension->access; }
  std::string_view initial() const { return row != nullptr ? row->initial : std::string_view(); }
};

Cell extension_of(const Node& node, std::string_view name);

/// An object's parameter by its own name.
inline Cell cell_of(const Node& node, std::string_view name) {
  if (node.values) {
    const std::size_t place = node.schema->places.find(name);
    if (place != NameTable::kNone) {
      return {&node, node.schema->parameters[place], nullptr, &node.values[place]};
    }
  }
  return extension_of(node, name);
}

/// A parameter's value: its text, or the number of instances when it is a count.
std::string value_of(const Cell& cell);

/// A child by its name, or null.
Node* child_of(const Node& node, std::string_view name);

/// Puts a node among the children or the instances of its parent, which has none of that name or
/// number.
Node& place_below(Node& parent, std::unique_ptr<Node> node);
/// Destroys a node with all below it.
void take_from(Node& parent, const Node& node);

/// Whether an object stands before another of the same kind: numeric order at every level.
bool comes_before(const Node& node, const Node& other);

/// A deep copy below `parent`.
std::unique_ptr<Node> clone(const Node& node, Node* parent);

/// Calls `visit(name, cell)` for each parameter of a node, in byte order of the names.
template <typename Visit>
void for_each_cell(const Node& node, const Visit& visit) {
  static const Extensions kNone;
  const Extensions& extensions = node.extensions ? *node.extensions : kNone;
  auto next = extensions.begin();
  const std::size_t count = node.values ? node.schema->parameters.size() : 0;
  for (std::size_t place = 0; place < count; ++place) {
    const std::string_view name = node.schema->parameters[place]->name;
    for (; next != extensions.end() && next->first < name; ++next) {
      visit(next->first, cell_of(node, next->first));
    }
    visit(name, Cell{&node, node.schema->parameters[place], nullptr, &node.values[place]});
  }
  for (; next != extensions.end(); ++next) visit(next->first, cell_of(node, next->first));
}

/// Calls `visit` for a node and every node below it, instances in numeric order.
template <typename NodeType, typename Visit>
void for_each_node(NodeType& node, const Visit& visit) {
  visit(node);
  for (const auto& child : node.children) for_each_node<NodeType>(*child, visit);
  for (const auto& instance : node.instances) for_each_node<NodeType>(*instance, visit);
}

}  // namespace host

#endif  // PLATFORM_HOST_NODE_H
