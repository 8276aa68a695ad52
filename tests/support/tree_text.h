// Everything that can be told of a tree, as text, so that two trees can be compared.
#ifndef TESTS_HOST_TREE_TEXT_H
#define TESTS_HOST_TREE_TEXT_H

#include <sstream>
#include <string>

#include "host_platform.h"

namespace host_tests {

// One line an object and one line a parameter. Values are not shown when a comparison fails, only
// compared: `whole_text` of a real gateway's dump may hold passwords.
inline std::string whole_text(const host::Tree& tree) {
  std::ostringstream text;
  for (const host::Object& object : tree.objects()) {
    text << object.path << '|' << static_cast<int>(object.kind) << object.writable
         << object.extension << '|' << object.highest << '\n';
  }
  for (const host::Parameter& parameter : tree.parameters()) {
    const auto info = tree.describe(parameter.name);
    text << parameter.name << '=' << parameter.value << '|' << info->type << '|' << info->writable
         << info->extension << info->derived << info->initial << '\n';
  }
  return text.str();
}

inline std::string csv_text(const host::Tree& tree) {
  std::ostringstream text;
  const host::ExportResult result = host::export_csv(tree, text);
  return result.ok ? text.str() : "refused: " + result.error;
}

// The tree that the CSV export of a tree is read as.
inline host::Tree through_csv(const host::Tree& tree) {
  host::Tree copy = host::Tree::factory();  // all of it must go
  std::istringstream input(csv_text(tree));
  const host::ImportResult result = host::import_csv(copy, input, "export");
  return result.ok ? copy : host::Tree();
}

}  // namespace host_tests

#endif  // TESTS_HOST_TREE_TEXT_H
