#include "workload.h"

#include <algorithm>
#include <map>
#include <random>

#include "host_platform.h"

namespace bench {
namespace {

std::string added(host::Tree& tree, const std::string& table_path) {
  int number = 0;
  tree.add_object(table_path, &number);
  return table_path + std::to_string(number) + ".";
}

void add_connections(host::Tree& tree, int connections) {
  const std::string wan_path = added(tree, "InternetGatewayDevice.WANDevice.");
  for (int i = 0; i < connections; ++i) {
    const std::string device_path = added(tree, wan_path + "WANConnectionDevice.");
    added(tree, device_path + "WANIPConnection.");
    added(tree, device_path + "WANPPPConnection.");
  }
}

std::string text_of_type(const std::string& type, std::mt19937& random) {
  const auto below = [&random](unsigned bound) { return std::to_string(random() % bound); };
  if (type == "boolean") return random() % 2 == 0 ? "true" : "false";
  if (type == "int" || type == "unsignedInt") return below(1000000000U);
  if (type == "IPAddress") return "10." + below(256) + "." + below(256) + "." + below(256);
  if (type == "MACAddress") return "00:13:49:" + std::to_string(10 + random() % 90) + ":5e:7f";
  return below(10000) + "_INTERNET_R_VID_" + below(4095);
}

std::vector<Entry> entries_of(const host::Tree& tree, const std::string& prefix,
                              std::size_t removed) {
  std::mt19937 random(1);
  std::vector<Entry> entries;
  for (const auto& parameter : tree.parameters(prefix)) {
    const auto info = *tree.describe(parameter.name);
    Entry entry{parameter.name.substr(removed), parameter.value, parameter.value};
    if (!info.derived) {
      entry.first = text_of_type(info.type, random);
      entry.second = text_of_type(info.type, random);
    }
    entries.push_back(std::move(entry));
  }
  return entries;
}

bool is_count(const Entry& entry) { return entry.name.find("NumberOf") != std::string::npos; }

std::vector<Entry> without_counts(std::vector<Entry> entries) {
  entries.erase(std::remove_if(entries.begin(), entries.end(), is_count), entries.end());
  return entries;
}

Workload made(int connections) {
  Workload work;
  host::Tree tree;
  add_connections(tree, connections);
  work.connections = connections;
  work.entries = entries_of(tree, "InternetGatewayDevice.WANDevice.1.WANConnectionDevice.", 0);
  std::vector<Entry> order = work.entries;
  std::shuffle(order.begin(), order.end(), std::mt19937(2));
  work.shuffled = order;  // copied, so that the names lie in memory in the order of access
  work.shuffled_writes = without_counts(order);
  work.enumerated = tree.instances(kAddressingType);
  return work;
}

}  // namespace

const char kAddedTable[] = "InternetGatewayDevice.LANDevice.";

void fill(host::Tree& tree, const Workload& work) {
  add_connections(tree, work.connections);
  for (const Entry& entry : work.entries) tree.set_value(entry.name, entry.first);
  tree.clear_refusals();  // of the counts
}

const Workload& workload(int connections) {
  static std::map<int, Workload> made_before;
  const auto found = made_before.find(connections);
  if (found != made_before.end()) return found->second;
  return made_before.emplace(connections, made(connections)).first->second;
}

const std::vector<Entry>& added_parameters() {
  static const std::vector<Entry> parameters = [] {
    host::Tree tree;
    const std::string path = added(tree, kAddedTable);
    return entries_of(tree, path, path.size());
  }();
  return parameters;
}

const std::vector<Entry>& added_writes() {
  static const std::vector<Entry> writes = without_counts(added_parameters());
  return writes;
}

}  // namespace bench
