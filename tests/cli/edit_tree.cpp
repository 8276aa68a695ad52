// Brings the store of IGD_STORE into states that igdctl would not make:
//
//   edit_tree create NAME VLAN SERVICE BIND_LAN BIND_WAN   a routed DHCP connection; "-" for none
//   edit_tree set NAME VALUE | add TABLE | delete PATH | get NAME
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "common_util.h"
#include "igd_api.h"

namespace {

std::vector<std::string> words_of(const std::string& list) {
  std::vector<std::string> words;
  if (list != "-") igd_tool_split_str(list, ",", words);
  return words;
}

int create(char** words) {
  api_wan_info info;
  info.wan_info_name = words[0];
  info.vlan_id = std::atoi(words[1]);
  info.vlan_enable = info.vlan_id != 0 ? 1 : 0;
  info.connection_class = kIgdRouted;
  info.connect_mode = kIgdDhcp;
  info.service_type = words[2];
  info.bind_lan = words_of(words[3]);
  info.bind_wan = words_of(words[4]);
  info.wan_enable = "true";
  return igd_wan_create("Ethernet", &info).empty() ? 1 : 0;
}

int edit(const std::string& verb, int count, char** words) {
  constexpr int kLevel = 255;
  MibAccess& tree = *getContext()->mibAccess();
  int number = 0;
  if (verb == "create" && count == 5) return create(words);
  if (verb == "set" && count == 2) return tree.setValue(words[0], words[1], 0);
  if (verb == "add" && count == 1) return tree.addObject(words[0], &number, kLevel);
  if (verb == "delete" && count == 1) return tree.deleteObject(words[0]);
  if (verb != "get" || count != 1) return 2;
  (void)std::fprintf(stderr, "%s\n", tree.getValue(words[0]).c_str());
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  // The library prints on standard output, which is nobody's business here.
  if (argc < 2 || std::freopen("/dev/null", "w", stdout) == nullptr) return 2;
  const int result = edit(argv[1], argc - 2, argv + 2);
  std::vector<std::string> none;
  _rebuid_cache(none);  // frees what the library remembers
  return result != 0 ? result : getContext()->mibAccess()->commit(1);
}
