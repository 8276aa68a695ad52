#include "gateway/connection_objects.h"

#include <vector>

#include "gateway/tree_reader.h"
#include "igd_api.h"
#include "igd_types.h"
#include "igd_vocabulary.h"

namespace igdctl {

ConnectionObjects connection_objects(const std::string& wan_path) {
  const auto ip_object = [&wan_path](const char* addressing) {
    return parent_of(igd_tool_loop_fullname(wan_path, kAddressingType, addressing));
  };
  ConnectionObjects objects;
  objects.dhcp = ip_object(igd::kDhcpAddressing);
  const std::vector<std::string> ppp = instances_below(wan_path, kPppConnection);
  if (!ppp.empty()) objects.ppp = ppp.front();
  objects.fixed = ip_object(igd::kStaticAddressing);
  return objects;
}

std::string object_of_mode(const ConnectionObjects& objects, int connect_mode) {
  switch (connect_mode) {
    case kIgdDhcp:
      return objects.dhcp;
    case kIgdStatic:
      return objects.fixed;
    case kIgdPppoe:
      return objects.ppp;
    default:
      return {};
  }
}

}  // namespace igdctl
