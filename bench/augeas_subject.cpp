// Augeas: its tree alone, without files and lenses.
#include <augeas.h>

#include <algorithm>
#include <cstdlib>

#include "benchmarks.h"

namespace bench {
namespace {

class AugeasSubject {
 public:
  explicit AugeasSubject(const Workload& work) {
    tree_ = aug_init(nullptr, nullptr, AUG_NO_STDINC | AUG_NO_LOAD | AUG_NO_MODL_AUTOLOAD);
    if (tree_ == nullptr) std::abort();
    for (const Entry& entry : work.entries) set(key(entry.name), entry.first);
    for (const std::string& name : work.enumerated) keys_.push_back(key(name));
  }
  AugeasSubject(const AugeasSubject&) = delete;
  AugeasSubject& operator=(const AugeasSubject&) = delete;
  ~AugeasSubject() { aug_close(tree_); }

  static std::string key(const std::string& name) {
    std::string path = name;
    std::replace(path.begin(), path.end(), '.', '/');
    return path;
  }
  std::string get(const std::string& key) {
    const char* value = nullptr;
    if (aug_get(tree_, key.c_str(), &value) != 1 || value == nullptr) return {};
    return value;
  }
  void set(const std::string& key, const std::string& value) {
    if (aug_set(tree_, key.c_str(), value.c_str()) != 0) std::abort();
  }
  std::vector<std::string> enumerate_values() {
    std::vector<std::string> values;
    values.reserve(keys_.size());
    for (const std::string& key : keys_) values.push_back(get(key));
    return values;
  }
  std::string add() {
    std::string path = key(kAddedTable + std::to_string(++last_number_) + ".");
    for (const Entry& entry : added_parameters()) set(path + key(entry.name), "");
    return path;
  }
  void remove(const std::string& path) {
    const std::string object = path.substr(0, path.size() - 1);
    if (aug_rm(tree_, object.c_str()) <= 0) std::abort();
  }

 private:
  augeas* tree_ = nullptr;
  std::vector<std::string> keys_;
  int last_number_ = 0;
};

}  // namespace

void register_augeas() { register_subject<AugeasSubject>("augeas"); }

}  // namespace bench
