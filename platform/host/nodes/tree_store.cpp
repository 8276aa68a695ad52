#include "nodes/tree_store.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace host {
namespace {

// The path of an object below another, in exactly the memory it takes.
std::string path_below(const Node& parent, std::string_view name) {
  std::string path;
  path.reserve(parent.path.size() + name.size() + 1);
  return path.append(parent.path).append(name).append(1, '.');
}

void restore_defaults(Node& node) {
  const std::size_t count = node.values ? node.schema->parameters.size() : 0;
  for (std::size_t place = 0; place < count; ++place) node.values[place].clear();
  node.extensions.reset();
}

}  // namespace

TreeStore::TreeStore()
    : root_(std::make_unique<Node>(Node::Kind::kObject, std::string(kRootPath), &data_model(),
                                   nullptr)) {
  index_.enter(*root_);
  complete(*root_);
}

TreeStore::TreeStore(const TreeStore& other) : root_(clone(*other.root_, nullptr)) {
  for_each_node(*root_, [this](Node& node) { index_.enter(node); });
}

Node& TreeStore::attach(Node& parent, std::unique_ptr<Node> node) {
  Node& placed = place_below(parent, std::move(node));
  index_.enter(placed);
  return placed;
}

// Gives a new object the objects that the data model has below it.
void TreeStore::complete(Node& node) {
  for (const auto& [name, schema] : node.schema->children) {
    const auto kind = schema->is_table() ? Node::Kind::kTable : Node::Kind::kObject;
    Node& child =
        attach(node, std::make_unique<Node>(kind, path_below(node, name), schema.get(), &node));
    if (kind == Node::Kind::kObject) complete(child);
  }
}

Node& TreeStore::add_instance(Node& table, int number) {
  const bool unknown = table.schema == nullptr && table.kind == Node::Kind::kObject;
  if (unknown) table.kind = Node::Kind::kTable;
  const bool in_model = table.kind == Node::Kind::kTable && table.schema != nullptr;
  Node& instance =
      attach(table, std::make_unique<Node>(Node::Kind::kInstance,
                                           path_below(table, std::to_string(number)),
                                           in_model ? table.schema : nullptr, &table, number));
  if (table.kind == Node::Kind::kTable) table.last_number = std::max(table.last_number, number);
  if (in_model) complete(instance);
  return instance;
}

Node& TreeStore::add_foreign_object(Node& parent, const std::string& name) {
  return attach(parent, std::make_unique<Node>(Node::Kind::kObject, path_below(parent, name),
                                               nullptr, &parent));
}

Cell TreeStore::add_foreign_parameter(Node& owner, const std::string& name, ValueType type,
                                      Access access) {
  if (!owner.extensions) owner.extensions = std::make_unique<Extensions>();
  Extension& extension = (*owner.extensions)[name];
  extension.type = type;
  extension.access = access;
  return {&owner, nullptr, &extension, &extension.text};
}

void TreeStore::set(const Cell& cell, std::string_view text) {
  if (text == cell.initial()) {
    cell.text->clear();
  } else {
    cell.text->assign(text);
  }
}

// Takes a node and all below it out of the index.
void TreeStore::forget(const Node& node) {
  for_each_node(node, [this](const Node& gone) { index_.leave(gone); });
}

void TreeStore::remove(Node& node) {
  forget(node);
  take_from(*node.parent, node);
}

void TreeStore::remove(const Cell& cell) {
  Extensions& extensions = *node(cell.owner->path)->extensions;
  const auto is_it = [&cell](const auto& named) { return &named.second == cell.extension; };
  extensions.erase(std::find_if(extensions.begin(), extensions.end(), is_it));
}

void TreeStore::reset(Node& node) {
  restore_defaults(node);
  remove_instances(node);
  for (std::size_t left = node.children.size(); left > 0; --left) {
    Node& child = *node.children[left - 1];
    if (child.schema != nullptr) {
      reset(child);
    } else {
      remove(child);
    }
  }
}

void TreeStore::remove_instances(Node& node) {
  while (!node.instances.empty()) remove(*node.instances.back());
}

}  // namespace host
