// The tables of names: ports and their interfaces, bindable ports, object types, layer-3 names.
#include <cstring>
#include <vector>

#include "harness.h"
#include "host_platform.h"
#include "igd_api.h"
#include "igd_c_api.h"
#include "igd_common.h"
#include "igd_vocabulary.h"
#include "input.h"

namespace {

using fuzz::Input;
using fuzz::require;
using fuzz::require_same;
using Names = std::vector<std::string>;

constexpr const char* kBindable[] = {"LAN1",  "LAN2",  "LAN3",  "LAN4",
                                     "WLAN1", "WLAN2", "WLAN3", "WLAN4"};

void check_port(const std::string& node) {
  int index = -1;
  for (int i = 0; i < 8; ++i) {
    if (node == kBindable[i]) index = i + 1;
  }
  require(igd_tool_get_port_index(node) == index, "the number of a port");
  require(igd_tool_get_port_value(node) == (index > 0 ? 1 << (index - 1) : 0), "the bit of a port");
  require(isWlan(node) == (node.find('W') != std::string::npos), "a wireless name");
  for (auto* const translate : {&getLanIndexByPhy, &getWlanIndexByPhy,
                                &igd_transe_node_2_lan_interfac, &igd_trans_lan_interface_2_node}) {
    require_same(translate(node), node, "both names of a port are the same");
  }
  const bool is_uplink = node == "LAN0" || node == "3G0" || node == "WIFIW0";
  require(igd::is_wan_side_port(node) == is_uplink, "a port of the WAN side");
  require(igd::is_shared_device(node) == (node == "LAN0" || node == "LAN_DEFAULT1"),
          "a port that is everybody's");
}

const igd::Node* plainly_found(const std::string& name) {
  for (const igd::Node& node : igd::kNodes) {
    if (std::strcmp(node.name, name.c_str()) == 0) return &node;
  }
  return nullptr;
}

// Names without zero bytes: the other entrance takes C texts.
void check_interface(const std::string& name, bool suffix_wanted, int vlan) {
  const igd::Node* const row = plainly_found(name);
  require(igd::find_node(name) == row, "the row of a port");
  std::string expected;
  if (row != nullptr) {
    expected = row->physical;
    const bool has_suffix = suffix_wanted && row->taggable && vlan >= 0 && vlan <= 4094;
    if (has_suffix) expected += '.' + std::to_string(vlan);
  }
  require(expected.size() <= 14, "no name has to be cut");
  require_same(igd::physical_name(name, suffix_wanted, vlan), expected, "the name of an interface");
  int switch_port = 77;
  require_same(getPhyName(name.c_str(), suffix_wanted ? 1 : 0, vlan, &switch_port), expected,
               "the same for a C text");
  require(switch_port == (row != nullptr ? row->vlan : 77), "the number at the switch");
  require(*getPhyName(nullptr, 1, vlan, nullptr) == '\0', "no name, no interface");
}

// Room beside the limit shows what is written beyond it; the limit alone is not ended.
void check_layer3(const std::string& key, const std::string& value, std::size_t size) {
  igd_c_set_l3_name(key.c_str(), value.c_str());
  std::vector<char> buffer(size, '?');
  igd_c_get_l3_name(key.c_str(), buffer.data(), buffer.size());
  std::string expected = value.substr(0, size == 0 ? 0 : size - 1);
  if (size > 0) {
    expected.resize(size - 1, '\0');
    expected += '?';
  }
  require_same({buffer.begin(), buffer.end()}, expected, "a layer-3 name in a buffer");
  require_same(g_l3_ifname_table[key], value, "a layer-3 name in the table");
  g_l3_ifname_table.clear();
}

// Of any number that is asked for, also one that is no type at all.
void check_types(const std::string& prefix, int type) {
  const host::Tree& tree = host::active_tree();
  Names expected;
  for (const std::string& name : tree.instances(type)) {
    if (name.compare(0, prefix.size(), prefix) == 0) expected.push_back(name);
  }
  Names found = {"old"};
  require(igd_tool_loop_instance(prefix, type, found) == static_cast<int>(expected.size()),
          "the number of instances");
  require(found == expected, "the instances below a prefix");
  for (const std::string& name : found) {
    const std::string value = tree.value(name);
    const std::string first = igd_tool_loop_fullname(prefix, type, value);
    require(!first.empty() && tree.value(first) == value, "a value is found where it is");
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static host::Tree factory = host::Tree::factory();
  static host::Tree* const before = host::exchange_active_tree(&factory);
  (void)before;
  Input input(data, size);
  const bool suffix_wanted = input.coin();
  const int vlan = input.number();
  const std::size_t buffer_size = input.byte() % 64;
  const int type =
      input.coin() ? input.number() : static_cast<int>(input.byte()) * 8 + input.below(8);
  check_port(input.text());
  check_types(input.text(), type);
  const std::string plain = input.plain_text();
  check_layer3(input.plain_text(), plain, buffer_size);
  check_interface(plain, suffix_wanted, vlan);
  check_port(plain);
  return 0;
}
