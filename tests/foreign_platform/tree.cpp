#include "tree.h"

#include <algorithm>
#include <cctype>
#include <cstdlib>

namespace foreign {
namespace {

struct ObjectType {
  int identifier;
  const char* pattern;  // "#" stands for an instance number
};

constexpr ObjectType kObjectTypes[] = {
    {171, "InternetGatewayDevice.Layer3Forwarding.Forwarding.#.DestIPAddress"},
    {177, "InternetGatewayDevice.Layer3Forwarding.Forwarding.#.Interface"},
    {196, "InternetGatewayDevice.Layer2Bridging.Bridge.#.BridgeName"},
    {197, "InternetGatewayDevice.Layer2Bridging.Bridge.#.X_ZYN_WANName"},
    {199, "InternetGatewayDevice.Layer2Bridging.Bridge.#.VLANID"},
    {203, "InternetGatewayDevice.Layer2Bridging.Bridge.#.Port.#.PortEnable"},
    {204, "InternetGatewayDevice.Layer2Bridging.Bridge.#.Port.#.X_ZYN_DependWanName"},
    {205, "InternetGatewayDevice.Layer2Bridging.Bridge.#.Port.#.PortInterface"},
    {209, "InternetGatewayDevice.Layer2Bridging.Bridge.#.Port.#.PVID"},
    {1007, "InternetGatewayDevice.WANDevice.#.WANCommonInterfaceConfig.WANAccessType"},
    {1273, "InternetGatewayDevice.WANDevice.#.WANConnectionDevice.#."},
    {1351, "InternetGatewayDevice.WANDevice.#.WANConnectionDevice.#.WANIPConnection.#.Name"},
    {1359,
     "InternetGatewayDevice.WANDevice.#.WANConnectionDevice.#.WANIPConnection.#.AddressingType"},
    {1429, "InternetGatewayDevice.WANDevice.#.WANConnectionDevice.#.WANPPPConnection.#."},
    {1437, "InternetGatewayDevice.WANDevice.#.WANConnectionDevice.#.WANPPPConnection.#.Name"},
    {1887,
     "InternetGatewayDevice.WANDevice.#.WANConnectionDevice.#.WANPPPConnection.#."
     "X_CT-COM_ServiceList"},
};

struct Default {
  const char* table;  // the last component of the table that the instance is added to
  const char* parameter;
  const char* value;
};

// What a new instance brings along. Every enumerated parameter is here, so that an enumeration
// also yields the parameters that nobody has written yet.
constexpr Default kDefaults[] = {
    {"WANDevice.", "WANCommonInterfaceConfig.WANAccessType", ""},
    {"WANConnectionDevice.", "WANEthernetLinkConfig.X_CT-COM_Mode", "0"},
    {"WANConnectionDevice.", "WANEthernetLinkConfig.X_CT-COM_VLANIDMark", "0"},
    {"WANIPConnection.", "Name", ""},
    {"WANIPConnection.", "AddressingType", ""},
    {"WANIPConnection.", "Enable", "false"},
    {"WANIPConnection.", "DNSEnabled", "true"},
    {"WANPPPConnection.", "Name", ""},
    {"WANPPPConnection.", "X_CT-COM_ServiceList", ""},
    {"WANPPPConnection.", "Enable", "false"},
    {"WANPPPConnection.", "DNSEnabled", "true"},
    {"Bridge.", "BridgeName", ""},
    {"Bridge.", "X_ZYN_WANName", ""},
    {"Bridge.", "VLANID", "0"},
    {"Bridge.", "BridgeStandard", "802.1D"},
    {"Bridge.", "BridgeEnable", "false"},
    {"Port.", "PortEnable", "false"},
    {"Port.", "X_ZYN_DependWanName", ""},
    {"Port.", "PortInterface", ""},
    {"Port.", "PVID", "1"},
    {"Forwarding.", "DestIPAddress", ""},
    {"Forwarding.", "Interface", ""},
    {"Forwarding.", "Enable", "false"},
};

constexpr char kRoot[] = "InternetGatewayDevice.";

bool begins_with(const std::string& text, const std::string& prefix) {
  return text.compare(0, prefix.size(), prefix) == 0;
}

std::vector<std::string> components_of(const std::string& name) {
  std::vector<std::string> components(1);
  for (char c : name) {
    if (c == '.') {
      components.emplace_back();
    } else {
      components.back() += c;
    }
  }
  return components;
}

bool is_number(const std::string& text) {
  return !text.empty() &&
         std::all_of(text.begin(), text.end(), [](unsigned char c) { return std::isdigit(c); });
}

// The instance numbers of a name under `pattern`; false when the name has another shape.
bool numbers_under(const std::vector<std::string>& pattern,
                   const std::vector<std::string>& components, std::vector<long>& numbers) {
  if (components.size() != pattern.size()) return false;
  numbers.clear();
  for (std::size_t i = 0; i < pattern.size(); ++i) {
    if (pattern[i] != "#") {
      if (components[i] != pattern[i]) return false;
    } else if (is_number(components[i])) {
      numbers.push_back(std::strtol(components[i].c_str(), nullptr, 10));
    } else {
      return false;
    }
  }
  return true;
}

// The object type of a name and its instance numbers; 0 when it is not enumerated.
int type_of(const std::string& name, std::vector<long>& numbers) {
  const std::vector<std::string> components = components_of(name);
  for (const ObjectType& entry : kObjectTypes) {
    if (numbers_under(components_of(entry.pattern), components, numbers)) return entry.identifier;
  }
  return 0;
}

std::string last_component(const std::string& table) {
  return table.substr(parent_of(table).size());
}

}  // namespace

std::string parent_of(const std::string& name) {
  const std::size_t last = name.find_last_not_of(" \n\t\r");
  if (last == std::string::npos) return "";
  std::size_t dot = std::string::npos;
  if (name[last] != '.') {
    dot = name.rfind('.');
  } else if (last > 0) {
    dot = name.rfind('.', last - 1);
  }
  return dot == std::string::npos ? "" : name.substr(0, dot + 1);
}

std::string Tree::get(const std::string& name) const {
  const auto found = values_.find(name);
  return found == values_.end() ? "" : found->second;
}

void Tree::set(const std::string& name, const std::string& value) {
  if (values_.insert_or_assign(name, value).second) appeared(name);
}

int Tree::add(const std::string& table) {
  ++adds_;
  if (refused_adds_.count(adds_) != 0 || !begins_with(table, kRoot)) return 0;
  const int number = ++last_number_[table];
  const std::string path = table + std::to_string(number) + ".";
  objects_.insert(path);
  appeared(path);
  for (const Default& entry : kDefaults) {
    if (last_component(table) == entry.table) set(path + entry.parameter, entry.value);
  }
  return number;
}

int Tree::erase(const std::string& path) {
  if (path.empty()) return -1;
  const auto refused = refused_erases_.find(path);
  if (refused != refused_erases_.end()) return refused->second;
  for (auto it = values_.lower_bound(path); it != values_.end() && begins_with(it->first, path);) {
    disappeared(it->first);
    it = values_.erase(it);
  }
  for (auto it = objects_.lower_bound(path); it != objects_.end() && begins_with(*it, path);) {
    disappeared(*it);
    it = objects_.erase(it);
  }
  return 0;
}

std::vector<std::string> Tree::names_of(int type) const {
  std::vector<std::string> names;
  const auto found = instances_.find(type);
  if (found == instances_.end()) return names;
  for (const auto& instance : found->second) names.push_back(instance.second);
  return names;
}

void Tree::appeared(const std::string& name) {
  std::vector<long> numbers;
  const int type = type_of(name, numbers);
  if (type != 0) instances_[type][numbers] = name;
}

void Tree::disappeared(const std::string& name) {
  std::vector<long> numbers;
  const int type = type_of(name, numbers);
  if (type != 0) instances_[type].erase(numbers);
}

void Tree::refuse_add(int nth) { refused_adds_.insert(adds_ + nth); }

void Tree::refuse_erase(const std::string& path, int result) { refused_erases_[path] = result; }

}  // namespace foreign
