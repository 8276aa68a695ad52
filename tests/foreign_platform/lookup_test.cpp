// Connections by name and by path, ports held by others, one value for all objects.
#include "gateway_test.h"

namespace foreign {
namespace {

using Names = std::vector<std::string>;

class Lookup : public GatewayTest {
 protected:
  void SetUp() override {
    GatewayTest::SetUp();
    device_ = add_device("Ethernet");
    first_ = add_connection(device_);
    second_ = add_connection(device_);
  }

  std::string id_of(const std::string& name) {
    return run([&] { return igd_wan_get_id_by_name(name); });
  }

  std::string device_;
  Connection first_;
  Connection second_;
};

TEST_F(Lookup, FindsAConnectionByTheNameOfAnyObject) {
  tree().set(first_.dhcp + "Name", "one");
  tree().set(second_.ppp + "Name", "two");
  EXPECT_EQ(id_of("one"), first_.wan);
  EXPECT_EQ(transcript(), lines({"open 1351", "close", "get " + first_.fixed + "Name",
                                 "get " + first_.dhcp + "Name"}));
  EXPECT_EQ(id_of("two"), second_.wan);
  EXPECT_EQ(transcript(), lines({"open 1351", "close", "get " + first_.fixed + "Name",
                                 "get " + first_.dhcp + "Name", "get " + second_.fixed + "Name",
                                 "get " + second_.dhcp + "Name", "open 1437", "close",
                                 "get " + first_.ppp + "Name", "get " + second_.ppp + "Name"}));
  EXPECT_EQ(id_of("three"), "");
  EXPECT_EQ(id_of("ONE"), "");
}

TEST_F(Lookup, PrefersIpConnectionsThenTheFirst) {
  tree().set(first_.ppp + "Name", "same");
  tree().set(second_.fixed + "Name", "same");
  EXPECT_EQ(id_of("same"), second_.wan);
  tree().set(first_.dhcp + "Name", "same");
  EXPECT_EQ(id_of("same"), first_.wan);
}

TEST_F(Lookup, KnowsABridgeOwnerParameterByItsFullName) {
  const std::string owner = add_bridge("b", "someone") + "X_ZYN_WANName";
  EXPECT_EQ(run([&] { return igd_check_wan_index(owner); }), 1);
  EXPECT_EQ(transcript(),
            "open 197\nclose\n| ----igd_check_wan_index: wan exist-----" + owner + "----\n");
  for (const std::string& index :
       {std::string("someone"), first_.wan, owner + ".", std::string()}) {
    EXPECT_EQ(run([&] { return igd_check_wan_index(index); }), 0) << index;
    EXPECT_EQ(transcript(), "open 197\nclose\n");
  }
}

TEST_F(Lookup, KnowsAConnectionDeviceByItsPath) {
  EXPECT_EQ(run([&] { return igd_verify_is_wan_index(second_.wan); }), 1);
  EXPECT_EQ(transcript(), "open 1273\nclose\n");
  EXPECT_EQ(run([&] { return igd_verify_is_wan_index(device_ + "WANConnectionDevice.3."); }), 0);
  EXPECT_EQ(transcript(), "open 1273\nclose\n");
  EXPECT_EQ(run([&] { return igd_verify_is_wan_index(first_.fixed); }), 0);
}

TEST_F(Lookup, RefusesAPathOfTheWrongShapeWithoutAskingTheTree) {
  const std::string beyond = "x" + first_.wan;
  for (const std::string& index :
       {std::string(), device_, beyond, first_.wan.substr(0, 55), std::string(60, 'i')}) {
    EXPECT_EQ(run([&] { return igd_verify_is_wan_index(index); }), 0) << index;
    EXPECT_EQ(transcript(), "") << index;
  }
}

TEST_F(Lookup, KnowsAConnectionDeviceWithoutLookingAtItsShape) {
  const auto known = [&](const std::string& index) {
    return run([&] { return igd_verify_wan_index_in_bridge(index); });
  };
  EXPECT_EQ(known(first_.wan), 1);
  EXPECT_EQ(known(""), 0);
  EXPECT_EQ(transcript(), "open 1273\nclose\n");
  EXPECT_EQ(known(device_), 0);
  EXPECT_EQ(known(first_.wan.substr(0, first_.wan.size() - 1)), 0);
}

class AllObjects : public Lookup {
 protected:
  void write(const std::string& wan, const std::string& node) {
    run([&] { igd_set_wan_all_value(wan, node, "v"); });
  }
};

TEST_F(AllObjects, GetTheValueUnderTheSameName) {
  for (const std::string& object : {first_.fixed, first_.dhcp, first_.ppp}) {
    write(first_.wan, object + "Stats.Name");
    EXPECT_EQ(
        transcript(),
        lines({"open 1359", "close", "get " + first_.fixed + "AddressingType", "open 1359", "close",
               "get " + first_.fixed + "AddressingType", "get " + first_.dhcp + "AddressingType",
               "open 1429", "close", "| ===node:Stats.Name=======value:v============",
               "set " + first_.fixed + "Stats.Name = v", "set " + first_.dhcp + "Stats.Name = v",
               "set " + first_.ppp + "Stats.Name = v", "commit 1"}));
  }
}

TEST_F(AllObjects, GetNothingForANodeElsewhere) {
  for (const std::string& node :
       {second_.fixed + "Name", std::string("Name"), std::string(), first_.fixed}) {
    write(first_.wan, node);
    EXPECT_EQ(writes_of(transcript()), "") << node;
    EXPECT_EQ(lines_of(transcript()), "| ===node:=======value:v============\n") << node;
  }
}

TEST_F(AllObjects, GetTheNameCutFromTheFrontWhereverThePathStands) {
  write(first_.wan, "ab" + first_.dhcp + "Name");
  EXPECT_EQ(lines_of(transcript()), "| ===node:2.Name=======value:v============\n");
  EXPECT_EQ(tree().get(first_.ppp + "2.Name"), "v");
}

TEST_F(AllObjects, GetNothingAndPrintNothingWhenOneIsMissing) {
  for (const std::string& object : {first_.fixed, second_.dhcp}) tree().erase(object);
  const Connection third = add_connection(device_);
  tree().erase(third.ppp);
  for (const Connection& connection : {first_, second_, third}) {
    write(connection.wan, connection.dhcp + "Name");
    EXPECT_EQ(writes_of(transcript()) + lines_of(transcript()), "");
  }
}

class UsedPorts : public Lookup {
 protected:
  Names used(const std::string& wan) {
    Names ports = {"left over"};
    EXPECT_EQ(run([&] { return igd_get_used_port_list(wan, ports); }), 0);
    return ports;
  }
};

TEST_F(UsedPorts, AreThoseThatOtherConnectionsOwn) {
  const std::string lan = add_lan_bridge({"LAN1"});
  add_port(lan, "LAN2", first_.wan);
  add_port(lan, "LAN0", second_.wan);
  const std::string own = add_wan_bridge(second_, "br_1_2", {"LAN0", "3G0", "LAN3"});
  add_port(own, "LAN4", first_.wan);
  EXPECT_EQ(used(""), (Names{"LAN2", "3G0", "LAN3", "LAN4"}));
  EXPECT_EQ(used(first_.wan), (Names{"3G0", "LAN3", "LAN4"}));
  EXPECT_EQ(used(second_.wan), Names{"LAN2"});
}

TEST_F(UsedPorts, AreReadPortByPort) {
  const std::string lan = add_lan_bridge({"LAN1", "LAN0"});
  const std::string own = add_wan_bridge(second_, "br_1_2", {"LAN3"});
  used("");
  EXPECT_EQ(transcript(),
            lines({"open 205", "close", "get " + lan + "Port.1.PortInterface",
                   "get " + lan + "X_ZYN_WANName", "get " + lan + "Port.1.X_ZYN_DependWanName",
                   "get " + lan + "Port.2.PortInterface", "get " + own + "Port.1.PortInterface",
                   "get " + own + "X_ZYN_WANName"}));
}

TEST_F(UsedPorts, AreNoneWithoutPorts) {
  EXPECT_EQ(used(""), Names{});
  EXPECT_EQ(transcript(), "open 205\n");
}

}  // namespace
}  // namespace foreign
