// Static routes.
#include "gateway_test.h"

namespace foreign {
namespace {

using Names = std::vector<std::string>;

std::string describe(const api_route_info& route) {
  return route.dest_ip + "/" + route.dest_mask + " " + std::to_string(route.enable) + " " +
         std::to_string(route.route_type) + " [" + route.interface + "] [" + route.gateway + "]";
}

class Routes : public GatewayTest {
 protected:
  static std::string add_entry(const std::string& ip, const std::string& mask) {
    const std::string entry = add_route("", "");
    tree().set(entry + "DestIPAddress", ip);
    tree().set(entry + "DestSubnetMask", mask);
    return entry;
  }

  static api_route_info route(int type) {
    api_route_info route;
    route.dest_ip = "10.1.0.0";
    route.dest_mask = "255.255.0.0";
    route.enable = 1;
    route.route_type = type;
    route.interface = "wan-one";
    route.gateway = "192.168.1.254";
    return route;
  }

  int set(int op, const api_route_info& route) {
    return run([&] { return igd_set_static_route(op, route); });
  }

  Names list() {
    std::vector<api_route_info> routes(1);
    routes[0].dest_ip = "left over";
    const int count = run([&] { return igd_get_static_route_list(routes); });
    EXPECT_EQ(count, static_cast<int>(routes.size()));
    Names found;
    for (const api_route_info& entry : routes) found.push_back(describe(entry));
    return found;
  }

  std::string entry(int number) const { return kForwarding + std::to_string(number) + "."; }
};

TEST_F(Routes, AreListedInTheOrderOfTheTable) {
  const std::string by_gateway = add_entry("10.1.0.0", "255.255.0.0");
  tree().set(by_gateway + "Enable", "true");
  tree().set(by_gateway + "GatewayIPAddress", "192.168.1.254");
  tree().set(by_gateway + "Interface", "ignored");
  const std::string by_interface = add_entry("10.2.0.0", "255.255.255.0");
  tree().set(by_interface + "Enable", "TRUE");
  tree().set(by_interface + "Interface", "a wan");
  EXPECT_EQ(list(), (Names{"10.1.0.0/255.255.0.0 1 1 [] [192.168.1.254]",
                           "10.2.0.0/255.255.255.0 0 2 [a wan] []"}));
  EXPECT_EQ(
      transcript(),
      lines({"open 171", "close", "get " + by_gateway + "DestIPAddress",
             "get " + by_gateway + "DestSubnetMask", "get " + by_gateway + "Enable",
             "get " + by_gateway + "GatewayIPAddress", "get " + by_interface + "DestIPAddress",
             "get " + by_interface + "DestSubnetMask", "get " + by_interface + "Enable",
             "get " + by_interface + "GatewayIPAddress", "get " + by_interface + "Interface"}));
}

TEST_F(Routes, AreEnabledByTheTextTrueOnly) {
  const std::string entry = add_entry("10.1.0.0", "");
  for (const char* text : {"1", "True", "", "false", "true "}) {
    tree().set(entry + "Enable", text);
    EXPECT_EQ(list(), Names{"10.1.0.0/ 0 2 [] []"}) << text;
  }
}

TEST_F(Routes, AreNoneOnAnEmptyTable) {
  EXPECT_EQ(list(), Names{});
  EXPECT_EQ(transcript(), "open 171\n");
}

TEST_F(Routes, AreClearedOneByOneAndThenAsAWhole) {
  add_entry("a", "");
  add_entry("b", "");
  EXPECT_EQ(run([] { return igd_clear_static_route(); }), 0);
  EXPECT_EQ(transcript(),
            lines({"open 171", "close", "delete " + entry(1), "delete " + entry(2),
                   "delete InternetGatewayDevice.Layer3Forwarding.", "commit 1", "apply \"\""}));
}

TEST_F(Routes, AreClearedAndCommittedEvenWhenThereAreNone) {
  EXPECT_EQ(run([] { return igd_clear_static_route(); }), 0);
  EXPECT_EQ(transcript(), lines({"open 171", "delete InternetGatewayDevice.Layer3Forwarding.",
                                 "commit 1", "apply \"\""}));
}

TEST_F(Routes, AreNotCommittedWhenTheLastDeletionFails) {
  add_entry("a", "");
  tree().refuse_erase("InternetGatewayDevice.Layer3Forwarding.", -77);
  EXPECT_EQ(run([] { return igd_clear_static_route(); }), -77);
  EXPECT_EQ(writes_of(transcript()),
            lines({"delete " + entry(1), "delete InternetGatewayDevice.Layer3Forwarding."}));
}

TEST_F(Routes, AreClearedWhateverTheSingleDeletionsAnswer) {
  add_entry("a", "");
  tree().refuse_erase(entry(1), 3);
  EXPECT_EQ(run([] { return igd_clear_static_route(); }), 0);
  EXPECT_NE(transcript().find("\ncommit 1\n"), std::string::npos);
}

TEST_F(Routes, AreAddedThroughAGateway) {
  EXPECT_EQ(set(1, route(1)), 0);
  EXPECT_EQ(
      transcript(),
      lines({"open 171", "add InternetGatewayDevice.Layer3Forwarding.Forwarding. 255: 1",
             "set " + entry(1) + "Enable = false", "set " + entry(1) + "DestIPAddress = 10.1.0.0",
             "set " + entry(1) + "DestSubnetMask = 255.255.0.0", "set " + entry(1) + "Interface = ",
             "set " + entry(1) + "GatewayIPAddress = 192.168.1.254",
             "set " + entry(1) + "Enable = true", "commit 1", "apply \"\""}));
}

TEST_F(Routes, AreAddedThroughTheConnectionThatHasTheName) {
  const Connection connection = add_connection(add_device("Ethernet"));
  tree().set(connection.fixed + "Name", "wan-one");
  EXPECT_EQ(set(1, route(2)), 0);
  EXPECT_EQ(
      transcript(),
      lines({"open 171", "add InternetGatewayDevice.Layer3Forwarding.Forwarding. 255: 1",
             "set " + entry(1) + "Enable = false", "set " + entry(1) + "DestIPAddress = 10.1.0.0",
             "set " + entry(1) + "DestSubnetMask = 255.255.0.0", "open 1351", "close",
             "get " + connection.fixed + "Name",
             "set " + entry(1) + "Interface = " + connection.wan,
             "set " + entry(1) + "GatewayIPAddress = ", "set " + entry(1) + "Enable = true",
             "commit 1", "apply \"\""}));
}

TEST_F(Routes, StoreAnEmptyInterfaceForAnUnknownConnection) {
  EXPECT_EQ(set(1, route(2)), 0);
  EXPECT_EQ(tree().values().at(entry(1) + "Interface"), "");
  EXPECT_EQ(tree().get(entry(1) + "GatewayIPAddress"), "");
}

TEST_F(Routes, OfAnotherTypeGetNeitherInterfaceNorGateway) {
  for (int type : {0, 3, -1}) {
    EXPECT_EQ(set(1, route(type)), 0);
    EXPECT_EQ(writes_of(transcript()).find("Interface"), std::string::npos);
    EXPECT_EQ(writes_of(transcript()).find("GatewayIPAddress"), std::string::npos);
  }
}

TEST_F(Routes, AreUpdatedInPlaceWhenDestinationAndMaskMatch) {
  add_entry("10.1.0.0", "255.0.0.0");
  add_entry("10.2.0.0", "255.255.0.0");
  add_entry("10.1.0.0", "255.255.0.0");
  add_entry("10.1.0.0", "255.255.0.0");
  tree().set(entry(3) + "Interface", "old");
  api_route_info changed = route(1);
  changed.enable = 0;
  EXPECT_EQ(set(1, changed), 0);
  EXPECT_EQ(
      transcript(),
      lines({"open 171", "close", "get " + entry(1) + "DestSubnetMask",
             "get " + entry(2) + "DestSubnetMask", "get " + entry(2) + "DestIPAddress",
             "get " + entry(3) + "DestSubnetMask", "get " + entry(3) + "DestIPAddress",
             "set " + entry(3) + "Enable = false", "set " + entry(3) + "DestIPAddress = 10.1.0.0",
             "set " + entry(3) + "DestSubnetMask = 255.255.0.0", "set " + entry(3) + "Interface = ",
             "set " + entry(3) + "GatewayIPAddress = 192.168.1.254",
             "set " + entry(3) + "Enable = false", "commit 1", "apply \"\""}));
}

TEST_F(Routes, LoseTheirGatewayWhenTheyGetAnInterface) {
  EXPECT_EQ(set(1, route(1)), 0);
  EXPECT_EQ(set(1, route(2)), 0);
  EXPECT_EQ(tree().get(entry(1) + "GatewayIPAddress"), "");
  EXPECT_EQ(tree().names_of(171).size(), 1u);
}

TEST_F(Routes, AreEnabledByAnyNumberButZero) {
  for (int enable : {1, 2, -1, 0}) {
    api_route_info changed = route(1);
    changed.enable = enable;
    EXPECT_EQ(set(1, changed), 0);
    EXPECT_EQ(tree().get(entry(1) + "Enable"), enable == 0 ? "false" : "true") << enable;
  }
}

TEST_F(Routes, AreWrittenToBareNamesWhenTheEntryIsRefused) {
  tree().refuse_add(1);
  EXPECT_EQ(set(1, route(1)), 0);
  EXPECT_EQ(
      transcript(),
      lines({"open 171", "add InternetGatewayDevice.Layer3Forwarding.Forwarding. 255: refused",
             "set Enable = false", "set DestIPAddress = 10.1.0.0",
             "set DestSubnetMask = 255.255.0.0",
             "set Interface = ", "set GatewayIPAddress = 192.168.1.254", "set Enable = true",
             "commit 1", "apply \"\""}));
}

TEST_F(Routes, AreDeletedByDestinationAndMask) {
  add_entry("10.1.0.0", "255.0.0.0");
  add_entry("10.1.0.0", "255.255.0.0");
  EXPECT_EQ(set(2, route(1)), 0);
  EXPECT_EQ(writes_of(transcript()), lines({"delete " + entry(2), "commit 1", "apply \"\""}));
  EXPECT_EQ(tree().names_of(171), Names{entry(1) + "DestIPAddress"});
}

TEST_F(Routes, AreCommittedAlsoWhenTheDeletionFails) {
  add_entry("10.1.0.0", "255.255.0.0");
  tree().refuse_erase(entry(1), -4);
  EXPECT_EQ(set(2, route(1)), 0);
  EXPECT_EQ(writes_of(transcript()), lines({"delete " + entry(1), "commit 1", "apply \"\""}));
}

TEST_F(Routes, AnswerAMissingEntryOnDeletion) {
  add_entry("10.1.0.0", "255.0.0.0");
  EXPECT_EQ(set(2, route(1)), -1);
  EXPECT_EQ(writes_of(transcript()), "");
}

TEST_F(Routes, IgnoreAnyOtherOperationAfterTheSearch) {
  add_entry("10.1.0.0", "255.255.0.0");
  for (int op : {0, 3, -1}) {
    EXPECT_EQ(set(op, route(1)), 0);
    EXPECT_EQ(transcript(), lines({"open 171", "close", "get " + entry(1) + "DestSubnetMask",
                                   "get " + entry(1) + "DestIPAddress"}));
  }
}

}  // namespace
}  // namespace foreign
