// Every exported operation, called through the declaration that this program wrote down for itself,
// on a gateway with one connection.
#include <fstream>
#include <set>

#include "gateway_test.h"

namespace foreign {
namespace {

std::set<std::string>& used_names() {
  static std::set<std::string> names;
  return names;
}

// The operation or map of that name, which counts as used from now on.
#define USED(name) (used_names().insert(#name), name)

/// What the library exports: names without arguments, "igd_wan_list" of "igd_wan_list(...)".
std::set<std::string> exported_names() {
  std::set<std::string> names;
  std::ifstream file(EXPORTED_NAMES);
  for (std::string line; std::getline(file, line);) {
    if (line.empty() || line[0] == '#' || line[0] == ' ') continue;
    names.insert(line.substr(0, line.find_first_of("([")));
  }
  return names;
}

class Operations : public GatewayTest {
 protected:
  void SetUp() override {
    GatewayTest::SetUp();
    add_lan_bridge({"LAN1", "LAN2", "LAN3"});
    info_ = description(1, 2);
    info_.vlan_enable = 1;
    info_.vlan_id = 100;
    info_.bind_lan = {"LAN1"};
    info_.bind_wan = {"LAN2"};
  }

  void bring_a_connection_to_life();
  void look_it_up();
  void look_at_its_bridges();
  void read_its_bridge_into_buffers();
  void keep_routes_and_settings();
  void walk_the_tree();
  void translate_names();
  void keep_the_cache();
  void remove_it();

  std::string text_of(void (*reader)(const char*, char*, std::size_t)) {
    char buffer[16] = "old";
    run([&] { reader(kWan.c_str(), buffer, sizeof buffer); });
    return buffer;
  }

  api_wan_info info_;
  Names list_;
};

void Operations::bring_a_connection_to_life() {
  EXPECT_EQ(run([&] { return USED(igd_verify_new_wan_info_valid)("", &info_, 255); }), 0);
  EXPECT_EQ(run([&] { return USED(igd_wan_create)("Ethernet", &info_); }), kWan);
  EXPECT_EQ(run([&] { return USED(igd_verify_new_wan_info_valid)("", &info_, 255); }), 9);
  EXPECT_EQ(run([&] { return USED(igd_wan_set_params)(kWan, &info_); }), 0);
  EXPECT_EQ(printed().substr(0, printed().find('\n')),
            "igd_wan_set_params  igd_wan_print_params(info) :1234");
  info_.vlan_id = 0;
  EXPECT_EQ(run([&] { return USED(igd_wan_get_params)(kWan, &info_); }), 0);
  EXPECT_EQ(info_.vlan_id, 100);
  EXPECT_GT(run([&] { return USED(igd_wan_print_params)(&info_); }), 0);
  info_.bind_lan = {"LAN3"};
  run([&] { USED(saveLanInterfaceToWanNode)(kWan, &info_); });
  EXPECT_EQ(tree().get(kWan + "WANPPPConnection.1.X_CT-COM_LanInterface"), "LAN3,LAN2");
  api_wan_status status;
  EXPECT_EQ(run([&] { return USED(igd_wan_status)(kWan, &status); }), 0);
  EXPECT_EQ(status.connect_mode, 2);
}

void Operations::look_it_up() {
  EXPECT_EQ(run([&] { return USED(igd_wan_list)(list_); }), 1);
  EXPECT_EQ(list_, Names{kWan});
  EXPECT_EQ(run([&] { return USED(igd_wan_get_id_by_name)("wan-one"); }), kWan);
  const std::string owner = kBridges + "2.X_ZYN_WANName";
  EXPECT_EQ(run([&] { return USED(igd_check_wan_index)(owner); }), 1);
  EXPECT_EQ(printed(), "----igd_check_wan_index: wan exist-----" + owner + "----\n");
  EXPECT_EQ(run([&] { return USED(igd_verify_is_wan_index)(kWan); }), 1);
  EXPECT_EQ(run([&] { return USED(igd_verify_wan_index_in_bridge)(kWan); }), 1);
  EXPECT_EQ(run([&] { return USED(igd_get_used_port_list)("", list_); }), 0);
  EXPECT_EQ(list_, (Names{"LAN1", "LAN2"}));
  const std::string name = kWan + "WANIPConnection.2.Name";
  run([&] { USED(igd_set_wan_all_value)(kWan, name, "renamed"); });
  EXPECT_EQ(printed() + logged(), "===node:Name=======value:renamed============\ncommit 1\n");
  EXPECT_EQ(tree().get(kWan + "WANPPPConnection.1.Name"), "renamed");
}

void Operations::look_at_its_bridges() {
  std::string path, name;
  EXPECT_EQ(run([&] { return USED(igd_get_bridge_info)(kWan); }), "br_1_1");
  EXPECT_EQ(run([&] { return USED(igd_wan_get_lan_bridge_info)(kWan, &path, &name); }), 0);
  EXPECT_EQ(path + " " + name, kBridges + "1. internet");
  EXPECT_EQ(run([&] { return USED(igd_wan_get_wan_bridge_info)(kWan, &path, &name); }), 0);
  EXPECT_EQ(path + " " + name, kBridges + "2. br_1_1");
  EXPECT_EQ(logged(), "igd_api:# INDEX=" + kWan + "\n");
  unsigned int vlan = 0;
  EXPECT_EQ(run([&] { return USED(igd_wan_intf)(kWan, list_, vlan); }), "br_1_1");
  EXPECT_EQ(list_, (Names{"LAN0", "LAN2"}));
  EXPECT_EQ(vlan, 100u);
  EXPECT_EQ(run([&] { return USED(igd_c_check_belong_bridge)("br_1_1", "eth0.100"); }), 1);
  EXPECT_EQ(logged(), "igd_api:# Matched Ifname eth0.100 in bridge=br_1_1\n");
  const auto of_device = USED(igd_wan_get_bridge_info_from_phy);
  EXPECT_EQ(run([&] { return of_device("eth0.100", &path, &name); }), 0);
  EXPECT_EQ(path + " " + name, kBridges + "2. br_1_1");
  EXPECT_EQ(run([&] { return USED(igd_wan_get_unused_vlan)(); }), 1000);
}

void Operations::read_its_bridge_into_buffers() {
  tree().set(kBridges + "1.X_ZYN_WANName", "nobody");  // an ownerless bridge answers for every path
  tree().set(kBridges + "2.PVID", "pvid");
  EXPECT_EQ(USED(igd_c_get_mask)("br_1_2"), 32u);
  EXPECT_EQ(text_of(USED(igd_c_get_wan_bridge_name)), "br_1_1");
  EXPECT_EQ(text_of(USED(igd_c_get_wan_bridge_intf_name)), "br_1_1");
  EXPECT_EQ(text_of(USED(igd_c_get_wan_bridge_pvid_name)), "pvid");
  EXPECT_EQ(text_of(USED(igd_c_get_wan_bridge_vlanid_name)), "100");
  EXPECT_EQ(text_of(USED(igd_c_get_wan_bridge_vlanpriority_name)), "0");
  info_.vlan_id = 7;
  EXPECT_EQ(run([&] { return USED(igd_c_set_bridge_pvid)("br_1_1", &info_); }), 0);
  EXPECT_EQ(tree().get(kBridges + "2.Port.2.PVID"), "7");
}

void Operations::keep_routes_and_settings() {
  const api_route_info route = {"10.1.0.0", "255.255.0.0", 1, 1, "", "10.0.0.9"};
  std::vector<api_route_info> routes;
  EXPECT_EQ(run([&] { return USED(igd_set_static_route)(1, route); }), 0);
  EXPECT_EQ(run([&] { return USED(igd_get_static_route_list)(routes); }), 1);
  EXPECT_EQ(run([&] { return USED(igd_clear_static_route)(); }), 0);
  EXPECT_EQ(logged(), "commit 1\napply \n");
  EXPECT_EQ(tree().shown(kForwarding), "");
  api_mng_server_info server = {"url", "", "", "", "", ""};
  EXPECT_EQ(run([&] { return USED(igd_mng_server_set_params)(&server); }), 0);
  EXPECT_EQ(run([&] { return USED(igd_mng_server_get_params)(&server); }), 0);
  EXPECT_EQ(server.url, "url");
  tree().set(
      "InternetGatewayDevice.LANDevice.1.LANHostConfigManagement.IPInterface.1."
      "IPInterfaceIPAddress",
      "192.168.1.1");
  EXPECT_EQ(run([&] { return USED(igd_c_get_lan_ipaddr)(); }), "192.168.1.1");
  USED(igd_c_set_l3_name)(kWan.c_str(), "ppp0");
  EXPECT_EQ(USED(g_l3_ifname_table).at(kWan), "ppp0");
  EXPECT_EQ(text_of(USED(igd_c_get_l3_name)), "ppp0");
}

void Operations::walk_the_tree() {
  EXPECT_EQ(run([&] { return USED(igd_tool_loop_instance)(kBridges, 196, list_); }), 2);
  EXPECT_EQ(list_, (Names{kBridges + "1.BridgeName", kBridges + "2.BridgeName"}));
  EXPECT_EQ(run([&] { return USED(igd_tool_loop_fullname)("", 196, "br_1_1"); }),
            kBridges + "2.BridgeName");
  USED(igd_tool_split_str)("a,b;c", ",;", list_);
  USED(_delete_node)(list_, "b");
  EXPECT_EQ(list_, (Names{"a", "c"}));
}

void Operations::translate_names() {
  EXPECT_EQ(USED(igd_tool_get_port_value)("LAN3"), 4);
  EXPECT_EQ(USED(igd_tool_get_port_index)("WLAN1"), 5);
  EXPECT_TRUE(USED(isWlan)("WLAN1"));
  EXPECT_FALSE(isWlan("LAN1"));
  EXPECT_EQ(USED(getLanIndexByPhy)("a"), "a");
  EXPECT_EQ(USED(getWlanIndexByPhy)("b"), "b");
  EXPECT_EQ(USED(igd_transe_node_2_lan_interfac)("c"), "c");
  EXPECT_EQ(USED(igd_trans_lan_interface_2_node)("d"), "d");
}

void Operations::keep_the_cache() {
  Names kept = {kWan};
  run([] { return USED(_get_cache)("other"); });
  USED(_rebuid_cache)(kept);
  EXPECT_EQ(USED(g_wan_mibinfo_cache_list).size(), 1u);
  EXPECT_EQ(run([] { return USED(_destory_cache)(kWan); }), 1);
  EXPECT_TRUE(g_wan_mibinfo_cache_list.empty());
}

void Operations::remove_it() {
  EXPECT_EQ(run([&] { return USED(igd_verify_can_remove_wan)(kWan); }), 0);
  run([&] { USED(igd_wan_destory)(kWan); });
  EXPECT_EQ(tree().shown(kWan), "");
}

TEST_F(Operations, AreEachCalledAsTheyAreDeclaredHere) {
  bring_a_connection_to_life();
  look_it_up();
  look_at_its_bridges();
  read_its_bridge_into_buffers();
  keep_routes_and_settings();
  walk_the_tree();
  translate_names();
  keep_the_cache();
  remove_it();
  EXPECT_EQ(used_names(), exported_names());
}

// The library looks into the maps that this program sees, whichever of the two holds them.
TEST_F(Operations, ShareTheExportedMapsWithTheProgram) {
  auto* const own = new wan_mib_info;  // the library's from here on
  own->dhcp_path = kWan + "mine.";
  g_wan_mibinfo_cache_list[kWan] = own;
  EXPECT_EQ(run([] { return _get_cache(kWan); }), own);
  EXPECT_EQ(printed() + logged(), "");
  g_wan_mibinfo_cache_list["nobody's"] = nullptr;
  EXPECT_EQ(run([&] { return igd_wan_list(list_); }), 0);
  EXPECT_TRUE(g_wan_mibinfo_cache_list.empty());

  g_l3_ifname_table[kWan] = "nas1";
  EXPECT_EQ(text_of(igd_c_get_l3_name), "nas1");
  g_l3_ifname_table.clear();
  EXPECT_EQ(text_of(igd_c_get_l3_name), "");
  EXPECT_EQ(g_l3_ifname_table, (std::map<std::string, std::string>{{kWan, ""}}));
}

}  // namespace
}  // namespace foreign
