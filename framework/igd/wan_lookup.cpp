#include <cstddef>
#include <cstdio>
#include <string>
#include <utility>
#include <vector>

#include "bridges.h"
#include "common_util.h"
#include "data_model.h"
#include "igd_api.h"
#include "igd_vocabulary.h"
#include "text.h"
#include "tree_query.h"

namespace {

constexpr std::size_t kShortestWanPath =
    sizeof("InternetGatewayDevice.WANDevice.1.WANConnectionDevice.1.") - 1;

bool names_an_instance(const std::string& name, int type) {
  const std::vector<std::string> names = igd::instances_below(igd::kEverywhere, type);
  return igd::is_listed(names, name);
}

// What follows the path of the connection object that the name contains; "" when it contains none.
std::string relative_name(const std::string& node, const igd::ConnectionPaths& paths) {
  for (const std::string* path : {&paths.static_path, &paths.dhcp_path, &paths.ppp_path}) {
    // Kept: contained anywhere, but cut off the front.
    if (igd::contains(node, *path)) return node.substr(path->size());
  }
  return {};
}

}  // namespace

int igd_wan_list(std::vector<std::string>& out) {
  const int count = igd_tool_loop_instance(igd::kEverywhere, kWanConnectionDevice, out);
  _rebuid_cache(out);
  return count;
}

std::string igd_wan_get_id_by_name(std::string name) {
  ensureContext();
  std::string found = igd::parameter_with_value(igd::kEverywhere, kIpConnectionName, name);
  if (found.empty()) {
    found = igd::parameter_with_value(igd::kEverywhere, kPppConnectionName, name);
  }
  return std::string(igd::parent_of(igd::parent_of(igd::parent_of(found))));
}

int igd_check_wan_index(std::string index) {
  ensureContext();
  if (!names_an_instance(index, kBridgeWanName)) return 0;
  std::printf("----igd_check_wan_index: wan exist-----%s----\n", index.c_str());
  return 1;
}

int igd_verify_is_wan_index(std::string index) {
  ensureContext();
  if (!igd::starts_with(index, igd::kWanDeviceTable)) return 0;
  if (index.size() < kShortestWanPath) return 0;
  return names_an_instance(index, kWanConnectionDevice) ? 1 : 0;
}

int igd_verify_wan_index_in_bridge(std::string index) {
  ensureContext();
  return names_an_instance(index, kWanConnectionDevice) ? 1 : 0;
}

void igd_set_wan_all_value(std::string wan_path, std::string node, std::string value) {
  ensureContext();
  const igd::ConnectionPaths paths = igd::connection_paths_of(wan_path);
  if (paths.static_path.empty() || paths.dhcp_path.empty() || paths.ppp_path.empty()) return;
  const std::string name = relative_name(node, paths);
  std::printf("===node:%s=======value:%s============\n", name.c_str(), value.c_str());
  if (name.empty()) return;
  igd::store(paths.static_path + name, value);
  igd::store(paths.dhcp_path + name, value);
  igd::store(paths.ppp_path + name, value);
  igd::commit();
}

int igd_get_used_port_list(std::string wan_path, std::vector<std::string>& ports) {
  ensureContext();
  ports.clear();
  for (const std::string& port : igd::instances_below(igd::kEverywhere, kPortInterface)) {
    std::string node = igd::value_of(port);
    if (node == igd::kEthernetUplink) continue;
    const std::string owner = igd::owner_of_port(port);
    if (!owner.empty() && owner != wan_path) ports.push_back(std::move(node));
  }
  return kIgdOk;
}
