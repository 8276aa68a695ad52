#include "tree/parameter_types.h"

#include <gtest/gtest.h>

namespace igdctl {
namespace {

struct Case {
  const char* type;
  const char* value;
  bool fits;
};

TEST(ParameterTypes, TakeWhatTheyAreDeclaredFor) {
  constexpr Case kCases[] = {
      {"boolean", "true", true},
      {"boolean", "false", true},
      {"boolean", "1", false},
      {"boolean", "TRUE", false},
      {"boolean", "", false},
      {"unsignedInt", "0", true},
      {"unsignedInt", "4294967295", true},
      {"unsignedInt", "4294967296", false},
      {"unsignedInt", "99999999999999999999", false},
      {"unsignedInt", "-1", false},
      {"unsignedInt", "007", false},
      {"unsignedInt", " 7", false},
      {"unsignedInt", "", false},
      {"int", "-2147483648", true},
      {"int", "2147483647", true},
      {"int", "-2147483649", false},
      {"int", "2147483648", false},
      {"int", "-", false},
      {"IPAddress", "192.168.1.1", true},
      {"IPAddress", "", true},
      {"IPAddress", "192.168.1", false},
      {"IPAddress", "192.168.1.256", false},
      {"IPAddress", "192.168.1.1,192.168.1.2", false},
      {"MACAddress", "00:1a:2B:3c:4d:5e", true},
      {"MACAddress", "", true},
      {"MACAddress", "00-1a-2b-3c-4d-5e", false},
      {"MACAddress", "00:1a:2b:3c:4d", false},
      {"dateTime", "2024-02-29T12:30:00Z", true},
      {"dateTime", "2023-02-29T12:30:00Z", false},
      {"dateTime", "1900-02-29T12:30:00Z", false},
      {"dateTime", "0001-01-01T00:00:00Z", true},
      {"dateTime", "2024-02-29T12:30:00.250+01:00", true},
      {"dateTime", "2024-02-29T12:30:00", true},
      {"dateTime", "2024-02-29T24:00:00Z", false},
      {"dateTime", "2024-13-01T00:00:00Z", false},
      {"dateTime", "2024-02-29T12:30:00.Z", false},
      {"dateTime", "2024-02-29T12:30:00+15:00", false},
      {"dateTime", "2024-02-29 12:30:00", false},
      {"dateTime", "yesterday", false},
      {"Alias", "cpe-1", true},
      {"string", "anything, really", true},
      {"", "of an unknown type", true},
  };
  for (const Case& one : kCases) {
    EXPECT_EQ(wanted_by_type(one.type, "A.B", one.value).empty(), one.fits)
        << one.type << " \"" << one.value << '"';
  }
}

TEST(ParameterTypes, AnAliasEndsAt64Bytes) {
  EXPECT_EQ(wanted_by_type("Alias", "A.Alias", std::string(64, 'a')), "");
  EXPECT_NE(wanted_by_type("Alias", "A.Alias", std::string(65, 'a')), "");
  EXPECT_NE(wanted_by_type("Alias", "A.Alias", "\xff"), "");
}

TEST(ParameterTypes, NamesOfListsTakeSeveralAddresses) {
  EXPECT_EQ(wanted_by_type("IPAddress", "A.DNSServers", "192.0.2.1,192.0.2.2"), "");
  EXPECT_EQ(wanted_by_type("IPAddress", "A.DNSServers", ""), "");
  EXPECT_NE(wanted_by_type("IPAddress", "A.DNSServers", "192.0.2.1,"), "");
  EXPECT_NE(wanted_by_type("IPAddress", "A.DNSServers", "192.0.2.1,dns"), "");
}

TEST(ParameterTypes, SayWhatTheyTake) {
  EXPECT_EQ(wanted_by_type("boolean", "A.Enable", "yes"), "true or false");
}

}  // namespace
}  // namespace igdctl
