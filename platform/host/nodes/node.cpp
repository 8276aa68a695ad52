#include "nodes/node.h"

#include <algorithm>

namespace host {
namespace {

using Nodes = std::vector<std::unique_ptr<Node>>;

Nodes::iterator place_of_child(Nodes& children, std::string_view name) {
  const auto before = [](const auto& child, std::string_view wanted) {
    return child->name() < wanted;
  };
  return std::lower_bound(children.begin(), children.end(), name, before);
}

Nodes::iterator place_of_instance(Nodes& instances, int number) {
  if (instances.empty() || instances.back()->number < number) return instances.end();
  const auto before = [](const auto& instance, int wanted) { return instance->number < wanted; };
  return std::lower_bound(instances.begin(), instances.end(), number, before);
}

void copy_texts(const Node& node, Node& copy) {
  const std::size_t count = node.values ? node.schema->parameters.size() : 0;
  for (std::size_t place = 0; place < count; ++place) {
    if (node.values[place].has_text()) copy.values[place].assign(node.values[place].view());
  }
  if (!node.extensions) return;
  copy.extensions = std::make_unique<Extensions>();
  for (const auto& [name, extension] : *node.extensions) {
    Extension& copied = (*copy.extensions)[name];
    copied.type = extension.type;
    copied.access = extension.access;
    if (extension.text.has_text()) copied.text.assign(extension.text.view());
  }
}

}  // namespace

Node::Node(Kind its_kind, std::string its_path, const ObjectSchema* its_schema, Node* its_parent,
           int its_number)
    : kind(its_kind),
      path(std::move(its_path)),
      schema(its_schema),
      parent(its_parent),
      number(its_number) {
  if (schema == nullptr || kind == Kind::kTable) return;
  const std::size_t count = schema->parameters.size();
  if (count != 0) values = std::make_unique<StoredText[]>(count);
  children.reserve(schema->children.size());
}

std::string_view Node::name() const {
  const std::size_t above = parent != nullptr ? parent->path.size() : 0;
  return std::string_view(path).substr(above, path.size() - above - 1);
}

Cell extension_of(const Node& node, std::string_view name) {
  if (!node.extensions) return {};
  const auto found = node.extensions->find(name);
  if (found == node.extensions->end()) return {};
  return {&node, nullptr, &found->second, &found->second.text};
}

std::string value_of(const Cell& cell) {
  if (cell.text->has_text()) return cell.text->copy();
  if (!cell.is_count()) return std::string(cell.initial());
  const Node* table = child_of(*cell.owner, cell.row->counted);
  return std::to_string(table != nullptr ? table->instances.size() : 0);
}

Node* child_of(const Node& node, std::string_view name) {
  for (const auto& child : node.children) {
    if (child->name() == name) return child.get();
  }
  return nullptr;
}

Node& place_below(Node& parent, std::unique_ptr<Node> node) {
  if (node->kind == Node::Kind::kInstance) {
    const auto place = place_of_instance(parent.instances, node->number);
    return **parent.instances.insert(place, std::move(node));
  }
  const auto place = place_of_child(parent.children, node->name());
  return **parent.children.insert(place, std::move(node));
}

void take_from(Node& parent, const Node& node) {
  if (node.kind == Node::Kind::kInstance) {
    parent.instances.erase(place_of_instance(parent.instances, node.number));
  } else {
    parent.children.erase(place_of_child(parent.children, node.name()));
  }
}

bool comes_before(const Node& node, const Node& other) {
  bool before = false;
  const Node* theirs = &other;
  for (const Node* ours = &node; ours != theirs; ours = ours->parent, theirs = theirs->parent) {
    if (ours->number != theirs->number) before = ours->number < theirs->number;
  }
  return before;
}

std::unique_ptr<Node> clone(const Node& node, Node* parent) {
  auto copy = std::make_unique<Node>(node.kind, node.path, node.schema, parent, node.number);
  copy->last_number = node.last_number;
  copy_texts(node, *copy);
  copy->children.reserve(node.children.size());
  for (const auto& child : node.children) copy->children.push_back(clone(*child, copy.get()));
  copy->instances.reserve(node.instances.size());
  for (const auto& instance : node.instances) {
    copy->instances.push_back(clone(*instance, copy.get()));
  }
  return copy;
}

}  // namespace host
