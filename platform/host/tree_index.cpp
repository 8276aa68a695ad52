#include "tree_index.h"

namespace host {
namespace {

constexpr int kNoType = 0;

int type_of(const Node& node) {
  const bool is_enumerated = node.kind == Node::Kind::kInstance && node.schema != nullptr;
  return is_enumerated ? node.schema->row->identifier : kNoType;
}

int type_of(const Cell& cell) { return cell.row != nullptr ? cell.row->identifier : kNoType; }

}  // namespace

void TreeIndex::enter(Node& node) {
  nodes_.emplace(node.path, &node);
  const int type = type_of(node);
  if (type != kNoType) enumerations_[type].emplace(instance_numbers(node), node.path);
}

void TreeIndex::enter(Cell& cell) {
  cells_.emplace(cell.full_name, &cell);
  const int type = type_of(cell);
  if (type != kNoType) enumerations_[type].emplace(instance_numbers(*cell.owner), cell.full_name);
}

void TreeIndex::leave(const Node& node) {
  const int type = type_of(node);
  if (type != kNoType) enumerations_[type].erase(instance_numbers(node));
  nodes_.erase(node.path);
}

void TreeIndex::leave(const Cell& cell) {
  const int type = type_of(cell);
  if (type != kNoType) enumerations_[type].erase(instance_numbers(*cell.owner));
  cells_.erase(cell.full_name);
}

Node* TreeIndex::node(std::string_view path) const {
  const auto found = nodes_.find(path);
  return found != nodes_.end() ? found->second : nullptr;
}

Cell* TreeIndex::cell(std::string_view full_name) const {
  const auto found = cells_.find(full_name);
  return found != cells_.end() ? found->second : nullptr;
}

std::vector<std::string> TreeIndex::names(int object_type) const {
  std::vector<std::string> names;
  const auto found = enumerations_.find(object_type);
  if (found == enumerations_.end()) return names;
  names.reserve(found->second.size());
  for (const auto& [numbers, name] : found->second) names.emplace_back(name);
  return names;
}

}  // namespace host
