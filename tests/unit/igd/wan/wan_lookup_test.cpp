// Listing connections, finding them by name and path, writing to all their objects, and listing
// held ports.
#include "connection_test.h"
#include "stdout_capture.h"

namespace {

using support::kBridges;
using support::wan_path;

using Texts = std::vector<std::string>;

class WanList : public support::GatewayTest {};

TEST_F(WanList, ListsTheConnectionsInTheTreesOrder) {
  (void)add_connection_device(2, {});
  (void)add_connection_device(1, {});
  (void)add_connection_device(1, {});
  Texts paths = {"left over"};
  EXPECT_EQ(igd_wan_list(paths), 3);
  EXPECT_EQ(paths, (Texts{wan_path(1, 1), wan_path(1, 2), wan_path(2, 1)}));
}

class WanNames : public support::GatewayTest {
 protected:
  std::string add_named(int device, const std::string& object, const std::string& name) {
    const std::string path = add_connection_device(device, {object});
    set(path + (object == "PPP" ? "WANPPPConnection.1." : "WANIPConnection.1.") + "Name", name);
    return path;
  }
};

TEST_F(WanNames, FindsAConnectionByTheNameOfAnyObject) {
  const std::string by_ip = add_named(1, "DHCP", "1_INTERNET");
  const std::string by_ppp = add_named(2, "PPP", "2_OTHER");
  EXPECT_EQ(igd_wan_get_id_by_name("1_INTERNET"), by_ip);
  EXPECT_EQ(igd_wan_get_id_by_name("2_OTHER"), by_ppp);
}

TEST_F(WanNames, AsksIpConnectionsBeforePppConnections) {
  (void)add_named(1, "PPP", "same");
  const std::string by_ip = add_named(2, "Static", "same");
  EXPECT_EQ(igd_wan_get_id_by_name("same"), by_ip);
}

TEST_F(WanNames, TakesTheFirstOfSeveral) {
  (void)add_named(1, "PPP", "other");
  const std::string first = add_named(1, "PPP", "same");
  (void)add_named(2, "PPP", "same");
  EXPECT_EQ(igd_wan_get_id_by_name("same"), first);
}

TEST_F(WanNames, ComparesNamesExactly) {
  (void)add_named(1, "DHCP", "1_INTERNET");
  for (const char* name : {"1_internet", "1_INTERNET ", "1_INTERNE", "INTERNET", ""}) {
    EXPECT_EQ(igd_wan_get_id_by_name(name), "") << '"' << name << '"';
  }
}

TEST_F(WanNames, FindsTheFirstNamelessConnectionByTheEmptyName) {
  EXPECT_EQ(igd_wan_get_id_by_name(""), "");
  (void)add_named(1, "DHCP", "1_INTERNET");
  const std::string nameless = add_connection_device(1, {"DHCP"});
  EXPECT_EQ(igd_wan_get_id_by_name(""), nameless);
}

class WanIndex : public support::GatewayTest {
 protected:
  /// The number of enumerations that an index check needs.
  template <typename Check>
  static int lists_asked_by(Check check, const std::string& index) {
    support::Transcript transcript;
    EXPECT_EQ(check(index), 0) << index;
    const std::string text = transcript.text();
    return text.find("open 1273\n") == std::string::npos ? 0 : 1;
  }
};

TEST_F(WanIndex, ChecksForTheFullNameOfABridgesOwner) {
  const std::string index = kBridges + "1.X_ZYN_WANName";
  support::StdoutCapture printed;
  EXPECT_EQ(igd_check_wan_index(index), 1);
  EXPECT_EQ(printed.drain(), "----igd_check_wan_index: wan exist-----" + index + "----\n");
}

TEST_F(WanIndex, ChecksForNothingElse) {
  const std::string path = add_connection_device(1, {});
  (void)add_bridge("br_1_1", path);
  support::StdoutCapture printed;
  for (const std::string& index :
       {path, std::string(), kBridges + "1.", kBridges + "1.X_ZYN_WANNam",
        kBridges + "9.X_ZYN_WANName", kBridges + "1.X_ZYN_WANName."}) {
    EXPECT_EQ(igd_check_wan_index(index), 0) << index;
  }
  EXPECT_EQ(printed.drain(), "");
}

TEST_F(WanIndex, VerifiesThePathOfAConnectionDevice) {
  for (int i = 0; i < 10; ++i) (void)add_connection_device(1, {});
  EXPECT_EQ(igd_verify_is_wan_index(wan_path(1, 1)), 1);
  EXPECT_EQ(igd_verify_is_wan_index(wan_path(1, 10)), 1);
  EXPECT_EQ(igd_verify_wan_index_in_bridge(wan_path(1, 1)), 1);
  EXPECT_EQ(igd_verify_wan_index_in_bridge(wan_path(1, 10)), 1);
}

TEST_F(WanIndex, RefusesWithoutAskingWhatCannotBeAConnectionDevice) {
  const std::string path = add_connection_device(1, {"DHCP"});
  for (const std::string& index :
       {std::string(), support::kWanDevices + "1.", path.substr(0, 55), " " + path,
        "InternetGatewayDevice.LANDevice." + path, std::string(60, 'x')}) {
    EXPECT_EQ(lists_asked_by(igd_verify_is_wan_index, index), 0) << index;
  }
}

TEST_F(WanIndex, AsksTheTreeForWhatLooksLikeAConnectionDevice) {
  const std::string path = add_connection_device(1, {"DHCP"});
  for (const std::string& index :
       {wan_path(1, 2), path + "WANIPConnection.1.", path + " ", wan_path(1, 11)}) {
    EXPECT_EQ(lists_asked_by(igd_verify_is_wan_index, index), 1) << index;
  }
}

TEST_F(WanIndex, AsksTheTreeForEveryTextInABridge) {
  const std::string path = add_connection_device(1, {"DHCP"});
  for (const std::string& index :
       {std::string(), support::kWanDevices + "1.", path.substr(0, 55), " " + path}) {
    EXPECT_EQ(lists_asked_by(igd_verify_wan_index_in_bridge, index), 1) << index;
  }
}

class WanAllValue : public support::ConnectionTest {
 protected:
  static std::string write(const std::string& path, const std::string& node) {
    support::StdoutCapture printed;
    igd_set_wan_all_value(path, node, "v");
    return printed.drain();
  }

  std::string names() const {
    return get(static_ + "Name") + '/' + get(dhcp_ + "Name") + '/' + get(ppp_ + "Name");
  }
};

TEST_F(WanAllValue, WritesTheSameParameterOfAllThreeObjects) {
  for (const std::string& object_path : {static_, dhcp_, ppp_}) {
    for (const std::string& each : {static_, dhcp_, ppp_}) set(each + "Name", "old");
    EXPECT_EQ(write(wan_, object_path + "Name"), "===node:Name=======value:v============\n");
    EXPECT_EQ(names(), "v/v/v") << object_path;
  }
}

TEST_F(WanAllValue, WritesBelowSubObjectsToo) {
  EXPECT_EQ(write(wan_, dhcp_ + "Stats.EthernetBytesSent"),
            "===node:Stats.EthernetBytesSent=======value:v============\n");
  EXPECT_EQ(get(static_ + "Stats.EthernetBytesSent"), "v");
  EXPECT_EQ(get(ppp_ + "Stats.EthernetBytesSent"), "v");
}

TEST_F(WanAllValue, CommitsOnceAfterItsWrites) {
  support::Transcript transcript;
  igd_set_wan_all_value(wan_, ppp_ + "Name", "v");
  EXPECT_EQ(transcript.writes(), "set " + static_ + "Name = \"v\"\nset " + dhcp_ +
                                     "Name = \"v\"\nset " + ppp_ + "Name = \"v\"\ncommit 1\n");
}

TEST_F(WanAllValue, WritesNothingForANameElsewhere) {
  const std::string other = add_connection_device(1, {"DHCP"});
  for (const std::string& node : {other + "WANIPConnection.1.Name", wan_ + "X_CT-COM_Enable",
                                  std::string("Name"), std::string(), static_, ppp_}) {
    support::Transcript transcript;
    igd_set_wan_all_value(wan_, node, "v");
    EXPECT_NE(transcript.text().find("| ===node:=======value:v============\n"), std::string::npos)
        << node;
    EXPECT_EQ(transcript.writes(), "") << node;
  }
}

TEST_F(WanAllValue, DoesNothingUnlessAllThreeObjectsAreThere) {
  for (const Texts& objects :
       {Texts{"DHCP", "PPP"}, Texts{"Static", "PPP"}, Texts{"Static", "DHCP"}, Texts{}}) {
    const std::string path = add_connection_device(1, objects);
    support::Transcript transcript;
    igd_set_wan_all_value(path, path + "WANIPConnection.1.Name", "v");
    EXPECT_EQ(transcript.writes(), "") << path;
    EXPECT_EQ(transcript.text().find("==="), std::string::npos) << path;
  }
}

TEST_F(WanAllValue, CutsThePathsLengthOffTheFrontWhereverThePathStands) {
  EXPECT_EQ(write(wan_, "xyz" + static_ + "Name"), "===node:.1.Name=======value:v============\n");
  EXPECT_EQ(take_refusals(),
            (Texts{"setValue " + static_ + ".1.Name", "setValue " + dhcp_ + ".1.Name",
                   "setValue " + ppp_ + ".1.Name"}));
}

// The paths differ in length, so the cut shows which of them was found.
TEST_F(WanAllValue, FindsTheStaticPathBeforeTheDhcpPathAndThatBeforeThePppPath) {
  EXPECT_EQ(write(wan_, ppp_ + dhcp_ + "Name"),
            "===node:." + dhcp_ + "Name=======value:v============\n");
  (void)take_refusals();
  set(dhcp_ + "AddressingType", "");
  std::string tenth;
  while (tenth != wan_ + "WANIPConnection.10.") tenth = add(wan_ + "WANIPConnection.");
  set(tenth + "AddressingType", "DHCP");
  EXPECT_EQ(write(wan_, tenth + static_ + "Name"),
            "===node:." + static_ + "Name=======value:v============\n");
  EXPECT_EQ(take_refusals().front(), "setValue " + static_ + "." + static_ + "Name");
}

class UsedPorts : public support::ConnectionTest {
 protected:
  static Texts used_beside(const std::string& path) {
    Texts ports = {"stale"};
    EXPECT_EQ(igd_get_used_port_list(path, ports), 0);
    return ports;
  }

  const std::string other_ = wan_path(1, 2);
};

TEST_F(UsedPorts, AreThoseOfOtherConnectionsBridges) {
  (void)add_port(bridge_, "LAN1");
  const std::string other_bridge = add_bridge("br_1_2", other_);
  for (const char* node : {"LAN0", "LAN2", "3G0"}) (void)add_port(other_bridge, node);
  EXPECT_EQ(used_beside(wan_), (Texts{"LAN2", "3G0"}));
  EXPECT_EQ(used_beside(other_), Texts{"LAN1"});
  EXPECT_EQ(used_beside(wan_ + "1"), (Texts{"LAN1", "LAN2", "3G0"}));
}

TEST_F(UsedPorts, AreThoseBoundInTheLanBridge) {
  set(lan_bridge_ + "Port.3.X_ZYN_DependWanName", wan_);
  set(lan_bridge_ + "Port.5.X_ZYN_DependWanName", other_);
  EXPECT_EQ(used_beside(wan_), Texts{"WLAN1"});
  EXPECT_EQ(used_beside(other_), Texts{"LAN3"});
}

TEST_F(UsedPorts, OfEveryConnectionAreListedForTheEmptyPath) {
  (void)add_port(bridge_, "LAN1");
  set(lan_bridge_ + "Port.3.X_ZYN_DependWanName", other_);
  EXPECT_EQ(used_beside(""), (Texts{"LAN3", "LAN1"}));
}

TEST_F(UsedPorts, BelongToTheBridgesOwnerBeforeTheirOwnDependency) {
  (void)add_port(bridge_, "LAN1", other_);
  EXPECT_EQ(used_beside(wan_), Texts{});
  EXPECT_EQ(used_beside(other_), Texts{"LAN1"});
}

TEST_F(UsedPorts, AreNoneWithoutPorts) {
  tree_ = host::Tree();
  EXPECT_EQ(used_beside(wan_), Texts{});
}

}  // namespace
