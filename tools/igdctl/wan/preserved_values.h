/// What a change of a connection must leave as it was, though the library writes it too.
#ifndef IGDCTL_PRESERVED_VALUES_H
#define IGDCTL_PRESERVED_VALUES_H

#include <string>
#include <vector>

#include "common_util.h"
#include "gateway/connections.h"
#include "wan/wan_draft.h"

namespace igdctl {

/// igd_wan_set_params writes a whole description over a connection. What the tree held in another
/// form than a description can carry would be lost: a single DNS server without a comma, a second
/// enabled object, objects of different names or types, a port that is switched off. This remembers
/// those values before, and puts back what belongs to no field that the user named.
class PreservedValues {
 public:
  PreservedValues(MibAccess& tree, const Connection& connection);

  /// Puts back what is different now and not named. Objects that are gone stay gone.
  void restore(const WanDraft& draft);

 private:
  struct Value {
    std::string object_path;
    std::string parameter;
    std::string text;
    std::vector<std::string> keys;  // of the fields that may change it
  };
  struct Row;

  void remember(const std::string& object_path, const Row& row);
  void remember_objects(const std::string& wan_path);
  void remember_ports(const std::string& bridge_path);

  MibAccess& tree_;
  std::vector<Value> values_;
};

}  // namespace igdctl

#endif  // IGDCTL_PRESERVED_VALUES_H
