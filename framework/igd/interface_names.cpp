#include "igd_api.h"
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
