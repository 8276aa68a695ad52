/// What a user asks of a connection: the fields that are named, and no others.
#ifndef IGDCTL_WAN_PATCH_H
#define IGDCTL_WAN_PATCH_H

#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "term/failure.h"
#include "term/output.h"

namespace igdctl {

using Names = std::vector<std::string>;

/// Each field as docs/igdctl-json.md has it; one without a value stays as it is in the tree.
struct WanPatch {
  std::optional<std::string> access;  ///< as the tree spells it
  std::optional<std::string> name;
  std::optional<int> connection_class;  ///< IgdConnectionClass
  std::optional<int> mode;              ///< IgdConnectMode
  std::optional<int> vlan;              ///< 0: untagged
  std::optional<int> priority;
  std::optional<Names> service;
  std::optional<Names> bind_lan;
  std::optional<Names> bind_wan;
  std::optional<bool> nat;
  std::optional<std::string> user;
  std::optional<std::string> password;
  std::optional<std::string> address;
  std::optional<std::string> mask;
  std::optional<std::string> gateway;
  std::optional<Names> dns;
  std::optional<int> mtu;
  std::optional<std::string> option60;
  std::optional<std::map<std::string, std::string>> port_option60;
  std::optional<bool> enable;
  std::optional<bool> remote_management;
  std::optional<bool> stp;
  std::set<std::string> unreadable;  ///< keys of texts that are named with a wrong value
};

inline constexpr int kLargestVlan = 4094;
inline constexpr int kLargestPriority = 7;
inline constexpr int kSmallestMtu = 576;
inline constexpr int kLargestMtu = 1540;
inline constexpr std::size_t kLongestText = 255;  ///< the library cuts longer ones

/// Every key that a description can have, in the order of docs/igdctl-json.md; those that are only
/// read ("path", "id", "bridge", "password_set") are not among them.
const Names& wan_keys();

/// Reads a description. Null stands for a field that is not named, except that "vlan": null is
/// untagged. Keys that `wan show --json` adds are passed over, so that its data can be read again.
///
/// @param json    anything
/// @param problems  gets one for each unknown key, wrong type, and value that is wrong by itself
WanPatch read_patch(const Json& json, std::vector<Problem>* problems);

}  // namespace igdctl

#endif  // IGDCTL_WAN_PATCH_H
