/* A caller in C: plain names, character buffers, the record never seen. */
#include <stdio.h>
#include <string.h>

#include "igd_c_api.h"

static int failures = 0;

static void expect(int right, const char* rule) {
  if (right) return;
  ++failures;
  (void)fprintf(stderr, "failed: %s\n", rule);
}

static void check_names_without_tree(void) {
  const char* const path = "InternetGatewayDevice.WANDevice.1.WANConnectionDevice.2.";
  char name[16];
  expect(igd_c_get_mask("br_1_2") == 32u, "the mark of br_1_2 is 32");
  igd_c_get_wan_bridge_name(path, name, sizeof name);
  expect(strcmp(name, "br_1_2") == 0, "the bridge of device 1, connection 2 is br_1_2");
  igd_c_get_wan_bridge_intf_name(path, name, 5);
  expect(strcmp(name, "br_1") == 0, "a small buffer gets a cut name, terminated");
}

static void check_layer3_names(void) {
  char name[16] = "";
  igd_c_set_l3_name("wan1", "ppp0");
  igd_c_get_l3_name("wan1", name, sizeof name);
  expect(strcmp(name, "ppp0") == 0, "a stored layer-3 name comes back");
}

/* The factory's LAN bridge is owned by nobody, and so answers for every path. */
static void check_factory_tree(void) {
  char text[16] = "old";
  expect(igd_c_check_belong_bridge("internet", "ath0") == 1, "WLAN1 is a member of internet");
  expect(igd_c_check_belong_bridge("internet", "usb0") == 0, "LAN5 is no member of internet");
  igd_c_get_wan_bridge_vlanid_name("any", text, sizeof text);
  expect(strcmp(text, "0") == 0, "the LAN bridge has VLAN 0");
  igd_c_get_wan_bridge_pvid_name("any", text, sizeof text);
  expect(strcmp(text, "") == 0, "a bridge has no PVID");
  igd_c_get_wan_bridge_vlanpriority_name("any", text, sizeof text);
  expect(strcmp(text, "") == 0, "the LAN bridge has no priority");
}

int main(void) {
  int (*const set_pvid)(const char*, struct api_wan_info*) = igd_c_set_bridge_pvid;
  expect(set_pvid != NULL, "igd_c_set_bridge_pvid is there");
  check_names_without_tree();
  check_layer3_names();
  check_factory_tree();
  return failures == 0 ? 0 : 1;
}
