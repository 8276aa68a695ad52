#include "tree_query.h"

#include <string>
#include <utility>
#include <vector>

#include "common_util.h"
#include "data_model.h"
#include "igd_api.h"
#include "igd_vocabulary.h"
#include "text.h"

namespace {

// Owns an open walk, so that every way out closes it.
class OpenIterator {
 public:
  OpenIterator(MibAccess& mib, int type) : mib_(mib), walk_(mib.openInstanceIterator(type)) {}
  ~OpenIterator() {
    if (walk_ != nullptr) mib_.closeInstanceIterator(walk_);
  }
  OpenIterator(const OpenIterator&) = delete;
  OpenIterator& operator=(const OpenIterator&) = delete;

  explicit operator bool() const { return walk_ != nullptr; }
  InstanceIterator* operator->() const { return walk_; }

 private:
  MibAccess& mib_;
  InstanceIterator* walk_;
};

}  // namespace

namespace igd {

std::vector<std::string> instances_below(const std::string& prefix, int type) {
  std::vector<std::string> names;
  MibAccess* const mib = tree();
  if (mib == nullptr) return names;
  const OpenIterator walk(*mib, type);
  if (!walk) return names;
  do {
    std::string name = walk->fullName();
    if (starts_with(name, prefix)) names.push_back(std::move(name));
  } while (walk->next() != 0);
  return names;
}

std::vector<std::string> instances_below(const char* prefix, int type) {
  return instances_below(std::string(prefix), type);
}

std::string parameter_with_value(const std::string& prefix, int type, const std::string& value) {
  for (const std::string& parameter : instances_below(prefix, type)) {
    if (has_value(parameter, value)) return parameter;
  }
  return {};
}

std::string parameter_with_value(const char* prefix, int type, const std::string& value) {
  return parameter_with_value(std::string(prefix), type, value);
}

std::string static_path_of(const std::string& wan_path) {
  return objectPathOf(parameter_with_value(wan_path, kAddressingType, kStaticAddressing));
}

std::string dhcp_path_of(const std::string& wan_path) {
  return objectPathOf(parameter_with_value(wan_path, kAddressingType, kDhcpAddressing));
}

std::string ppp_path_of(const std::string& wan_path) {
  std::vector<std::string> connections = instances_below(wan_path, kPppConnection);
  return connections.empty() ? std::string() : std::move(connections.front());
}

ConnectionPaths connection_paths_of(const std::string& wan_path) {
  ConnectionPaths paths;
  paths.static_path = static_path_of(wan_path);
  paths.dhcp_path = dhcp_path_of(wan_path);
  paths.ppp_path = ppp_path_of(wan_path);
  return paths;
}

}  // namespace igd

int igd_tool_loop_instance(std::string path, int type, std::vector<std::string>& out) {
  out = igd::instances_below(path, type);
  return static_cast<int>(out.size());
}

std::string igd_tool_loop_fullname(std::string path, int type, std::string value) {
  return igd::parameter_with_value(path, type, value);
}
