#include "tree.h"

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <iterator>
#include <utility>

namespace foreign {
namespace {

struct Entry {
  int type;             // the number by which it is enumerated, or 0
  const char* pattern;  // below the root; "#" stands for an instance number
  const char* value;    // what a new instance brings along
};

// Every enumerated parameter is here, so that an enumeration also yields those that nobody has
// written yet.
constexpr Entry kSchema[] = {
    {171, "Layer3Forwarding.Forwarding.#.DestIPAddress", ""},
    {177, "Layer3Forwarding.Forwarding.#.Interface", ""},
    {196, "Layer2Bridging.Bridge.#.BridgeName", ""},
    {197, "Layer2Bridging.Bridge.#.X_ZYN_WANName", ""},
    {199, "Layer2Bridging.Bridge.#.VLANID", "0"},
    {0, "Layer2Bridging.Bridge.#.BridgeStandard", "802.1D"},
    {0, "Layer2Bridging.Bridge.#.BridgeEnable", "false"},
    {203, "Layer2Bridging.Bridge.#.Port.#.PortEnable", "false"},
    {204, "Layer2Bridging.Bridge.#.Port.#.X_ZYN_DependWanName", ""},
    {205, "Layer2Bridging.Bridge.#.Port.#.PortInterface", ""},
    {209, "Layer2Bridging.Bridge.#.Port.#.PVID", "1"},
    {1007, "WANDevice.#.WANCommonInterfaceConfig.WANAccessType", ""},
    {1273, "WANDevice.#.WANConnectionDevice.#.", ""},
    {0, "WANDevice.#.WANConnectionDevice.#.WANEthernetLinkConfig.X_CT-COM_Mode", "0"},
    {0, "WANDevice.#.WANConnectionDevice.#.WANEthernetLinkConfig.X_CT-COM_VLANIDMark", "0"},
    {1351, "WANDevice.#.WANConnectionDevice.#.WANIPConnection.#.Name", ""},
    {1359, "WANDevice.#.WANConnectionDevice.#.WANIPConnection.#.AddressingType", ""},
    {0, "WANDevice.#.WANConnectionDevice.#.WANIPConnection.#.Enable", "false"},
    {0, "WANDevice.#.WANConnectionDevice.#.WANIPConnection.#.DNSEnabled", "true"},
    {1429, "WANDevice.#.WANConnectionDevice.#.WANPPPConnection.#.", ""},
    {1437, "WANDevice.#.WANConnectionDevice.#.WANPPPConnection.#.Name", ""},
    {1887, "WANDevice.#.WANConnectionDevice.#.WANPPPConnection.#.X_CT-COM_ServiceList", ""},
    {0, "WANDevice.#.WANConnectionDevice.#.WANPPPConnection.#.Enable", "false"},
    {0, "WANDevice.#.WANConnectionDevice.#.WANPPPConnection.#.DNSEnabled", "true"},
};

const std::string kRoot = "InternetGatewayDevice.";

bool begins_with(const std::string& text, const std::string& prefix) {
  return text.compare(0, prefix.size(), prefix) == 0;
}

bool is_digit(char c) { return c >= '0' && c <= '9'; }

// A name below the root with "#" for its instance numbers, and those numbers.
std::pair<std::string, std::vector<long>> shape_of(const std::string& name) {
  std::string pattern;
  std::vector<long> numbers;
  for (std::size_t at = kRoot.size(); at < name.size(); ++at) {
    if (name[at - 1] != '.' || !is_digit(name[at])) {
      pattern += name[at];
      continue;
    }
    pattern += '#';
    numbers.push_back(std::strtol(name.c_str() + at, nullptr, 10));
    while (at + 1 < name.size() && is_digit(name[at + 1])) ++at;
  }
  return {pattern, numbers};
}

}  // namespace

std::string Tree::get(const std::string& name) const {
  const auto found = values_.find(name);
  return found == values_.end() ? "" : found->second;
}

int Tree::add(const std::string& table) {
  if (!begins_with(table, kRoot)) return 0;
  const int number = ++last_number_[table];
  const std::string path = table + std::to_string(number) + ".";
  set(path, "");
  const std::string object = shape_of(path).first;
  for (const Entry& entry : kSchema) {
    if (!begins_with(entry.pattern, object)) continue;
    const std::string parameter = entry.pattern + object.size();
    if (parameter.find('#') == std::string::npos) set(path + parameter, entry.value);
  }
  return number;
}

int Tree::erase(const std::string& path) {
  if (path.empty()) return -1;
  auto it = values_.lower_bound(path);
  while (it != values_.end() && begins_with(it->first, path)) it = values_.erase(it);
  return 0;
}

std::vector<std::string> Tree::names_of(int type) const {
  const auto* const entry = std::find_if(std::begin(kSchema), std::end(kSchema),
                                         [&](const Entry& e) { return e.type == type; });
  std::vector<std::pair<std::vector<long>, std::string>> found;
  for (const auto& [name, value] : values_) {
    if (entry == std::end(kSchema) || !begins_with(name, kRoot)) continue;
    const auto [pattern, numbers] = shape_of(name);
    if (pattern == entry->pattern) found.emplace_back(numbers, name);
  }
  std::sort(found.begin(), found.end());
  std::vector<std::string> names;
  for (const auto& instance : found) names.push_back(instance.second);
  return names;
}

std::string Tree::shown(const std::string& path) const {
  std::map<std::string, std::string> objects;
  for (const auto& [name, value] : values_) {
    if (!begins_with(name, path)) continue;
    const std::string object = name.substr(0, name.rfind('.') + 1);
    const bool parameter = name.back() != '.';
    objects[object] += parameter ? " " + name.substr(object.size()) + "=" + value : "";
  }
  std::string text;
  for (const auto& [object, parameters] : objects) {
    text += object.substr(path.size()) + ":" + parameters + "\n";
  }
  return text;
}

std::string Tree::strays() const {
  std::string names;
  for (const auto& entry : values_) {
    if (!begins_with(entry.first, kRoot)) names += entry.first + "\n";
  }
  return names;
}

}  // namespace foreign
