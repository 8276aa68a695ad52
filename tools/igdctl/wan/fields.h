/// The fields of a connection, a row each. Options, completion, the manual, JSON in and out, its
/// schema and page, `wan show`, checks and writes follow from the rows.
#ifndef IGDCTL_FIELDS_H
#define IGDCTL_FIELDS_H

#include <array>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "igd_types.h"

namespace igdctl {

using Names = std::vector<std::string>;
using TextsByPort = std::map<std::string, std::string>;

/// What a field has, in the form that people and JSON give it. Nothing: what is there is none of
/// the words of the field.
using Value = std::variant<std::monostate, bool, int, std::string, Names, TextsByPort>;

/// What of a connection a description can tell.
struct WanDescription {
  api_wan_info info;
  std::string access;  ///< of its uplink
};

enum class FieldKind {
  kText,
  kSecret,      ///< a text that is never an argument, and shown only when that is asked for
  kNumber,      ///< from `low` to `high`
  kSwitch,      ///< on or off
  kWord,        ///< one of the words of `value_name`
  kAddress,     ///< IPv4, or empty
  kMask,        ///< of IPv4, or empty
  kWords,       ///< a list of words, in any order
  kPorts,       ///< a list of ports, in any order
  kServers,     ///< a list of addresses
  kTextsByPort  ///< a text for each of some ports
};

/// The objects of a connection.
enum class Where {
  kNowhere,
  kDevice,        ///< the connection device
  kDhcpObject,    ///< the IP connection with addressing by DHCP
  kStaticObject,  ///< the one with a static address
  kPppObject,
  kEachObject,  ///< those three
  kOwnBridge,
  kOwnPorts  ///< the ports of its own bridge
};

/// One object of a connection.
struct WanObject {
  Where where;
  std::string path;
  std::string port;  ///< of a port: its PortInterface
};

/// The text that a parameter has for a description, as igd_wan_set_params would write it.
///
/// @param now  the text that it has
/// @return nothing when the description says nothing of this object
using TextIn = std::optional<std::string> (*)(const WanDescription& description,
                                              const WanObject& object, const std::string& now);

/// A parameter that a field stands in.
struct Place {
  Where where = Where::kNowhere;
  const char* parameter = nullptr;
  TextIn text = nullptr;
};

inline constexpr std::size_t kMostPlaces = 7;

struct WanField {
  const char* key;  ///< of JSON; the option is "--key", with "-" for "_"
  FieldKind kind;
  const char* value_name;  ///< of the option; of switches and words: all of them, "on|off"
  const char* label;       ///< in `wan show`
  const char* help;
  Value (*value)(const WanDescription&);
  void (*lay)(WanDescription*, const Value&);
  std::array<Place, kMostPlaces> places;  ///< the first without an object ends them

  /// igd_wan_set_params writes it, with all that follows; a field that is not structural is a
  /// write in each of its places.
  bool structural = false;
  int low = 0;
  int high = 0;
  const char* lowest = nullptr;  ///< what the lowest number is called; null in JSON is that
  bool may_be_empty = false;     ///< of a word
  bool (*is_kept)(const WanDescription&) = nullptr;  ///< unless null: whether the tree keeps it
};

/// All rows. Those come first that others are laid over: the mode before what its object has.
class WanFields {
 public:
  const WanField* begin() const;
  const WanField* end() const;
};
inline constexpr WanFields kWanFields;

/// The row of a key; null when there is none.
const WanField* find_field(std::string_view key);

/// The same for a key that is known to be one.
const WanField& field_of(std::string_view key);

/// Whether two values of a field mean the same: ports and words in any order do, and a port with
/// an empty text is one without.
bool is_same(const WanField& field, const Value& left, const Value& right);

std::string option_of(const WanField& field);              ///< "--bind-lan"
std::string hint_to_give(const WanField& field);           ///< "give --bind-lan PORTS"
std::string help_of(const WanField& field);                ///< its help, with the limits
std::vector<std::string> words_of(const WanField& field);  ///< of a word or switch
std::string choices_of(const WanField& field);             ///< "dhcp, static or pppoe"

/// A value as people see it in a table.
std::string shown_text(const WanField& field, const Value& value);

}  // namespace igdctl

#endif  // IGDCTL_FIELDS_H
