/// Small reads of the tree.
#ifndef IGDCTL_TREE_READER_H
#define IGDCTL_TREE_READER_H

#include <string>
#include <string_view>
#include <vector>

#include "common_util.h"
#include "gateway/names.h"
#include "igd_vocabulary.h"

namespace igdctl {

/// The value of a parameter; "" when there is none. For the empty path, that of an object that is
/// not there, the tree is not asked.
std::string value_in(MibAccess& tree, const std::string& object_path, std::string_view parameter);

/// Whether a text of the tree says yes.
inline bool is_true(std::string_view text) { return text == igd::kTrue; }

/// Full names of the instances of a type below a path, in the tree's order.
std::vector<std::string> instances_below(const std::string& path, ObjectType type);

}  // namespace igdctl

#endif  // IGDCTL_TREE_READER_H
