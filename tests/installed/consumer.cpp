// A program outside this project, built against an installed tree: it makes a connection, prints
// its path and the version it was built for.
#include <common_util.h>
#include <igd_api.h>
#include <igd_version.h>

#include <cstdio>

int main() {
  api_wan_info wan;
  wan.wan_info_name = "Internet";
  wan.service_type = "INTERNET";
  wan.connection_class = kIgdRouted;
  wan.connect_mode = kIgdDhcp;
  wan.wan_enable = "true";
  wan.bind_lan = {"LAN1"};
  if (igd_verify_new_wan_info_valid("", &wan, 0xff) != kIgdAcceptable) return 1;
  const std::string path = igd_wan_create("Ethernet", &wan);
  if (path.empty() || getContext()->mibAccess()->commit(1) != 0) return 1;
  std::fprintf(stderr, "%s %s\n", IGD_VERSION, path.c_str());
  return igd_verify_is_wan_index(path) == 1 ? 0 : 1;
}
