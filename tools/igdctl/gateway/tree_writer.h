/// Single writes to the tree, for what the library has no operation for. Called inside a Change.
/// Each throws Failure (kPlatform) when the tree refuses.
#ifndef IGDCTL_TREE_WRITER_H
#define IGDCTL_TREE_WRITER_H

#include <string>
#include <string_view>

#include "common_util.h"

namespace igdctl {

void write_value(MibAccess& tree, const std::string& object_path, std::string_view parameter,
                 const std::string& value);

/// Adds an instance to a table and returns its path.
std::string add_instance(MibAccess& tree, const std::string& table_path);

/// Deletes an object with everything below it.
void delete_instance(MibAccess& tree, const std::string& object_path);

}  // namespace igdctl

#endif  // IGDCTL_TREE_WRITER_H
