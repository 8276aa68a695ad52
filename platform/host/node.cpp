#include "node.h"

#include <algorithm>

namespace host {

InstanceNumbers instance_numbers(const Node& node) {
  InstanceNumbers numbers;
  for (const Node* at = &node; at != nullptr; at = at->parent) {
    if (at->kind == Node::Kind::kInstance) numbers.push_back(at->number);
  }
  std::reverse(numbers.begin(), numbers.end());
  return numbers;
}

std::unique_ptr<Node> clone(const Node& node, Node* parent) {
  auto copy = std::make_unique<Node>(node.kind, node.path, node.schema, parent, node.number);
  copy->last_number = node.last_number;
  copy->parameters = node.parameters;
  for (auto& [name, cell] : copy->parameters) cell.owner = copy.get();
  for (const auto& [name, child] : node.children) {
    copy->children.emplace_hint(copy->children.end(), name, clone(*child, copy.get()));
  }
  for (const auto& [number, instance] : node.instances) {
    copy->instances.emplace_hint(copy->instances.end(), number, clone(*instance, copy.get()));
  }
  return copy;
}

std::string value_of(const Cell& cell) {
  if (!cell.is_count()) return cell.text;
  const auto table = cell.owner->children.find(cell.row->counted);
  const bool known = table != cell.owner->children.end();
  return std::to_string(known ? table->second->instances.size() : 0);
}

}  // namespace host
