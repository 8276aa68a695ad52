// What the library does before it has a context or a tree, and how often it asks for them.
#include <functional>

#include "gateway_test.h"
#include "pristine.h"

namespace foreign {
namespace {

using Names = std::vector<std::string>;

const std::string kWan = "InternetGatewayDevice.WANDevice.1.WANConnectionDevice.1.";

Platform& platform() { return Platform::instance(); }

/// An operation that needs the tree, and what it prints without one.
struct Operation {
  const char* name;
  std::function<void()> call;
  std::string printed = "";
};

std::string cache_lines() {
  return lines({"debug igd_api:# INDEX=" + kWan, "| vornik: wan_bridge_path = ,name = br_1_1",
                "| vornik: info->lan_bridge_name = ", "| vornik: info->lan_bridge_path = ",
                "| vornik: info->static_path = ", "| vornik: info->dhcp_path = ",
                "| vornik: info->ppp_path = "});
}

void validate_without_tree() {
  api_wan_info info = description(2, 1);
  info.vlan_id = 5;
  info.bind_wan = {"LAN1"};
  info.ip_addr = "";
  EXPECT_EQ(igd_verify_new_wan_info_valid("", &info, 1), 14);
  EXPECT_EQ(info.vlan_id, 0);
  EXPECT_EQ(igd_verify_new_wan_info_valid("", &info, 3), 0);
  info.connection_class = 3;
  EXPECT_EQ(igd_verify_new_wan_info_valid(kWan, &info, 1), 12);
  info.connection_class = 1;
  EXPECT_EQ(igd_verify_new_wan_info_valid("", &info, 1), 0);
}

void refuse_params_without_tree(int (*operation)(std::string, api_wan_info*)) {
  api_wan_info info = description(1, 1);
  const std::string before = describe(info);
  EXPECT_EQ(operation(kWan, &info), -1023);
  EXPECT_EQ(describe(info), before);
  EXPECT_TRUE(g_wan_mibinfo_cache_list.empty());
}

void cache_without_tree() {
  const wan_mib_info* mib = _get_cache(kWan);
  ASSERT_NE(mib, nullptr);
  EXPECT_EQ(mib->wan_path, kWan);
  EXPECT_EQ(mib->bridge_name, "br_1_1");
  EXPECT_EQ(mib->wan_bridge_path + mib->lan_bridge_path + mib->lan_bridge_name, "");
  EXPECT_EQ(mib->static_path + mib->dhcp_path + mib->ppp_path, "");
  EXPECT_EQ(_destory_cache(kWan), 1);
}

void save_binding_without_tree() {
  api_wan_info info;
  info.bind_lan = {"LAN2"};
  saveLanInterfaceToWanNode(kWan, &info);
  EXPECT_EQ(g_wan_mibinfo_cache_list.count(kWan), 1u);
}

std::string binding_lines() {
  const std::string value = "X_CT-COM_LanInterface---value:LAN2------------";
  return "| ---index:" + kWan + "--------\n" + cache_lines() +
         lines({"| ------phy:LAN2------------", "| ---static_path:" + value,
                "| ---dhcp_path:" + value, "| ---ppp_path:" + value});
}

void list_without_tree() {
  Names list = {"left over"};
  EXPECT_EQ(igd_wan_list(list), 0);
  EXPECT_EQ(list, Names{});
  EXPECT_TRUE(g_wan_mibinfo_cache_list.empty());
}

void find_bridge_without_tree(int (*operation)(std::string, std::string*, std::string*)) {
  std::string path = "kept", name = "kept";
  EXPECT_EQ(operation(kWan, &path, &name), -1022);
  EXPECT_EQ(path + name, "keptkept");
}

void list_ports_without_tree() {
  Names ports = {"kept"};
  unsigned int vlan = 9;
  EXPECT_EQ(igd_wan_intf(kWan, ports, vlan), "");
  EXPECT_EQ(ports, Names{"kept"});
  EXPECT_EQ(vlan, 9u);
}

void find_wan_bridge_without_tree() {
  std::string path = "kept", name = "kept";
  EXPECT_EQ(igd_wan_get_wan_bridge_info(kWan, &path, &name), -1023);
  EXPECT_EQ(path, "kept");
  EXPECT_EQ(name, "br_1_1");
}

void read_bridge_without_tree(void (*reader)(const char*, char*, std::size_t)) {
  char buffer[4] = "old";
  reader(kWan.c_str(), buffer, sizeof buffer);
  EXPECT_STREQ(buffer, "");
}

void set_pvid_without_tree() {
  api_wan_info info;
  info.vlan_id = 4;
  EXPECT_EQ(igd_c_set_bridge_pvid("internet", &info), 0);
}

void read_status_without_tree() {
  api_wan_status status;
  status.name = "kept";
  status.connected = 5;
  EXPECT_EQ(igd_wan_status(kWan, &status), -1022);
  EXPECT_EQ(status.name, "kept");
  EXPECT_EQ(status.connected, 5);
}

void server_without_tree(int (*operation)(api_mng_server_info*)) {
  api_mng_server_info info;
  info.url = "kept";
  EXPECT_EQ(operation(&info), -1022);
  EXPECT_EQ(info.url, "kept");
}

template <typename Call>
void expect_emptied(Call call) {
  std::vector<typename Call::Element> list(1);
  EXPECT_EQ(call(list), 0);
  EXPECT_TRUE(list.empty());
}

struct UsedPorts {
  using Element = std::string;
  int operator()(Names& list) const { return igd_get_used_port_list(kWan, list); }
};
struct StaticRoutes {
  using Element = api_route_info;
  int operator()(std::vector<api_route_info>& list) const {
    return igd_get_static_route_list(list);
  }
};
struct Instances {
  using Element = std::string;
  int operator()(Names& list) const { return igd_tool_loop_instance("", 196, list); }
};

api_wan_info wanted = description(1, 1);

std::vector<Operation> operations() {
  return {
      {"validate", validate_without_tree},
      {"create", [] { EXPECT_EQ(igd_wan_create("Ethernet", &wanted), ""); }},
      {"set params", [] { refuse_params_without_tree(igd_wan_set_params); }},
      {"get params", [] { refuse_params_without_tree(igd_wan_get_params); }},
      {"can remove", [] { EXPECT_EQ(igd_verify_can_remove_wan(kWan), 0); }},
      {"destroy", [] { igd_wan_destory(kWan); }},
      {"cache", cache_without_tree, cache_lines()},
      {"binding", save_binding_without_tree, binding_lines()},
      {"list", list_without_tree},
      {"id", [] { EXPECT_EQ(igd_wan_get_id_by_name(""), ""); }},
      {"check index", [] { EXPECT_EQ(igd_check_wan_index(kWan), 0); }},
      {"is index", [] { EXPECT_EQ(igd_verify_is_wan_index(kWan), 0); }},
      {"index in bridge", [] { EXPECT_EQ(igd_verify_wan_index_in_bridge(kWan), 0); }},
      {"set all", [] { igd_set_wan_all_value(kWan, kWan + "Name", "v"); }},
      {"used ports", [] { expect_emptied(UsedPorts()); }},
      {"status", read_status_without_tree},
      {"lan bridge", [] { find_bridge_without_tree(igd_wan_get_lan_bridge_info); }},
      {"device", [] { find_bridge_without_tree(igd_wan_get_bridge_info_from_phy); }},
      {"ports", list_ports_without_tree},
      {"bridge name", [] { EXPECT_EQ(igd_get_bridge_info(kWan), ""); }},
      {"member", [] { EXPECT_EQ(igd_c_check_belong_bridge("internet", "eth1"), 0); }},
      {"wan bridge", find_wan_bridge_without_tree, "debug igd_api:# INDEX=" + kWan + "\n"},
      {"pvid name", [] { read_bridge_without_tree(igd_c_get_wan_bridge_pvid_name); }},
      {"vlan name", [] { read_bridge_without_tree(igd_c_get_wan_bridge_vlanid_name); }},
      {"priority", [] { read_bridge_without_tree(igd_c_get_wan_bridge_vlanpriority_name); }},
      {"pvid", set_pvid_without_tree, "| vornik set internet pvid = 4\n"},
      {"unused vlan", [] { EXPECT_EQ(igd_wan_get_unused_vlan(), 1000); }},
      {"routes", [] { expect_emptied(StaticRoutes()); }},
      {"add route", [] { EXPECT_EQ(igd_set_static_route(1, api_route_info()), -1); }},
      {"delete route", [] { EXPECT_EQ(igd_set_static_route(2, api_route_info()), -1); }},
      {"get server", [] { server_without_tree(igd_mng_server_get_params); }},
      {"set server", [] { server_without_tree(igd_mng_server_set_params); }},
      {"lan address", [] { EXPECT_EQ(igd_c_get_lan_ipaddr(), ""); }},
      {"instances", [] { expect_emptied(Instances()); }},
      {"full name", [] { EXPECT_EQ(igd_tool_loop_fullname("", 196, "internet"), ""); }},
  };
}

void expect_all_to_fail(bool asks_each_time) {
  for (const Operation& operation : operations()) {
    SCOPED_TRACE(operation.name);
    const int before = platform().contexts_asked();
    EXPECT_EQ(platform().record(operation.call), operation.printed);
    EXPECT_EQ(asks_each_time && platform().contexts_asked() == before, false);
  }
}

void without_context() {
  platform().offer(false, true);
  expect_all_to_fail(true);
  expect_all_to_fail(true);
  EXPECT_EQ(platform().accesses_asked(), 0);
  EXPECT_EQ(platform().services_asked(), 0);

  platform().offer(true, true);
  platform().tree().set(std::string(kBridges) + "1.BridgeName", "internet");
  const int before = platform().contexts_asked();
  EXPECT_EQ(igd_tool_loop_fullname("", 196, "internet"), std::string(kBridges) + "1.BridgeName");
  Names list;
  EXPECT_EQ(igd_tool_loop_instance("", 196, list), 1);
  platform().record([&] { igd_wan_set_params(kWan, &wanted); });
  EXPECT_EQ(igd_wan_list(list), 0);
  EXPECT_EQ(platform().contexts_asked(), before + 1);
  EXPECT_EQ(platform().accesses_asked(), 1);
  EXPECT_EQ(platform().services_asked(), 1);
  EXPECT_EQ(lines(platform().complaints()), "");
}
const PristineScenario kWithoutContext("without context", without_context);

void without_tree() {
  platform().offer(true, false);
  expect_all_to_fail(false);
  EXPECT_EQ(platform().contexts_asked(), 1);
  EXPECT_EQ(platform().accesses_asked(), 1);
  EXPECT_EQ(platform().services_asked(), 1);

  platform().offer(true, true);
  expect_all_to_fail(false);
  EXPECT_EQ(platform().contexts_asked(), 1);
  EXPECT_EQ(platform().accesses_asked(), 1);
  EXPECT_EQ(platform().services_asked(), 1);
}
const PristineScenario kWithoutTree("without tree", without_tree);

void names_only() {
  EXPECT_TRUE(g_wan_mibinfo_cache_list.empty());
  EXPECT_TRUE(g_l3_ifname_table.empty());
  Names list;
  igd_tool_split_str("a,b", ",", list);
  _delete_node(list, "a");
  EXPECT_EQ(list, Names{"b"});
  EXPECT_EQ(igd_tool_get_port_value("LAN3"), 4);
  EXPECT_EQ(igd_tool_get_port_index("LAN3"), 3);
  EXPECT_TRUE(isWlan("WLAN1"));
  EXPECT_EQ(getLanIndexByPhy("a") + getWlanIndexByPhy("b"), "ab");
  EXPECT_EQ(igd_transe_node_2_lan_interfac("a") + igd_trans_lan_interface_2_node("b"), "ab");
  EXPECT_EQ(igd_c_get_mask("br_1_2"), 32u);
  char buffer[16];
  igd_c_get_wan_bridge_name(kWan.c_str(), buffer, sizeof buffer);
  igd_c_get_wan_bridge_intf_name(kWan.c_str(), buffer, sizeof buffer);
  platform().record([] { return igd_wan_print_params(&wanted); });
  _rebuid_cache(list);
  EXPECT_EQ(_destory_cache(kWan), 1);
  igd_c_set_l3_name("key", "value");
  igd_c_get_l3_name("key", buffer, sizeof buffer);
  EXPECT_STREQ(buffer, "value");
  EXPECT_EQ(platform().contexts_asked(), 0);
}
const PristineScenario kNamesOnly("names only", names_only);

TEST(Context, IsAskedForByEveryCallUntilItIsThereAndThenNeverAgain) {
  EXPECT_EQ(outcome_of("without context"), "passed");
}

TEST(Context, IsKeptWhenItGivesNoTree) { EXPECT_EQ(outcome_of("without tree"), "passed"); }

TEST(Context, IsNotAskedForByWhatNeedsNoTree) { EXPECT_EQ(outcome_of("names only"), "passed"); }

}  // namespace
}  // namespace foreign
