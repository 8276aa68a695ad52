#include <climits>
#include <utility>

#include "host_platform.h"
#include "rows/tree_rows.h"
#include "tree/tree_access.h"

namespace host {
namespace {

constexpr int kDone = 0;
constexpr int kRefused = -1;
constexpr std::size_t kRefusalsKept = 10000;

// Why a text that should be the path of an object is none.
const char* why_no_object(const TreeStore& store, const std::string& path) {
  if (path.empty()) return "the path is empty";
  if (store.cell(path)) return "this is a parameter, not an object";
  if (path.back() != '.') return "the path of an object ends in a dot";
  return "no such object";
}

const char* why_no_instance(const TreeStore& store, const std::string& path, const Node* table,
                            const int* instance) {
  if (table == nullptr) return why_no_object(store, path);
  if (table->kind != Node::Kind::kTable) return "this object is not a table";
  if (table->schema == nullptr) return "the table is not in the data model";
  if (table->last_number == INT_MAX) return "the table has no instance number left";
  if (instance == nullptr) return "the pointer to the instance number is null";
  return nullptr;
}

const char* why_not_deleted(const TreeStore& store, const std::string& path, const Node* node) {
  if (node == nullptr) return why_no_object(store, path);
  if (node->parent == nullptr) return "the root cannot be deleted";
  if (node->kind == Node::Kind::kTable) return "a table cannot be deleted, only its instances";
  return nullptr;
}

const char* why_not_set(const TreeStore& store, const std::string& name, const Cell& cell,
                        const std::string& text) {
  if (!cell && store.node(name) != nullptr) return "this is an object, not a parameter";
  if (!cell) return "no such parameter";
  if (cell.is_count()) return "the number of instances is computed";
  if (text.size() > kLongestText) return "the text is longer than 16 MiB";
  return nullptr;
}

// Notes a refused call, when there is a reason for one. Returns whether there was.
bool refuse(std::vector<Refusal>& refusals, const char* call, const std::string& name,
            const char* reason) {
  if (reason == nullptr) return false;
  if (refusals.size() >= 2 * kRefusalsKept) {
    refusals.erase(refusals.begin(), refusals.end() - kRefusalsKept);
  }
  refusals.push_back({call, name, reason});
  return true;
}

// Asks the observer about a write that the tree itself allows; sets the reason when it refuses.
// Returns whether the tree's content may be another one now, so that the write is judged anew.
bool moved_on(TreeObserver* observer, const char*& reason) {
  if (reason != nullptr || observer == nullptr) return false;
  const TreeObserver::Admission admission = observer->admit();
  reason = admission.refusal;
  return reason == nullptr && admission.moved;
}

}  // namespace

Tree::Tree() : impl_(std::make_unique<Impl>()) {}
Tree::Tree(const Tree& other) : impl_(std::make_unique<Impl>(*other.impl_)) {}
Tree::Tree(Tree&& other) noexcept = default;
Tree::~Tree() = default;

Tree& Tree::operator=(const Tree& other) {
  if (this != &other) *this = Tree(other);
  return *this;
}

Tree& Tree::operator=(Tree&& other) noexcept {
  if (this == &other) return *this;
  if (impl_ != nullptr && impl_->observer != nullptr) {
    (void)TreeAccess::replace(*this, std::move(other.impl_->store));
  } else {
    impl_ = std::move(other.impl_);
  }
  return *this;
}

// cppcheck-suppress constParameter  // what is replaced stands behind a pointer of the tree's
std::string TreeAccess::replace(Tree& tree, TreeStore content) {
  Tree::Impl& impl = *tree.impl_;
  const char* reason = nullptr;
  (void)moved_on(impl.observer, reason);  // whatever it holds is replaced
  const std::string root(kRootPath);
  if (refuse(impl.refusals, "replace", root, reason)) return reason;
  const RowSet before = impl.observer != nullptr ? rows_of(impl.store) : RowSet();
  impl.store = std::move(content);
  if (impl.observer != nullptr) impl.observer->replaced(before, rows_of(impl.store));
  return {};
}

int Tree::add_object(const std::string& table_path, int* instance) {
  TreeStore& store = impl_->store;
  TreeObserver* const observer = impl_->observer;
  Node* table = store.node(table_path);
  const char* reason = why_no_instance(store, table_path, table, instance);
  if (moved_on(observer, reason)) {
    table = store.node(table_path);
    reason = why_no_instance(store, table_path, table, instance);
  }
  if (refuse(impl_->refusals, "addObject", table_path, reason)) return kRefused;
  const std::optional<Row> table_before = observer != nullptr ? row_of(*table) : std::nullopt;
  const Node& added = store.add_instance(*table, table->last_number + 1);
  *instance = added.number;
  if (observer != nullptr) observer->added(added.path, table_path, table_before);
  return kDone;
}

int Tree::delete_object(const std::string& object_path) {
  TreeStore& store = impl_->store;
  TreeObserver* const observer = impl_->observer;
  Node* node = store.node(object_path);
  const char* reason = why_not_deleted(store, object_path, node);
  if (moved_on(observer, reason)) {
    node = store.node(object_path);
    reason = why_not_deleted(store, object_path, node);
  }
  if (refuse(impl_->refusals, "deleteObject", object_path, reason)) return kRefused;
  if (observer != nullptr) observer->deleting(object_path, rows_below(*node));
  const bool always_there = node->kind == Node::Kind::kObject && node->schema != nullptr;
  if (always_there) {
    store.reset(*node);
  } else {
    store.remove(*node);
  }
  return kDone;
}

int Tree::set_value(const std::string& name, const std::string& value) {
  const TreeStore& store = impl_->store;
  TreeObserver* const observer = impl_->observer;
  Cell cell = store.cell(name);
  const char* reason = why_not_set(store, name, cell, value);
  if (moved_on(observer, reason)) {
    cell = store.cell(name);
    reason = why_not_set(store, name, cell, value);
  }
  if (refuse(impl_->refusals, "setValue", name, reason)) return kRefused;
  if (observer != nullptr) observer->setting(name, value_of(cell), row_of(cell), value);
  TreeStore::set(cell, value);
  return kDone;
}

std::string Tree::value(const std::string& name) const {
  const Cell cell = impl_->read().cell(name);
  return cell ? value_of(cell) : std::string();
}

std::vector<std::string> Tree::instances(int object_type) const {
  const auto listing = impl_->read().listing(object_type);
  std::vector<std::string> names;
  names.reserve(listing->size());
  for (std::size_t place = 0; place < listing->size(); ++place) {
    names.emplace_back(listing->name(place));
  }
  return names;
}

bool Tree::has_object(std::string_view object_path) const {
  return impl_->read().node(object_path) != nullptr;
}

bool Tree::has_parameter(std::string_view name) const {
  return static_cast<bool>(impl_->read().cell(name));
}

std::optional<ParameterInfo> Tree::describe(std::string_view name) const {
  const Cell cell = impl_->read().cell(name);
  if (!cell) return std::nullopt;
  return ParameterInfo{std::string(type_name(cell.type())), cell.access() == kReadWrite,
                       std::string(cell.initial()), cell.is_count(), cell.row == nullptr};
}

std::vector<Parameter> Tree::parameters(std::string_view prefix) const {
  std::vector<Parameter> listed;
  const bool whole = kRootPath.substr(0, prefix.size()) == prefix;
  const std::size_t dot = prefix.rfind('.');
  const bool in_object = dot != std::string_view::npos;
  const std::string_view above = in_object ? prefix.substr(0, dot + 1) : std::string_view();
  const Node* top = whole ? &impl_->read().root() : impl_->read().node(above);
  if (top == nullptr) return listed;
  for_each_node(*top, [&listed, prefix](const Node& node) {
    for_each_cell(node, [&](std::string_view name, const Cell& cell) {
      std::string full_name = node.path;
      full_name += name;
      if (full_name.compare(0, prefix.size(), prefix) != 0) return;
      listed.push_back({std::move(full_name), value_of(cell)});
    });
  });
  return listed;
}

const std::vector<Refusal>& Tree::refusals() const { return impl_->refusals; }

void Tree::clear_refusals() { impl_->refusals.clear(); }

}  // namespace host
