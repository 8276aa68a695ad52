#include "twice.h"

#include "igd_api.h"
#include "shown.h"

namespace fuzz {

Twice::~Twice() {
  std::vector<std::string> none;
  _rebuid_cache(none);
  g_l3_ifname_table.clear();
  reference::state() = {};
}

void Twice::require_same_kept(const char* name) {
  std::string kept;
  for (const auto& [key, entry] : g_wan_mibinfo_cache_list) {
    kept += key + ": " + operations::shown(*entry) + '\n';
  }
  std::string expected;
  for (const auto& [key, entry] : reference::state().cache) {
    expected += key + ": " + operations::shown(entry) + '\n';
  }
  require_same(kept, expected, name);
}

}  // namespace fuzz
