#include "tree/parameter_types.h"

#include <arpa/inet.h>

#include <algorithm>
#include <cstdint>

#include "gateway/names.h"
#include "igd_vocabulary.h"
#include "term/text.h"

namespace igdctl {

namespace {

constexpr std::size_t kLongestAlias = 64;

constexpr int kBase = 10;

bool is_digit(char letter) { return letter >= '0' && letter <= '9'; }

// A decimal number without needless zeros, up to `highest`.
bool is_number(std::string_view text, std::uint64_t highest) {
  constexpr std::size_t kMostDigits = 10;
  const bool has_needless_zero = text.size() > 1 && text[0] == '0';
  if (text.empty() || text.size() > kMostDigits || has_needless_zero) return false;
  if (!std::all_of(text.begin(), text.end(), is_digit)) return false;
  std::uint64_t number = 0;
  for (const char digit : text) number = number * kBase + static_cast<std::uint64_t>(digit - '0');
  return number <= highest;
}

bool is_boolean(std::string_view text) { return text == "true" || text == "false"; }

bool is_unsigned(std::string_view text) { return is_number(text, UINT32_MAX); }

bool is_int(std::string_view text) {
  constexpr std::uint64_t kHighest = INT32_MAX;
  const bool negative = !text.empty() && text[0] == '-';
  return negative ? is_number(text.substr(1), kHighest + 1) : is_number(text, kHighest);
}

bool is_address(std::string_view text) {
  in_addr address{};
  return text.empty() || inet_pton(AF_INET, std::string(text).c_str(), &address) == 1;
}

bool are_addresses(std::string_view text) {
  const std::vector<std::string> addresses = split_list(text);
  return std::all_of(addresses.begin(), addresses.end(),
                     [](const std::string& one) { return !one.empty() && is_address(one); });
}

// The data model types them as one address.
bool holds_several_addresses(std::string_view name) {
  constexpr std::string_view kNames[] = {"DNSServers", "ReservedAddresses", "IPRouters"};
  return std::find(std::begin(kNames), std::end(kNames), own_name_of(name)) != std::end(kNames);
}

bool is_mac_address(std::string_view text) {
  constexpr std::size_t kLength = 17;
  if (text.empty()) return true;
  if (text.size() != kLength) return false;
  for (std::size_t i = 0; i < kLength; ++i) {
    if (i % 3 == 2 ? text[i] != ':' : hexadecimal_digit(text[i]) < 0) return false;
  }
  return true;
}

// Takes `digits` digits off the front of the text, and the mark behind them unless it is '\0'.
bool take_number(std::string_view& text, std::size_t digits, char mark, int low, int high,
                 int* number) {
  const std::size_t length = digits + (mark == '\0' ? 0 : 1);
  if (text.size() < length || (mark != '\0' && text[digits] != mark)) return false;
  int value = 0;
  for (const char digit : text.substr(0, digits)) {
    if (!is_digit(digit)) return false;
    value = value * kBase + (digit - '0');
  }
  text.remove_prefix(length);
  *number = value;
  return value >= low && value <= high;
}

// The largest numbers of a date and a time. No leap second: clocks of gateways have none.
constexpr int kLastYear = 9999;
constexpr int kLastMonth = 12;
constexpr int kLastHour = 23;
constexpr int kLastMinute = 59;
constexpr int kLastSecond = 59;
constexpr int kLargestZone = 14;  // hours from UTC

int days_of(int year, int month) {
  constexpr int kFebruary = 2;
  constexpr int kLeapDays = 29;
  constexpr int kDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  const bool leap = (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
  return month == kFebruary && leap ? kLeapDays : kDays[month - 1];
}

// "", "Z", "+01:00", each after a fraction of a second or none.
bool is_rest_of_time(std::string_view text) {
  if (!text.empty() && text[0] == '.') {
    const std::size_t end = text.find_first_not_of("0123456789", 1);
    if (end == 1 || text.size() == 1) return false;
    text.remove_prefix(end == std::string_view::npos ? text.size() : end);
  }
  if (text.empty() || text == "Z") return true;
  if (text[0] != '+' && text[0] != '-') return false;
  text.remove_prefix(1);
  int hours = 0;
  int minutes = 0;
  return take_number(text, 2, ':', 0, kLargestZone, &hours) &&
         take_number(text, 2, '\0', 0, kLastMinute, &minutes) && text.empty();
}

bool is_date_time(std::string_view text) {
  int year = 0;
  int month = 0;
  int day = 0;
  int number = 0;
  return take_number(text, 4, '-', 1, kLastYear, &year) &&
         take_number(text, 2, '-', 1, kLastMonth, &month) &&
         take_number(text, 2, 'T', 1, days_of(year, month), &day) &&
         take_number(text, 2, ':', 0, kLastHour, &number) &&
         take_number(text, 2, ':', 0, kLastMinute, &number) &&
         take_number(text, 2, '\0', 0, kLastSecond, &number) && is_rest_of_time(text);
}

bool is_alias(std::string_view text) { return is_utf8(text) && text.size() <= kLongestAlias; }

bool is_vlan(std::string_view text) { return is_number(text, igd::kHighestVlan); }

// Their types let them hold more than there are VLANs.
struct VlanRule {
  std::string_view name;
  const char* wanted;
};

constexpr VlanRule kVlanRules[] = {
    {"VLANID", "a VLAN from 1 to 4094, or 0 for untagged"},
    {"X_CT-COM_VLANIDMark", "a VLAN from 1 to 4094, or 0 for untagged"},
    {"PVID", "a VLAN from 1 to 4094, 0 or nothing"},
};

struct TypeRule {
  std::string_view type;
  bool (*fits)(std::string_view);
  const char* wanted;
};

constexpr TypeRule kRules[] = {
    {"boolean", is_boolean, "true or false"},
    {"unsignedInt", is_unsigned, "a number from 0 to 4294967295"},
    {"int", is_int, "a number from -2147483648 to 2147483647"},
    {"IPAddress", is_address, "an address such as 192.168.1.1, or nothing"},
    {"MACAddress", is_mac_address, "an address such as 00:1a:2b:3c:4d:5e, or nothing"},
    {"dateTime", is_date_time, "a time such as 2024-02-29T12:30:00Z"},
    {"Alias", is_alias, "a UTF-8 text of at most 64 bytes"},
};

}  // namespace

std::string wanted_by_type(std::string_view type, std::string_view name, std::string_view value) {
  for (const VlanRule& rule : kVlanRules) {
    if (own_name_of(name) == rule.name && !is_vlan(value)) return rule.wanted;
  }
  if (type == "IPAddress" && holds_several_addresses(name)) {
    return are_addresses(value) ? "" : "addresses separated by commas, or nothing";
  }
  for (const TypeRule& rule : kRules) {
    if (rule.type == type) return rule.fits(value) ? std::string() : rule.wanted;
  }
  return {};
}

}  // namespace igdctl
