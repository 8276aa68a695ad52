#include "nodes/tree_index.h"

#include <algorithm>

#include "nodes/names.h"

namespace host {
namespace {

using ObjectList = std::vector<const Node*>;

bool is_enumerated(const Node& node) {
  return node.kind != Node::Kind::kTable && node.schema != nullptr && node.schema->enumerated;
}

// Where an object stands, or belongs, among those of its kind. New ones nearly always come last.
ObjectList::iterator place_of(ObjectList& objects, const Node& node) {
  if (objects.empty() || comes_before(*objects.back(), node)) return objects.end();
  const auto before = [](const Node* listed, const Node* wanted) {
    return comes_before(*listed, *wanted);
  };
  return std::lower_bound(objects.begin(), objects.end(), &node, before);
}

}  // namespace

void TreeIndex::enter(Node& node) {
  walk_.listing.reset();
  nodes_.enter(node);
  if (!is_enumerated(node)) return;
  ObjectList& objects = enumerated_[node.schema];
  objects.insert(place_of(objects, node), &node);
}

void TreeIndex::leave(const Node& node) {
  walk_.listing.reset();
  nodes_.leave(node);
  if (!is_enumerated(node)) return;
  ObjectList& objects = enumerated_[node.schema];
  objects.erase(place_of(objects, node));
}

Cell TreeIndex::cell(std::string_view full_name) const {
  if (walk_.listing != nullptr && walk_.due < walk_.listing->cells().size() &&
      walk_.listing->name(walk_.due) == full_name) {
    return walk_.listing->cells()[walk_.due++];
  }
  const std::size_t own = after_last_dot(full_name);
  const Node* owner = nodes_.find(full_name.substr(0, own));
  return owner != nullptr ? cell_of(*owner, full_name.substr(own)) : Cell();
}

std::shared_ptr<const Listing> TreeIndex::listing(int object_type) const {
  walk_.due = 0;
  if (walk_.listing != nullptr && walk_.object_type == object_type) return walk_.listing;
  static const std::vector<const Node*> kNone;
  const Enumeration* enumeration = enumeration_of(object_type);
  if (enumeration == nullptr) return std::make_shared<Listing>(Enumeration{}, kNone);
  const auto found = enumerated_.find(enumeration->object);
  const auto& objects = found != enumerated_.end() ? found->second : kNone;
  walk_.listing = std::make_shared<Listing>(*enumeration, objects);
  walk_.object_type = object_type;
  return walk_.listing;
}

}  // namespace host
