#include "short_names.h"

#include <gtest/gtest.h>

#include <map>
#include <set>

namespace transcripts {
namespace {

const std::string kConnection = "InternetGatewayDevice.WANDevice.1.WANConnectionDevice.2.";
const std::string kBridge = "InternetGatewayDevice.Layer2Bridging.Bridge.3.";

struct Row {
  std::string full;
  std::string brief;
};

TEST(ShortNames, AreThoseOfTheTable) {
  const Row rows[] = {
      {"InternetGatewayDevice.", "igd."},
      {"InternetGatewayDevice.WANDevice.", "igd.WANDevice."},
      {"InternetGatewayDevice.WANDevice.1.", "wan(1)."},
      {"InternetGatewayDevice.WANDevice.1.WANConnectionDevice.", "wan(1).WANConnectionDevice."},
      {kConnection, "wan(1.2)."},
      {kConnection + "X_CT-COM_Enable", "wan(1.2).X_CT-COM_Enable"},
      {kConnection + "WANIPConnection.", "wan(1.2).WANIPConnection."},
      {kConnection + "WANIPConnection.2.Name", "wan(1.2).ip(2).Name"},
      {kConnection + "WANPPPConnection.1.Enable", "wan(1.2).ppp.Enable"},
      {kConnection + "WANPPPConnection.2.Enable", "wan(1.2).ppp(2).Enable"},
      {kConnection + "WANPPPConnection.1.PortMapping.4.", "wan(1.2).ppp.mapping(4)."},
      {kBridge + "VLANID", "bridge(3).VLANID"},
      {kBridge + "Port.10.PVID", "bridge(3).port(10).PVID"},
      {"InternetGatewayDevice.Layer3Forwarding.Forwarding.4.Enable", "route(4).Enable"},
      {"InternetGatewayDevice.ManagementServer.URL", "igd.ManagementServer.URL"},
      {"| vornik " + kBridge + "VLANID = 100", "| vornik bridge(3).VLANID = 100"},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(shorten(row.full), row.brief);
    EXPECT_EQ(expand(row.brief), row.full);
  }
}

TEST(ShortNames, LeaveWhatTheyDoNotStandFor) {
  for (const char* name : {"", "X_CT-COM_LanInterface", "Enable", "100", "WANIPConnection.1.",
                           "Port.1.PVID", "internetgatewaydevice.WANDevice.1.", "returns 0"}) {
    EXPECT_EQ(shorten(name), name);
  }
}

TEST(ShortNames, MarkWhatLooksLikeOne) {
  EXPECT_EQ(shorten("wan(1.2).Enable"), R"(\wan(1.2).Enable)");
  EXPECT_EQ(shorten("igd.Enable"), R"(\igd.Enable)");
  EXPECT_EQ(shorten(kConnection + "ppp.Enable"), R"(wan(1.2).\ppp.Enable)");
  EXPECT_EQ(shorten(kBridge + "port(1).PVID"), R"(bridge(3).\port(1).PVID)");
  EXPECT_EQ(shorten(R"(a\b)"), R"(a\\b)");
}

// Names that differ where a careless rule would not look.
std::set<std::string> adversarial_names() {
  std::set<std::string> names = {"", ".", "Enable", ".Enable", "\\", "\\\\", "igd.", "\\igd."};
  const std::string roots[] = {"",
                               "InternetGatewayDevice.",
                               "InternetGatewayDevice.WANDevice.",
                               "InternetGatewayDevice.WANDevice.1",
                               "InternetGatewayDevice.WANDevice.1.",
                               "InternetGatewayDevice.WANDevice.01.",
                               "InternetGatewayDevice.WANDevice.1.WANConnectionDevice.1.",
                               "InternetGatewayDevice.WANDevice.11.WANConnectionDevice.0.",
                               "InternetGatewayDevice.WANDevice.x.WANConnectionDevice.1.",
                               kConnection,
                               kBridge,
                               "InternetGatewayDevice.Layer3Forwarding.Forwarding.1.",
                               "igd.WANDevice.1.",
                               "wan(1).",
                               "wan(1.1).",
                               "wan(1.2).",
                               "bridge(3).",
                               "route(1).",
                               "\\wan(1.2)."};
  const std::string rests[] = {"",
                               "Enable",
                               "WANIPConnection.1.",
                               "WANIPConnection.0.",
                               "WANPPPConnection.1.",
                               "WANPPPConnection.01.",
                               "WANPPPConnection.2.",
                               "WANConnectionDevice.1.",
                               "WANDevice.1.",
                               "Port.1.",
                               "Port.1",
                               "PortMapping.1.",
                               "ip(1).",
                               "ppp.",
                               "ppp(1).",
                               "port(1).",
                               "mapping(1).",
                               "\\ip(1).",
                               "Unknown.1.Enable"};
  for (const std::string& root : roots) {
    for (const std::string& rest : rests) {
      for (const char* end : {"", "Enable", "PortMapping.1.", "mapping(1)."}) {
        names.insert(std::string(root).append(rest).append(end));
      }
    }
  }
  return names;
}

TEST(ShortNames, AreNeverTheSameForTwoNames) {
  std::map<std::string, std::string> name_of_short;
  for (const std::string& name : adversarial_names()) {
    const auto [place, is_new] = name_of_short.insert({shorten(name), name});
    EXPECT_TRUE(is_new) << name << " and " << place->second << " are both " << place->first;
    EXPECT_EQ(expand(shorten(name)), name);
  }
}

TEST(ShortNames, GiveEveryTextBack) {
  const std::string parts[] = {"InternetGatewayDevice.",
                               "WANDevice.1.",
                               "WANConnectionDevice.2.",
                               "WANIPConnection.1.",
                               "PortMapping.",
                               "Layer2Bridging.Bridge.3.",
                               "Port.",
                               "igd.",
                               "wan(",
                               "1.2).",
                               "1",
                               ").",
                               "ip(1).",
                               "ppp",
                               ".",
                               "mapping(1).",
                               "\\",
                               "bridge(3).",
                               "i",
                               " "};
  for (const std::string& first : parts) {
    for (const std::string& second : parts) {
      for (const std::string& third : parts) {
        for (const std::string& start : {std::string(), kConnection, kBridge}) {
          const std::string text = std::string(start).append(first).append(second).append(third);
          EXPECT_EQ(expand(shorten(text)), text);
        }
      }
    }
  }
}

}  // namespace
}  // namespace transcripts
