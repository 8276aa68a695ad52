/// What a change of a connection writes: the parameters that are to have another text.
#ifndef IGDCTL_WAN_WRITES_H
#define IGDCTL_WAN_WRITES_H

#include <optional>
#include <string>
#include <vector>

#include "common_util.h"
#include "gateway/connections.h"
#include "wan/wan_draft.h"

namespace igdctl {

/// The objects of a connection that are there; of each kind the one that the library writes to.
std::vector<WanObject> objects_of(MibAccess& tree, const Connection& connection);

/// Whether one of the objects has the field, when it has the draft's values.
bool has_place(const std::vector<WanObject>& objects, const WanField& field,
               const WanDescription& draft);

/// The writes of one change. They are found before the first of them is made.
///
/// A plain field is a write to each of its parameters that has another text. A structural one goes
/// through igd_wan_set_params, which writes the whole description, ports and VLAN included. What
/// that changes of fields that are not named is put back: the tree may hold a form that no
/// description can carry (a second enabled object, objects of different names or types, a port
/// that is switched off).
class WanWrites {
 public:
  WanWrites(MibAccess& tree, const Connection& connection, const WanDraft& draft);

  /// Whether the tree has all that the draft names.
  bool empty() const;

  /// Throws Failure (kPlatform) when the tree refuses a write, or has other ports afterwards.
  void run();

 private:
  struct Parameter {
    std::string object_path;
    const char* name;
    bool of_port;
    std::string before;
    std::optional<std::string> after;  // nothing: what the library makes of it
  };

  void add(const WanField& field, const Place& place, const WanObject& object);
  Parameter& parameter_at(const WanObject& object, const char* name);
  void write_structure();
  void require_ports(const char* key);

  MibAccess& tree_;
  const Connection& connection_;
  WanDraft draft_;
  std::vector<Parameter> parameters_;
  bool structural_ = false;
};

}  // namespace igdctl

#endif  // IGDCTL_WAN_WRITES_H
