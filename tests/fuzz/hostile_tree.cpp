#include "hostile_tree.h"

#include <cstdint>
#include <utility>

#include "host_access.h"

namespace fuzz {
namespace {

struct Kind {
  ObjectType type;
  const char* pattern;
};

constexpr Kind kKinds[] = {
    {kWanConnectionDevice, kWanPattern},
    {kBridgeWanName, "InternetGatewayDevice.Layer2Bridging.Bridge.#.X_ZYN_WANName"},
    {kBridgeName, "InternetGatewayDevice.Layer2Bridging.Bridge.#.BridgeName"},
    {kBridgeVlanId, "InternetGatewayDevice.Layer2Bridging.Bridge.#.VLANID"},
    {kPortInterface, "InternetGatewayDevice.Layer2Bridging.Bridge.#.Port.#.PortInterface"},
    {kPortDependWanName,
     "InternetGatewayDevice.Layer2Bridging.Bridge.#.Port.#.X_ZYN_DependWanName"},
    {kPortPvid, "InternetGatewayDevice.Layer2Bridging.Bridge.#.Port.#.PVID"},
    {kPortEnable, "InternetGatewayDevice.Layer2Bridging.Bridge.#.Port.#.PortEnable"},
    {kAddressingType,
     "InternetGatewayDevice.WANDevice.#.WANConnectionDevice.#.WANIPConnection.#.AddressingType"},
    {kIpConnectionName,
     "InternetGatewayDevice.WANDevice.#.WANConnectionDevice.#.WANIPConnection.#.Name"},
    {kPppConnection, "InternetGatewayDevice.WANDevice.#.WANConnectionDevice.#.WANPPPConnection.#."},
    {kPppConnectionName,
     "InternetGatewayDevice.WANDevice.#.WANConnectionDevice.#.WANPPPConnection.#.Name"},
    {kServiceList,
     "InternetGatewayDevice.WANDevice.#.WANConnectionDevice.#.WANPPPConnection.#.X_CT-COM_"
     "ServiceList"},
    {kWanAccessType, "InternetGatewayDevice.WANDevice.#.WANCommonInterfaceConfig.WANAccessType"},
    {kForwardingDestIpAddress, "InternetGatewayDevice.Layer3Forwarding.Forwarding.#.DestIPAddress"},
    {kForwardingInterface, "InternetGatewayDevice.Layer3Forwarding.Forwarding.#.Interface"},
};

constexpr int kMostTexts = 8;
constexpr int kMostInstances = 4;
constexpr int kMostAdded = 12;
constexpr unsigned kOrdinaryNames = 225;  // of 256
constexpr unsigned kBareNames = 240;      // and as many as are left up to here

// The same wherever the tests run, so that stored inputs keep their meaning.
std::size_t hash_of(const std::string& name) {
  std::uint64_t hash = 0x811c9dc5;
  for (const char letter : name) {
    hash = ((hash ^ static_cast<unsigned char>(letter)) * 0x01000193U) & 0xffffffffU;
  }
  return hash >> 8U;
}

// An ordinary one, one that stands in no object, or anything.
std::string draw_name(Input& input, const char* pattern) {
  const unsigned chosen = input.byte();
  if (chosen >= kBareNames) return input.text();
  const std::string name = input.path(pattern);
  return chosen < kOrdinaryNames ? name : name.substr(name.rfind('.', name.size() - 2) + 1);
}

}  // namespace

HostileTree::HostileTree(Input& input) {
  texts_ = input.texts(kMostTexts);
  texts_.emplace_back();
  for (int count = input.below(kMostAdded); count > 0; --count) numbers_.push_back(input.number());
  for (const Kind& kind : kKinds) {
    for (int count = input.below(kMostInstances + 1); count > 0; --count) {
      const std::string name = draw_name(input, kind.pattern);
      instances_[kind.type].push_back(name);
      values_[name] = input.coin() ? input.text() : texts_[input.byte() % texts_.size()];
    }
  }
}

int HostileTree::addObject(const std::string& /*table_path*/, int* instance, int /*access*/) {
  if (added_ >= numbers_.size()) return -1;
  *instance = numbers_[added_++];
  return 0;
}

int HostileTree::deleteObject(const std::string& object_path) {
  for (auto& [type, names] : instances_) {
    std::vector<std::string> left;
    for (std::string& name : names) {
      if (name.compare(0, object_path.size(), object_path) != 0) left.push_back(std::move(name));
    }
    names = std::move(left);
  }
  return static_cast<int>(object_path.size() % 2);
}

InstanceIterator* HostileTree::openInstanceIterator(int type) {
  const auto found = instances_.find(type);
  if (found == instances_.end() || found->second.empty()) return nullptr;
  return new Walk(found->second);
}

void HostileTree::closeInstanceIterator(InstanceIterator* iterator) {
  delete static_cast<Walk*>(iterator);
}

std::string HostileTree::getValue(const std::string& name) {
  const auto found = values_.find(name);
  return found != values_.end() ? found->second : texts_[hash_of(name) % texts_.size()];
}

int HostileTree::setValue(const std::string& name, const std::string& value, int /*flags*/) {
  values_[name] = value;
  return 0;
}

}  // namespace fuzz
