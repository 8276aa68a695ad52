// A hash from full name to value: the floor under everything that can do more.
#include <unordered_map>

#include "benchmarks.h"

namespace bench {
namespace {

class MapSubject {
 public:
  explicit MapSubject(const Workload& work) : names_(work.enumerated) {
    for (const Entry& entry : work.entries) values_.emplace(entry.name, entry.first);
  }

  static std::string key(const std::string& name) { return name; }
  std::string get(const std::string& key) const {
    const auto found = values_.find(key);
    return found != values_.end() ? found->second : std::string();
  }
  void set(const std::string& key, const std::string& value) {
    const auto found = values_.find(key);
    if (found != values_.end()) found->second = value;
  }
  std::vector<std::string> enumerate_values() const {
    std::vector<std::string> values;
    values.reserve(names_.size());
    for (const std::string& name : names_) values.push_back(get(name));
    return values;
  }
  std::string add() {
    std::string path = kAddedTable + std::to_string(++last_number_) + ".";
    for (const Entry& entry : added_parameters()) values_.emplace(path + entry.name, "");
    return path;
  }
  void remove(const std::string& path) {
    for (const Entry& entry : added_parameters()) values_.erase(path + entry.name);
  }

 private:
  std::unordered_map<std::string, std::string> values_;
  std::vector<std::string> names_;
  int last_number_ = 0;
};

}  // namespace

void register_map() { register_subject<MapSubject>("map"); }

}  // namespace bench
