/// How the fields of a connection are read from a description, laid over it, and written: what the
/// rows of the table point to.
#ifndef IGDCTL_FIELD_ACCESSORS_H
#define IGDCTL_FIELD_ACCESSORS_H

#include <algorithm>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "gateway/tree_reader.h"
#include "igd_vocabulary.h"
#include "term/text.h"
#include "wan/fields.h"
#include "wan/wan_words.h"

namespace igdctl::field_accessors {

using Info = api_wan_info;
using Description = WanDescription;
using Text = std::optional<std::string>;

inline const char* text_of(bool on) { return on ? igd::kTrue : igd::kFalse; }

// ---- Fields that are a text of the record ------------------------------------------------------

template <std::string Info::*kMember>
Value value_of(const Description& description) {
  return description.info.*kMember;
}

template <std::string Info::*kMember>
void lay(Description* description, const Value& value) {
  description->info.*kMember = std::get<std::string>(value);
}

template <std::string Info::*kMember>
Text text_in(const Description& description, const WanObject&, const std::string&) {
  return description.info.*kMember;
}

template <std::string Info::*kMember>
constexpr WanField text_field(const char* key, FieldKind kind, const char* value_name,
                              const char* label, const char* help, Where where,
                              const char* parameter) {
  return {key,          kind,
          value_name,   label,
          help,         value_of<kMember>,
          lay<kMember>, {{{where, parameter, text_in<kMember>}}}};
}

// ---- Flags of the connection device: texts of the record, too ----------------------------------

// One that is neither "true" nor "false" is off.
template <std::string Info::*kMember>
Value flag_of(const Description& description) {
  return is_true(description.info.*kMember);
}

template <std::string Info::*kMember>
void lay_flag(Description* description, const Value& value) {
  description->info.*kMember = text_of(std::get<bool>(value));
}

template <std::string Info::*kMember>
constexpr WanField flag_field(const char* key, const char* label, const char* help,
                              const char* parameter) {
  return {key,
          FieldKind::kSwitch,
          "on|off",
          label,
          help,
          flag_of<kMember>,
          lay_flag<kMember>,
          {{{Where::kDevice, parameter, text_in<kMember>}}}};
}

// ---- Access, class, mode -----------------------------------------------------------------------

inline Value access_of(const Description& description) { return description.access; }
inline void lay_access(Description* description, const Value& value) {
  description->access = std::get<std::string>(value);
}

inline Value word_or_nothing(std::string word) {
  return word.empty() ? Value() : Value(std::move(word));
}

inline Value class_of(const Description& description) {
  return word_or_nothing(word_of_class(description.info.connection_class));
}

inline void lay_class(Description* description, const Value& value) {
  description->info.connection_class = class_of_word(std::get<std::string>(value));
}

inline Text type_in(const Description& description, const WanObject& object, const std::string&) {
  switch (description.info.connection_class) {
    case kIgdRouted:
      return igd::kIpRouted;
    case kIgdBridged:
      return object.where == Where::kPppObject ? igd::kPppoeBridged : igd::kIpBridged;
    case kIgdRoutedAndBridged:
      return igd::kIpBridgeRouted;
    default:
      return {};
  }
}

inline Value mode_of(const Description& description) {
  return word_or_nothing(word_of_mode(description.info.connect_mode));
}

inline void lay_mode(Description* description, const Value& value) {
  description->info.connect_mode = mode_of_word(std::get<std::string>(value));
}

inline bool is_of_mode(const Description& description, const WanObject& object) {
  switch (description.info.connect_mode) {
    case kIgdDhcp:
      return object.where == Where::kDhcpObject;
    case kIgdStatic:
      return object.where == Where::kStaticObject;
    case kIgdPppoe:
      return object.where == Where::kPppObject;
    default:
      return false;
  }
}

inline Text enable_in(const Description& description, const WanObject& object, const std::string&) {
  return text_of(is_of_mode(description, object));
}

// ---- VLAN --------------------------------------------------------------------------------------

inline bool is_tagged(const Description& description) { return description.info.vlan_enable != 0; }

inline Value vlan_of(const Description& description) {
  return is_tagged(description) ? description.info.vlan_id : 0;
}

inline void lay_vlan(Description* description, const Value& value) {
  description->info.vlan_id = std::get<int>(value);
  description->info.vlan_enable = description->info.vlan_id != 0 ? 1 : 0;
}

inline Text standard_in(const Description& description, const WanObject&, const std::string&) {
  return is_tagged(description) ? igd::kTaggedStandard : igd::kUntaggedStandard;
}

inline Text vlan_in(const Description& description, const WanObject&, const std::string&) {
  return std::to_string(std::get<int>(vlan_of(description)));
}

// Each mode but 0 is one of a tagged link.
inline Text link_mode_in(const Description& description, const WanObject&, const std::string& now) {
  if (!is_tagged(description)) return "0";
  return now == "0" ? "1" : now;
}

// What the library writes with the field, whatever its value.
inline Text in_passing(const Description&, const WanObject&, const std::string&) { return {}; }

inline Value priority_of(const Description& description) { return description.info.vlan_priority; }

inline void lay_priority(Description* description, const Value& value) {
  description->info.vlan_priority = std::get<int>(value);
}

inline Text priority_in(const Description& description, const WanObject&, const std::string&) {
  return std::to_string(description.info.vlan_priority);
}

inline Value service_of(const Description& description) {
  return split_list(description.info.service_type);
}

inline void lay_service(Description* description, const Value& value) {
  description->info.service_type = joined(std::get<Names>(value), ",");
}

template <Names Info::*kMember>
Value ports_of(const Description& description) {
  return description.info.*kMember;
}

template <Names Info::*kMember>
void lay_ports(Description* description, const Value& value) {
  description->info.*kMember = std::get<Names>(value);
}

// The Ethernet uplink is never noted as a bound port.
inline Text bound_ports_in(const Description& description, const WanObject&, const std::string&) {
  Names ports = description.info.bind_lan;
  ports.insert(ports.end(), description.info.bind_wan.begin(), description.info.bind_wan.end());
  ports.erase(std::remove(ports.begin(), ports.end(), igd::kEthernetUplink), ports.end());
  return joined(ports, ",");
}

// ---- NAT, DNS, MTU -----------------------------------------------------------------------------

inline Value nat_of(const Description& description) { return description.info.nat_mode == 1; }

inline void lay_nat(Description* description, const Value& value) {
  description->info.nat_mode = std::get<bool>(value) ? 1 : 0;
}

inline Text nat_in(const Description& description, const WanObject&, const std::string&) {
  return text_of(description.info.nat_mode == 1);
}

inline std::vector<std::string> servers_in(const std::string& text) {
  std::vector<std::string> servers;
  for (std::string& server : split_list(text)) {
    if (!server.empty()) servers.push_back(std::move(server));
  }
  return servers;
}

// Without empty ones.
inline std::vector<std::string> dns_servers_of(const Info& info) {
  return servers_in(info.ip_dns1 + ',' + info.ip_dns2);
}

inline Value dns_of(const Description& description) { return dns_servers_of(description.info); }

inline void lay_dns(Description* description, const Value& value) {
  const auto& servers = std::get<Names>(value);
  const auto server = [&servers](std::size_t i) {
    return i < servers.size() ? servers[i] : std::string();
  };
  description->info.ip_dns1 = server(0);
  description->info.ip_dns2 = server(1);
  description->info.ip_dns_enable = servers.empty() ? 0 : 1;
}

inline Text dns_enabled_in(const Description& description, const WanObject& object,
                           const std::string& now) {
  if (!is_of_mode(description, object)) return {};
  const bool enabled = description.info.ip_dns_enable == 1;
  return is_true(now) == enabled ? now : text_of(enabled);
}

// The same servers stay in the form that they have, be it one that the library would not write.
// Without servers of its own a connection keeps the text, and does not use it.
inline Text dns_servers_in(const Description& description, const WanObject& object,
                           const std::string& now) {
  const Info& info = description.info;
  if (!is_of_mode(description, object) || info.ip_dns_enable == 0) return {};
  return servers_in(now) == dns_servers_of(info) ? now : info.ip_dns1 + ',' + info.ip_dns2;
}

constexpr std::string Info::*mtu_member(int connect_mode) {
  if (connect_mode == kIgdPppoe) return &Info::pppoe_mtu;
  return connect_mode == kIgdStatic ? &Info::static_mtu : &Info::dhcp_mtu;
}

// What is no number is a text.
inline Value mtu_value(const Description& description) {
  constexpr long kLargest = 999999999;
  const std::string& text = description.info.*mtu_member(description.info.connect_mode);
  long number = 0;
  return parse_number(text, 0, kLargest, &number) ? Value(static_cast<int>(number)) : Value(text);
}

inline void lay_mtu(Description* description, const Value& value) {
  Info& info = description->info;
  info.*mtu_member(info.connect_mode) = std::to_string(std::get<int>(value));
}

template <int kMode>
Text mtu_in(const Description& description, const WanObject&, const std::string&) {
  const Info& info = description.info;
  if (mtu_member(info.connect_mode) != mtu_member(kMode)) return {};
  return info.*mtu_member(kMode);
}

inline Value port_option60_of(const Description& description) {
  return description.info.port_option60;
}

// A port that is no longer named gets an empty text: leaving it out would leave the old one.
inline void lay_port_option60(Description* description, const Value& value) {
  TextsByPort result = std::get<TextsByPort>(value);
  for (const auto& entry : description->info.port_option60) result.insert({entry.first, ""});
  description->info.port_option60 = std::move(result);
}

inline Text port_option60_in(const Description& description, const WanObject& object,
                             const std::string&) {
  const auto found = description.info.port_option60.find(object.port);
  return found == description.info.port_option60.end() ? Text() : Text(found->second);
}

}  // namespace igdctl::field_accessors

#endif  // IGDCTL_FIELD_ACCESSORS_H
