/// Service lists: what a connection carries, recognised by parts of the text.
#ifndef IGD_SERVICES_H
#define IGD_SERVICES_H

#include <string>
#include <vector>

#include "common_util.h"
#include "data_model.h"
#include "tree_query.h"

namespace igd {

/// Text of the first service list below a path; "" when there is none.
inline std::string first_service_list(const std::string& wan_path) {
  const std::vector<std::string> lists = instances_below(wan_path, kServiceList);
  return lists.empty() ? std::string() : value_of(lists.front());
}

}  // namespace igd

#endif  // IGD_SERVICES_H
