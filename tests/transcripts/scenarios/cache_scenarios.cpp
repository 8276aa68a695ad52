// The cache of a connection's paths: what building an entry asks, and what does not ask at all.
#include "scenario.h"

namespace transcripts {
namespace {

std::string connection(Gateway& gateway) {
  return gateway.create(support::routed_pppoe("1_INTERNET", 100));
}

std::string cached_path(const std::string& path) { return _get_cache(path)->wan_path; }

int entries_after_rebuilding(std::vector<std::string>& listed) {
  _rebuid_cache(listed);
  return static_cast<int>(g_wan_mibinfo_cache_list.size());
}

void first_request(Gateway& gateway) {
  const std::string path = connection(gateway);
  gateway.forget_cache();
  gateway.record("wan_path of _get_cache", cached_path, path);
}

void second_request(Gateway& gateway) {
  const std::string path = connection(gateway);
  gateway.record("wan_path of _get_cache", cached_path, path);
}

void request_that_names_nothing(Gateway& gateway) {
  gateway.record("wan_path of _get_cache", cached_path, support::wan_path(7, 8));
}

void drop_one(Gateway& gateway) {
  const std::string path = connection(gateway);
  gateway.record(IGD_OPERATION(_destory_cache), path);
}

void drop_all_but_listed(Gateway& gateway) {
  std::vector<std::string> listed = {connection(gateway)};
  gateway.record("entries after _rebuid_cache", entries_after_rebuilding, listed);
}

void list_connections(Gateway& gateway) {
  (void)connection(gateway);
  gateway.remove(connection(gateway));
  gateway.remove(gateway.create(support::dhcp_management("2_TR069", 46)));
  std::vector<std::string> paths;
  gateway.record(IGD_OPERATION(igd_wan_list), paths);
}

}  // namespace

Scenarios cache_scenarios() {
  return {
      {"cache_first_request", first_request},
      {"cache_second_request", second_request},
      {"cache_request_that_names_nothing", request_that_names_nothing},
      {"cache_drop_one", drop_one},
      {"cache_drop_all_but_listed", drop_all_but_listed},
      {"cache_list", list_connections},
  };
}

}  // namespace transcripts
