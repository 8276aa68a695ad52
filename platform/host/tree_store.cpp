#include "tree_store.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace host {

TreeStore::TreeStore() {
  attach(root_, std::make_unique<Node>(Node::Kind::kObject, std::string(kRootPath), &data_model(),
                                       nullptr));
  complete(*root_);
}

TreeStore::TreeStore(const TreeStore& other) : root_(clone(*other.root_, nullptr)) {
  for_each_node(*root_, [this](Node& node) {
    index_.enter(node);
    for (auto& [name, cell] : node.parameters) index_.enter(cell);
  });
}

Node& TreeStore::attach(std::unique_ptr<Node>& place, std::unique_ptr<Node> node) {
  place = std::move(node);
  index_.enter(*place);
  return *place;
}

Cell& TreeStore::attach(Node& owner, const std::string& name, Cell cell) {
  Cell& placed = owner.parameters.emplace(name, std::move(cell)).first->second;
  index_.enter(placed);
  return placed;
}

/// Gives a new object the parameters and the objects that the data model has below it.
void TreeStore::complete(Node& node) {
  for (const SchemaRow* row : node.schema->parameters) {
    const std::string name(row->name);
    attach(node, name,
           {node.path + name, std::string(row->initial), row, row->type, row->access, &node});
  }
  for (const auto& [name, schema] : node.schema->children) {
    const auto kind = schema->is_table() ? Node::Kind::kTable : Node::Kind::kObject;
    auto made = std::make_unique<Node>(kind, node.path + name + ".", schema.get(), &node);
    Node& child = attach(node.children[name], std::move(made));
    if (kind == Node::Kind::kObject) complete(child);
  }
}

Node& TreeStore::add_instance(Node& table, int number) {
  const bool unknown = table.schema == nullptr && table.kind == Node::Kind::kObject;
  if (unknown) table.kind = Node::Kind::kTable;
  const bool in_model = table.kind == Node::Kind::kTable && table.schema != nullptr;
  auto made =
      std::make_unique<Node>(Node::Kind::kInstance, table.path + std::to_string(number) + ".",
                             in_model ? table.schema : nullptr, &table, number);
  Node& instance = attach(table.instances[number], std::move(made));
  table.last_number = std::max(table.last_number, number);
  if (in_model) complete(instance);
  return instance;
}

Node& TreeStore::add_foreign_object(Node& parent, const std::string& name) {
  auto made =
      std::make_unique<Node>(Node::Kind::kObject, parent.path + name + ".", nullptr, &parent);
  return attach(parent.children[name], std::move(made));
}

Cell& TreeStore::add_foreign_parameter(Node& owner, const std::string& name, ValueType type,
                                       Access access) {
  return attach(owner, name, {owner.path + name, {}, nullptr, type, access, &owner});
}

void TreeStore::set(Cell& cell, const std::string& text) { cell.text = text; }

/// Takes everything in and below a node out of the index.
void TreeStore::forget(const Node& node) {
  for_each_node(node, [this](const Node& gone) {
    for (const auto& [name, cell] : gone.parameters) index_.leave(cell);
    index_.leave(gone);
  });
}

void TreeStore::remove(Node& node) {
  forget(node);
  Node& parent = *node.parent;
  if (node.kind == Node::Kind::kInstance) {
    parent.instances.erase(node.number);
  } else {
    const std::size_t above = parent.path.size();
    parent.children.erase(node.path.substr(above, node.path.size() - above - 1));
  }
}

void TreeStore::remove(const Cell& cell) {
  Node* owner = node(cell.owner->path);
  index_.leave(cell);
  owner->parameters.erase(cell.full_name.substr(owner->path.size()));
}

void TreeStore::reset(Node& node) {
  reset_parameters(node);
  remove_instances(node);
  for (auto next = node.children.begin(); next != node.children.end();) {
    Node& child = *next++->second;
    if (child.schema != nullptr) {
      reset(child);
    } else {
      remove(child);
    }
  }
}

void TreeStore::reset_parameters(Node& node) {
  for (auto next = node.parameters.begin(); next != node.parameters.end();) {
    const auto at = next++;
    Cell& cell = at->second;
    if (cell.row != nullptr) {
      set(cell, std::string(cell.row->initial));
    } else {
      index_.leave(cell);
      node.parameters.erase(at);
    }
  }
}

void TreeStore::remove_instances(Node& node) {
  while (!node.instances.empty()) remove(*node.instances.begin()->second);
}

}  // namespace host
