// The trees of the reference platform that the contract suite runs on.
#include <iterator>
#include <sstream>
#include <string>

#include "contract_platform.h"
#include "host_platform.h"

namespace contract {
namespace {

// A tree of its own behind the process's MibAccess, for as long as it lives.
class HostPlatform final : public Platform {
 public:
  explicit HostPlatform(host::Tree tree)
      : tree_(std::move(tree)), before_(host::exchange_active_tree(&tree_)) {}
  ~HostPlatform() override { host::exchange_active_tree(before_); }
  HostPlatform(const HostPlatform&) = delete;
  HostPlatform& operator=(const HostPlatform&) = delete;

  MibAccess& mib() override { return host::mib_access(); }

  std::optional<std::vector<Refused>> refused() override {
    std::vector<Refused> calls;
    for (const host::Refusal& refusal : tree_.refusals()) {
      calls.push_back({refusal.call, refusal.name});
    }
    return calls;
  }

  std::string listing() override {
    std::string text;
    for (const host::Parameter& parameter : tree_.parameters()) {
      text += parameter.name + "=" + parameter.value + "\n";
    }
    return text;
  }

  std::vector<std::string> counts() override {
    return {"InternetGatewayDevice.WANDeviceNumberOfEntries",
            "InternetGatewayDevice.Layer2Bridging.BridgeNumberOfEntries",
            "InternetGatewayDevice.Layer3Forwarding.ForwardNumberOfEntries"};
  }

  std::vector<std::string> closed_tables() override {
    if (!tree_.has_object("InternetGatewayDevice.User.")) return {};
    return {"InternetGatewayDevice.User."};
  }

 private:
  host::Tree tree_;
  host::Tree* before_;
};

#ifdef HOST_HAS_IMPORTS
// A tree that came from a dump: gaps in its numbers, and a table that the data model lacks.
host::Tree imported_tree() {
  std::istringstream dump(
      "Parameter,Object,Writable,Value,Value type\n"
      "InternetGatewayDevice.Layer2Bridging.Bridge.9,true,true,,\n"
      "InternetGatewayDevice.Layer2Bridging.Bridge.3.Port.7.PortInterface,false,true,LAN1,\n"
      "InternetGatewayDevice.WANDevice.2.WANConnectionDevice.5,true,true,,\n"
      "InternetGatewayDevice.Layer3Forwarding.Forwarding.4.Interface,false,true,x,\n"
      "InternetGatewayDevice.User.1.Username,false,true,someone,xsd:string\n");
  host::Tree tree;
  const host::ImportResult result = host::import_csv(tree, dump, "dump");
  return result.ok ? std::move(tree) : host::Tree();
}
#endif

PlatformCase host_case(const char* name, host::Tree (*tree)()) {
  return {name, [tree] { return std::make_unique<HostPlatform>(tree()); }};
}

}  // namespace

std::vector<PlatformCase> platforms() {
  return {
      host_case("MemoryEmpty", [] { return host::Tree(); }),
      host_case("MemoryFactory", &host::Tree::factory),
#ifdef HOST_HAS_IMPORTS
      host_case("MemoryImported", &imported_tree),
#endif
  };
}

}  // namespace contract
