// The porter's configuration tree: plain text by name, kept in memory.
#pragma once

#include <map>
#include <string>
#include <vector>

namespace foreign {

class Tree {
 public:
  /// The value stored under `name`, "" when nothing was stored.
  std::string get(const std::string& name) const;

  /// Stores any name, a bare one as well.
  void set(const std::string& name, const std::string& value) { values_[name] = value; }

  /// Adds an instance with its defaults. @return its number, or 0 when `table` is not in the tree.
  /// Numbers start at 1 in every table and are never handed out twice.
  int add(const std::string& table);

  /// Removes everything that begins with `path`. @return 0; the empty path is refused with -1.
  int erase(const std::string& path);

  /// Full names of the instances of an object type, ascending by instance number.
  std::vector<std::string> names_of(int type) const;

  /// What stands below `path`: a line for each object, "<object>: <parameter>=<value> ...", both
  /// sorted by their texts.
  std::string shown(const std::string& path) const;

  /// The names outside the tree that something was written to, a line each.
  std::string strays() const;

 private:
  std::map<std::string, std::string> values_;  ///< an object stands here as its path
  std::map<std::string, int> last_number_;
};

}  // namespace foreign
