#include "dump/dump_tree.h"

#include <algorithm>
#include <cstddef>
#include <optional>

#include "nodes/names.h"

namespace host {
namespace {

// Real data models need a dozen. A bound keeps the walks through a tree, which go one call deeper
// at each level, safe from a hostile file.
constexpr std::ptrdiff_t kDeepest = 64;

// Why a path cannot be one at all.
std::string why_malformed(const std::string& path) {
  const std::string name = path.substr(0, path.size() - 1);
  if (path.find("..") != std::string::npos) return name + " has an empty component";
  if (std::count(path.begin(), path.end(), '.') > kDeepest) return name + " is nested too deeply";
  return {};
}

}  // namespace

std::string DumpTree::make_object(const std::string& path, Node*& object) {
  object = store_.node(path);
  if (object != nullptr) return {};
  std::string reason = why_malformed(path);
  if (!reason.empty()) return reason;
  const auto [above, own] = split_last(path);
  Node* parent = nullptr;
  reason = make_object(std::string(above), parent);
  if (!reason.empty()) return reason;
  return make_below(*parent, std::string(own), object);
}

std::string DumpTree::make_below(Node& parent, const std::string& name, Node*& object) {
  object = store_.node(parent.path + name + ".");  // it may have come with its parent
  if (object != nullptr) return {};
  if (cell_of(parent, name)) {
    return parent.path + name + " is a parameter, so it cannot be an object";
  }
  if (is_digits(name)) return make_instance(parent, name, object);
  object = &store_.add_foreign_object(parent, name);
  return {};
}

std::string DumpTree::make_instance(Node& parent, const std::string& number, Node*& object) {
  if (number.front() == '0') {
    return parent.path + number + ": instance numbers start at 1 and have no leading zero";
  }
  const std::optional<int> fitting = number_in(number);
  if (!fitting) return parent.path + number + ": the instance number is too large";
  object = &store_.add_instance(parent, *fitting);
  return {};
}

std::string DumpTree::make_parameter(const std::string& name, ValueType type, Access access,
                                     Cell& cell) {
  cell = store_.cell(name);
  if (cell) return {};
  std::string reason = why_malformed(name + ".");
  if (!reason.empty()) return reason;
  const auto [above, own] = split_last(name);
  Node* owner = nullptr;
  reason = make_object(std::string(above), owner);
  if (!reason.empty()) return reason;
  if (is_digits(own)) return name + ": a number names an instance, not a parameter";
  const bool is_object = store_.node(name + ".") != nullptr;
  if (is_object) return name + " is an object, so it cannot be a parameter";
  cell = store_.cell(name);  // it may have come with its object
  if (!cell) cell = TreeStore::add_foreign_parameter(*owner, std::string(own), type, access);
  return {};
}

std::string DumpTree::count_from(Node& table, const std::string& highest) {
  const std::string name = table.path.substr(0, table.path.size() - 1);
  const bool may_be_table = table.schema == nullptr && table.kind == Node::Kind::kObject;
  if (table.kind != Node::Kind::kTable && !may_be_table) {
    return name + " is not a table, so it has no instances";
  }
  if (!is_digits(highest)) return name + ": the highest instance is not a number";
  const std::optional<int> number = number_in(highest);
  if (!number) return name + ": the highest instance number is too large";
  table.last_number = std::max(table.last_number, *number);
  if (table.last_number > 0) table.kind = Node::Kind::kTable;
  return {};
}

}  // namespace host
