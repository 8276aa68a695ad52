#include "surroundings.h"

#include "argument_text.h"
#include "short_names.h"

namespace transcripts {
namespace {

bool is_below(const std::string& name, const std::string& path) { return name.rfind(path, 0) == 0; }

// "A.1.B.2.Name" and "A.1.B.2." are of the object "A.1.B.2.".
std::string object_of(const std::string& name) { return name.substr(0, name.rfind('.') + 1); }

// The short name of an object, without its last dot, as it stands behind that of its parent.
std::string short_below(const std::string& object_path, const std::string& parent_path) {
  const std::string name = shorten(object_path).substr(shorten(parent_path).size());
  return name.substr(0, name.size() - 1);
}

std::string joined(const Lines& parts) {
  std::string text;
  for (const std::string& part : parts) text += (text.empty() ? "" : ", ") + part;
  return text;
}

// A parameter's value, and what stands before it, unless it is empty.
std::string unless_empty(const std::string& before, const std::string& value) {
  return value.empty() ? value : before + value;
}

std::string object_text(const host::Tree& tree, const std::string& path,
                        const std::string& connection) {
  return short_below(path, connection) + unless_empty(" ", tree.value(path + "AddressingType")) +
         ' ' + shown(tree.value(path + "Name")) +
         (tree.value(path + "Enable") == "true" ? " enabled" : "");
}

std::string connection_line(const host::Tree& tree, const std::string& path) {
  const std::string device = path.substr(0, path.find("WANConnectionDevice."));
  const std::string type = tree.value(device + "WANCommonInterfaceConfig.WANAccessType");
  Lines objects;
  for (const int object_type : {kAddressingType, kPppConnection}) {
    for (const std::string& name : tree.instances(object_type)) {
      if (is_below(name, path)) objects.push_back(object_text(tree, object_of(name), path));
    }
  }
  return path + unless_empty(" on ", type) + unless_empty(" has ", joined(objects));
}

std::string port_text(const host::Tree& tree, const std::string& path, const std::string& bridge) {
  return short_below(path, bridge) + ' ' + tree.value(path + "PortInterface") +
         unless_empty(" PVID ", tree.value(path + "PVID")) +
         unless_empty(" for ", tree.value(path + "X_ZYN_DependWanName"));
}

std::string bridge_line(const host::Tree& tree, const std::string& path) {
  Lines ports;
  for (const std::string& name : tree.instances(kPortInterface)) {
    if (is_below(name, path)) ports.push_back(port_text(tree, object_of(name), path));
  }
  return path + ' ' + shown(tree.value(path + "BridgeName")) + ' ' +
         tree.value(path + "BridgeStandard") + unless_empty(" ", tree.value(path + "VLANID")) +
         unless_empty(" of ", tree.value(path + "X_ZYN_WANName")) +
         unless_empty(" has ", joined(ports));
}

std::string route_line(const host::Tree& tree, const std::string& path) {
  return path + unless_empty(" to ", tree.value(path + "DestIPAddress")) +
         unless_empty("/", tree.value(path + "DestSubnetMask")) +
         unless_empty(" via ", tree.value(path + "GatewayIPAddress")) +
         unless_empty(" by ", tree.value(path + "Interface")) +
         unless_empty(" table ", tree.value(path + "X_ZYN_RouteTable"));
}

}  // namespace

Lines surroundings(const host::Tree& tree) {
  Lines lines;
  for (const std::string& path : tree.instances(kWanConnectionDevice)) {
    lines.push_back(connection_line(tree, path));
  }
  for (const std::string& name : tree.instances(kBridgeName)) {
    lines.push_back(bridge_line(tree, object_of(name)));
  }
  for (const std::string& name : tree.instances(kForwardingInterface)) {
    lines.push_back(route_line(tree, object_of(name)));
  }
  return lines;
}

}  // namespace transcripts
