#include "gateway/tree_writer.h"

#include "term/failure.h"
#include "term/text.h"

namespace igdctl {

namespace {

constexpr int kInternalLevel = 255;

void require_done(int result, const std::string& what, const std::string& name) {
  if (result == 0) return;
  throw Failure(ExitCode::kPlatform, what + ' ' + in_quotes(name) + " was refused",
                "igdctl doctor shows whether the tree contradicts itself");
}

}  // namespace

void write_value(MibAccess& tree, const std::string& object_path, std::string_view parameter,
                 const std::string& value) {
  const std::string name = object_path + std::string(parameter);
  require_done(tree.setValue(name, value, 0), "setting", name);
}

std::string add_instance(MibAccess& tree, const std::string& table_path) {
  int number = 0;
  require_done(tree.addObject(table_path, &number, kInternalLevel), "adding to", table_path);
  return table_path + std::to_string(number) + '.';
}

void delete_instance(MibAccess& tree, const std::string& object_path) {
  require_done(tree.deleteObject(object_path), "deleting", object_path);
}

}  // namespace igdctl
