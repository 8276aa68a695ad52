#include <cstddef>
#include <cstring>
#include <string>

#include "igd_api.h"
#include "igd_c_api.h"
#include "igd_vocabulary.h"

namespace {

int position_of(const std::string& node) {
  int position = 0;
  for (const char* port : igd::kBindablePorts) {
    if (node == port) return position;
    ++position;
  }
  return -1;
}

}  // namespace

int igd_tool_get_port_value(std::string node) {
  const int position = position_of(node);
  return position < 0 ? 0 : 1 << position;
}

int igd_tool_get_port_index(std::string node) {
  const int position = position_of(node);
  return position < 0 ? kIgdFailed : position + 1;
}

bool isWlan(std::string node) { return node.find('W') != std::string::npos; }

std::string getLanIndexByPhy(std::string name) { return name; }

std::string getWlanIndexByPhy(std::string name) { return name; }

std::string igd_transe_node_2_lan_interfac(std::string node) { return node; }

std::string igd_trans_lan_interface_2_node(std::string interface) { return interface; }

void igd_c_set_l3_name(const char* key, const char* value) {
  if (key == nullptr || value == nullptr) return;
  g_l3_ifname_table[key] = value;
}

void igd_c_get_l3_name(const char* key, char* buf, size_t size) {
  if (key == nullptr) {
    if (buf != nullptr && size != 0) buf[0] = '\0';
    return;
  }
  if (buf == nullptr || size == 0) return;
  const std::string value = g_l3_ifname_table[key];
  std::strncpy(buf, value.c_str(), size - 1);  // Kept: a value that fills the limit stays open.
}
