#include "field.h"

namespace model {
namespace {

using Values = std::vector<std::string>;

struct Row {
  const char* name;
  std::size_t usual;  ///< so many of the values, from the first on, are what is mostly met
  Values values;
};

const Values kPortLists = {"none",       "LAN1",       "LAN2",      "WLAN1",    "LAN1,LAN2",
                           "LAN3,WLAN2", "LAN4,WLAN1", "LAN3",      "WLAN3",    "LAN2,WLAN3,WLAN4",
                           "LAN1,LAN1",  "LAN0",       "LAN5,LAN3", "3G0,WLAN4"};

/// In the order of Field.
const std::vector<Row>& rows() {
  static const std::vector<Row> all = {
      {"wan", 3, {"first", "second", "third", "gone", "never", "uplink", "cut", "none"}},
      {"record", 1, {"given", "null"}},
      {"uplink", 3, {"Ethernet", "3G", "Repeator", "DSL"}},
      {"name", 3, {"A", "B", "C", "none", "long"}},
      {"tagging", 2, {"0", "1", "2"}},
      {"vlan", 5, {"0", "100", "200", "1000", "4060", "4061", "-1"}},
      {"priority", 2, {"0", "5"}},
      {"class", 3, {"1", "2", "3", "0"}},
      {"mode", 3, {"1", "2", "3", "0"}},
      {"bind_lan", 8, kPortLists},
      {"bind_wan", 8, kPortLists},
      {"services", 3, {"INTERNET", "TR069", "VOIP", "INTERNET_TR069", "MME", "none"}},
      {"nat", 2, {"0", "1", "2"}},
      {"texts", 3, {"plain", "other", "none", "ipv6", "long"}},
      {"dns", 2, {"0", "1", "2"}},
      {"options", 4, {"none", "LAN1", "LAN1,WLAN1", "LAN0,LAN2"}},
      {"device_ports", 5, {"255", "15", "0", "1", "3"}},
      {"code", 2, {"1", "2", "3"}},
      {"destination", 2, {"10.0.0.0", "10.1.0.0"}},
      {"netmask", 2, {"255.0.0.0", "255.255.0.0"}},
      {"enabled", 2, {"1", "0", "7"}},
      {"type", 2, {"1", "2", "3"}},
      {"gateway", 1, {"192.168.1.9", "none"}},
      {"bridge", 3, {"internet", "br_1_1", "br_1_2", "br_2_1", "nowhere", "none"}},
      {"physical", 8, {"eth1", "eth0", "eth0.100", "eth1.100", "eth1.4060", "ath0", "3g", "none"}},
      {"object", 3, {"static", "dhcp", "ppp", "outside"}},
      {"parameter", 3, {"MTU", "Name", "X_CT-COM_ServiceList", "Username", "Nowhere"}},
      {"value", 4, {"1400", "A", "INTERNET", "none"}},
      {"key", 2, {"a", "b", "null"}},
      {"size", 2, {"16", "4", "1", "0"}},
  };
  return all;
}

const Row& row(Field field) { return rows().at(static_cast<std::size_t>(field)); }

}  // namespace

const Fields kDescription = {Field::kName,     Field::kTagging, Field::kVlan,    Field::kPriority,
                             Field::kClass,    Field::kMode,    Field::kBindLan, Field::kBindWan,
                             Field::kServices, Field::kNat,     Field::kTexts,   Field::kDns,
                             Field::kOptions};

const char* name_of(Field field) { return row(field).name; }

const std::vector<std::string>& values_of(Field field) { return row(field).values; }

std::size_t usual_values_of(Field field) { return row(field).usual; }

Fields operator+(Fields fields, const Fields& others) {
  fields.insert(fields.end(), others.begin(), others.end());
  return fields;
}

}  // namespace model
