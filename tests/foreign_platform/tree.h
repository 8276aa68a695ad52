// The porter's configuration tree: plain text by name, kept in memory.
#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

namespace foreign {

/// The object path that holds a parameter, or the table that holds an object; "" without a dot.
std::string parent_of(const std::string& name);

class Tree {
 public:
  /// The value stored under `name`, "" when nothing was stored.
  std::string get(const std::string& name) const;

  /// Stores any name, a bare one as well.
  void set(const std::string& name, const std::string& value);

  /// Adds an instance with its defaults. @return its number, or 0 when the add is refused.
  /// Numbers start at 1 in every table and are never handed out twice.
  int add(const std::string& table);

  /// Removes everything that begins with `path`. @return the result told for that path, else 0;
  /// the empty path is refused with -1.
  int erase(const std::string& path);

  /// Full names of the instances of an object type, ascending by instance number.
  std::vector<std::string> names_of(int type) const;

  /// Refuses the nth add (counted from 1) from now on; may be called for several.
  void refuse_add(int nth);

  /// Refuses to delete `path`: `result` is answered and nothing is removed.
  void refuse_erase(const std::string& path, int result);

  const std::map<std::string, std::string>& values() const { return values_; }
  const std::set<std::string>& objects() const { return objects_; }

 private:
  void appeared(const std::string& name);
  void disappeared(const std::string& name);

  std::map<std::string, std::string> values_;
  std::set<std::string> objects_;
  /// Names by object type and instance numbers, so that an enumeration need not search.
  std::map<int, std::map<std::vector<long>, std::string>> instances_;
  std::map<std::string, int> last_number_;
  std::set<int> refused_adds_;
  int adds_ = 0;
  std::map<std::string, int> refused_erases_;
};

}  // namespace foreign
