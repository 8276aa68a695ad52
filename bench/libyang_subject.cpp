// libyang: a module made from the names, string leaves, instances as list entries.
#include <libyang/libyang.h>

#include <cctype>
#include <cstdlib>
#include <memory>

#include "benchmarks.h"

namespace bench {
namespace {

/// The schema of an object, gathered from full names.
struct Shape {
  bool is_table = false;
  std::map<std::string, std::unique_ptr<Shape>> below;

  void take(const std::string& name) {
    const std::string first = name.substr(0, name.find('.'));
    const std::string rest = first.size() < name.size() ? name.substr(first.size() + 1) : "";
    if (std::isdigit(static_cast<unsigned char>(first.front())) != 0) {
      is_table = true;
      take(rest);
      return;
    }
    auto& child = below[first];
    if (!child) child = std::make_unique<Shape>();
    if (!rest.empty()) child->take(rest);
  }

  std::string yang(const std::string& name) const {
    if (below.empty()) return "leaf " + name + " { type string; }\n";
    std::string text = is_table ? "list " + name + " { key i; leaf i { type uint32; }\n"
                                : "container " + name + " {\n";
    for (const auto& [own_name, child] : below) text += child->yang(own_name);
    return text + "}\n";
  }
};

class LibyangSubject {
 public:
  explicit LibyangSubject(const Workload& work) {
    if (ly_ctx_new(nullptr, LY_CTX_NO_YANGLIBRARY, &context_) != LY_SUCCESS) std::abort();
    const std::string module = module_of(work);
    if (lys_parse_mem(context_, module.c_str(), LYS_IN_YANG, nullptr) != LY_SUCCESS) std::abort();
    for (const Entry& entry : work.entries) make(key(entry.name), entry.first);
    for (const std::string& name : work.enumerated) keys_.push_back(key(name));
  }
  LibyangSubject(const LibyangSubject&) = delete;
  LibyangSubject& operator=(const LibyangSubject&) = delete;
  ~LibyangSubject() {
    lyd_free_all(root_);
    ly_ctx_destroy(context_);
  }

  /// "A.1.B" becomes "/igd:A[i='1']/B"; without the module's name for a name relative to an object.
  static std::string key(const std::string& name) {
    const std::string root = "InternetGatewayDevice";
    std::string path = name.compare(0, root.size(), root) == 0 ? "/igd:" : "";
    for (std::size_t at = 0; at < name.size();) {
      const std::size_t dot = std::min(name.find('.', at), name.size());
      const std::string part = name.substr(at, dot - at);
      const bool is_number = std::isdigit(static_cast<unsigned char>(part.front())) != 0;
      if (is_number) path.back() = '[';
      path += is_number ? "i='" + part + "']" : part;
      if (dot < name.size()) path += '/';
      at = dot + 1;
    }
    return path;
  }
  std::string get(const std::string& key) {
    const lyd_node* node = find(key);
    return node != nullptr ? lyd_get_value(node) : "";
  }
  void set(const std::string& key, const std::string& value) {
    lyd_node* node = find(key);
    if (node != nullptr) (void)lyd_change_term(node, value.c_str());
  }
  std::vector<std::string> enumerate_values() {
    std::vector<std::string> values;
    values.reserve(keys_.size());
    for (const std::string& key : keys_) values.push_back(get(key));
    return values;
  }
  std::string add() {
    std::string path = key(kAddedTable + std::to_string(++last_number_) + ".");
    for (const Entry& entry : added_parameters()) make(path + key(entry.name), "");
    return path;
  }
  void remove(const std::string& path) { lyd_free_tree(find(path.substr(0, path.size() - 1))); }

 private:
  static std::string module_of(const Workload& work) {
    Shape root;
    for (const Entry& entry : work.entries) root.take(entry.name);
    for (const Entry& entry : added_parameters()) {
      root.take(kAddedTable + std::string("1.") + entry.name);
    }
    const std::string name = "InternetGatewayDevice";
    return "module igd { namespace \"urn:igd\"; prefix igd;\n" + root.below[name]->yang(name) + "}";
  }
  void make(const std::string& path, const std::string& value) {
    lyd_node* made = nullptr;
    const LY_ERR result =
        lyd_new_path(root_, context_, path.c_str(), value.c_str(), 0, root_ ? nullptr : &made);
    if (result != LY_SUCCESS) std::abort();
    if (root_ == nullptr) root_ = made;
  }
  lyd_node* find(const std::string& path) {
    lyd_node* node = nullptr;
    (void)lyd_find_path(root_, path.c_str(), 0, &node);
    return node;
  }

  ly_ctx* context_ = nullptr;
  lyd_node* root_ = nullptr;
  std::vector<std::string> keys_;
  int last_number_ = 0;
};

}  // namespace

void register_libyang() { register_subject<LibyangSubject>("libyang"); }

}  // namespace bench
