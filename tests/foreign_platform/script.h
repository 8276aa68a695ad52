// What an operation is expected to do, written as a script that plays on a copy of the tree.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "declarations.h"
#include "tree.h"

namespace foreign {

/// Each verb does on the copied tree what the library is to do on the real one and notes it in the
/// form that the platform notes it, so that both texts can be compared.
class Script {
 public:
  /// Plays on `tree` from now on, with an empty text. What the library caches is kept.
  void start_from(const Tree& tree);

  std::string get(const std::string& name);
  void set(const std::string& name, const std::string& value);
  int add(const std::string& table);  ///< the new number, 0 when the tree refuses
  int erase(const std::string& path);
  void commit();
  void apply();

  /// The enumerated names of a type that begin with `prefix`.
  std::vector<std::string> loop(const std::string& prefix, int type);

  /// The first of them whose value equals `value`, read one by one; "" when none does.
  std::string find(const std::string& prefix, int type, const std::string& value);

  void print(const char* format, ...) __attribute__((format(printf, 2, 3)));

  /// A debug line; line 0 stands for one that may move.
  void debug(int line, const char* format, ...) __attribute__((format(printf, 3, 4)));

  const std::string& text() const { return text_; }
  const Tree& tree() const { return tree_; }

  /// The cached entries by connection path.
  std::map<std::string, wan_mib_info> cache;

 private:
  Tree tree_;
  std::string text_;
};

}  // namespace foreign
