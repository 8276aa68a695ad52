// The listing of a tree's objects.
#include "host_platform.h"
#include "tree/tree_access.h"

namespace host {
namespace {

Object::Kind kind_of(const Node& node) {
  if (node.kind == Node::Kind::kTable) return Object::Kind::kTable;
  return node.kind == Node::Kind::kInstance ? Object::Kind::kInstance : Object::Kind::kSingle;
}

}  // namespace

std::vector<Object> Tree::objects() const {
  std::vector<Object> listed;
  for_each_node(impl_->read().root(), [&listed](const Node& node) {
    const bool extension = node.schema == nullptr;
    const bool is_table = node.kind == Node::Kind::kTable;
    listed.push_back({node.path, kind_of(node),
                      !extension && node.schema->row->access == kReadWrite, extension,
                      is_table ? node.last_number : 0});
  });
  return listed;
}

}  // namespace host
