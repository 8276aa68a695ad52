/* The same in C: it names a connection's bridge and asks for its VLAN. */
#include <igd_c_api.h>
#include <igd_version.h>
#include <stdio.h>
#include <string.h>

int main(void) {
  const char* const path = "InternetGatewayDevice.WANDevice.1.WANConnectionDevice.2.";
  char bridge[16] = "";
  char vlan[16] = "unset";
  igd_c_get_wan_bridge_name(path, bridge, sizeof bridge);
  igd_c_get_wan_bridge_vlanid_name(path, vlan, sizeof vlan);
  (void)fprintf(stderr, "%s %s %s\n", IGD_VERSION, bridge, vlan);
  return strcmp(bridge, "br_1_2") == 0 && strcmp(vlan, "unset") != 0 ? 0 : 1;
}
