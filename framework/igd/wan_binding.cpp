#include <cstdio>
#include <string>
#include <vector>

#include "data_model.h"
#include "igd_api.h"
#include "igd_vocabulary.h"

namespace {

constexpr char kParameter[] = "X_CT-COM_LanInterface";

std::string interface_name(const std::string& node) {
  return isWlan(node) ? igd_trans_lan_interface_2_node(getWlanIndexByPhy(node))
                      : igd_trans_lan_interface_2_node(node);
}

void append_ports(const std::vector<std::string>& nodes, std::string* list) {
  for (const std::string& node : nodes) {
    std::printf("------phy:%s------------\n", node.c_str());
    if (node == igd::kEthernetUplink) continue;  // the uplink is no LAN binding
    if (!list->empty()) *list += ',';
    *list += interface_name(node);
  }
}

void store_if_different(const std::string& parameter, const std::string& value) {
  if (!igd::has_value(parameter, value)) igd::store(parameter, value);
}

}  // namespace

void saveLanInterfaceToWanNode(std::string wan_path, api_wan_info* info) {
  ensureContext();
  std::printf("---index:%s--------\n", wan_path.c_str());
  const wan_mib_info* const entry = _get_cache(wan_path);
  // Kept: of a missing object the bare name is asked for, and refused by the tree.
  const std::string static_name = entry->static_path + kParameter;
  const std::string dhcp_name = entry->dhcp_path + kParameter;
  const std::string ppp_name = entry->ppp_path + kParameter;
  std::string list;
  append_ports(info->bind_lan, &list);
  append_ports(info->bind_wan, &list);
  std::printf("---static_path:%s---value:%s------------\n", static_name.c_str(), list.c_str());
  std::printf("---dhcp_path:%s---value:%s------------\n", dhcp_name.c_str(), list.c_str());
  std::printf("---ppp_path:%s---value:%s------------\n", ppp_name.c_str(), list.c_str());
  if (igd::tree() == nullptr) return;
  for (const std::string* name : {&static_name, &dhcp_name, &ppp_name}) {
    store_if_different(*name, list);
  }
}
