#include <cstdio>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "data_model.h"
#include "igd_api.h"
#include "text.h"
#include "trace.h"
#include "tree_query.h"

// Programs linked at fixed addresses read both maps directly; the cache map stands first.
std::map<std::string, wan_mib_info*> g_wan_mibinfo_cache_list;
std::map<std::string, std::string> g_l3_ifname_table;

namespace {

std::unique_ptr<wan_mib_info> build_entry(const std::string& wan_path) {
  auto entry = std::make_unique<wan_mib_info>();
  entry->wan_path = wan_path;
  (void)igd_wan_get_wan_bridge_info(wan_path, &entry->wan_bridge_path, &entry->bridge_name);
  std::printf("vornik: wan_bridge_path = %s,name = %s\n", entry->wan_bridge_path.c_str(),
              entry->bridge_name.c_str());
  (void)igd_wan_get_lan_bridge_info(wan_path, &entry->lan_bridge_path, &entry->lan_bridge_name);
  igd::trace_found("info->lan_bridge_name", entry->lan_bridge_name);
  igd::trace_found("info->lan_bridge_path", entry->lan_bridge_path);
  entry->static_path = igd::static_path_of(wan_path);
  igd::trace_found("info->static_path", entry->static_path);
  entry->dhcp_path = igd::dhcp_path_of(wan_path);
  igd::trace_found("info->dhcp_path", entry->dhcp_path);
  entry->ppp_path = igd::ppp_path_of(wan_path);
  igd::trace_found("info->ppp_path", entry->ppp_path);
  return entry;
}

}  // namespace

wan_mib_info* _get_cache(std::string wan_path) {
  ensureContext();
  wan_mib_info*& entry = g_wan_mibinfo_cache_list[wan_path];
  if (entry == nullptr) entry = build_entry(wan_path).release();
  return entry;
}

void _rebuid_cache(std::vector<std::string>& wan_paths) {
  auto& cache = g_wan_mibinfo_cache_list;
  for (auto entry = cache.begin(); entry != cache.end();) {
    if (igd::is_listed(wan_paths, entry->first)) {
      ++entry;
      continue;
    }
    delete entry->second;
    entry = cache.erase(entry);
  }
}

int _destory_cache(std::string wan_path) {
  delete g_wan_mibinfo_cache_list[wan_path];
  return static_cast<int>(g_wan_mibinfo_cache_list.erase(wan_path));
}
