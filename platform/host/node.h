/// The objects of a tree and the parameters in them.
#ifndef PLATFORM_HOST_NODE_H
#define PLATFORM_HOST_NODE_H

#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "schema.h"

namespace host {

struct Node;

/// A parameter in the tree. `row` is null for one that only an import brought.
struct Cell {
  std::string full_name;
  std::string text;
  const SchemaRow* row;
  ValueType type;
  Access access;
  const Node* owner;

  bool is_count() const { return row != nullptr && row->kind == kCountRow; }
};

/// An object in the tree. `schema` is null for one that only an import brought.
struct Node {
  enum class Kind { kObject, kTable, kInstance };

  Node(Kind its_kind, std::string its_path, const ObjectSchema* its_schema, Node* its_parent,
       int its_number = 0)
      : kind(its_kind),
        path(std::move(its_path)),
        schema(its_schema),
        parent(its_parent),
        number(its_number) {}

  Kind kind;
  std::string path;  ///< ends in a dot
  const ObjectSchema* schema;
  Node* parent;
  int number;           ///< of an instance, else 0
  int last_number = 0;  ///< highest instance number this table ever had
  std::map<std::string, Cell, std::less<>> parameters;
  std::map<std::string, std::unique_ptr<Node>, std::less<>> children;
  std::map<int, std::unique_ptr<Node>> instances;
};

/// The instance numbers in a node's path, outermost first; the order of enumerations.
using InstanceNumbers = std::vector<int>;
InstanceNumbers instance_numbers(const Node& node);

/// A deep copy below `parent`.
std::unique_ptr<Node> clone(const Node& node, Node* parent);

/// A parameter's value: its text, or the number of instances when it is a count.
std::string value_of(const Cell& cell);

/// Calls `visit` for a node and every node below it, instances in numeric order.
template <typename NodeType, typename Visit>
void for_each_node(NodeType& node, const Visit& visit) {
  visit(node);
  for (auto& [name, child] : node.children) for_each_node<NodeType>(*child, visit);
  for (auto& [number, instance] : node.instances) for_each_node<NodeType>(*instance, visit);
}

}  // namespace host

#endif  // PLATFORM_HOST_NODE_H
