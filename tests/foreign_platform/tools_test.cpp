// Enumerating the tree, splitting and pruning texts.
#include "gateway_test.h"

namespace foreign {
namespace {

using Names = std::vector<std::string>;

class Tools : public GatewayTest {
 protected:
  Names loop(const std::string& path, int type) {
    Names out = {"left over"};
    const int count = run([&] { return igd_tool_loop_instance(path, type, out); });
    EXPECT_EQ(count, static_cast<int>(out.size()));
    return out;
  }

  std::string find(const std::string& path, int type, const std::string& value) {
    return run([&] { return igd_tool_loop_fullname(path, type, value); });
  }
};

TEST_F(Tools, EnumeratesEveryInstanceWhenThePathIsEmpty) {
  for (int i = 0; i < 11; ++i) add_bridge("b", "");
  const Names found = loop("", 196);
  ASSERT_EQ(found.size(), 11u);
  EXPECT_EQ(found[1], "InternetGatewayDevice.Layer2Bridging.Bridge.2.BridgeName");
  EXPECT_EQ(found[9], "InternetGatewayDevice.Layer2Bridging.Bridge.10.BridgeName");
  EXPECT_EQ(transcript(), "open 196\nclose\n");
}

TEST_F(Tools, EnumeratesObjectsByTheirPath) {
  const Connection connection = add_connection(add_device("Ethernet"));
  EXPECT_EQ(loop("", 1273), Names{connection.wan});
  EXPECT_EQ(loop(connection.wan, 1429), Names{connection.ppp});
}

TEST_F(Tools, TakesThePathAsATextPrefix) {
  for (int i = 0; i < 12; ++i) add_bridge("b", "");
  const std::string bridges = kBridges;
  EXPECT_EQ(loop(bridges + "1.", 196), Names{bridges + "1.BridgeName"});
  EXPECT_EQ(loop(bridges + "1", 196),
            (Names{bridges + "1.BridgeName", bridges + "10.BridgeName", bridges + "11.BridgeName",
                   bridges + "12.BridgeName"}));
  EXPECT_EQ(loop("Layer2Bridging.Bridge.1.", 196), Names{});
  EXPECT_EQ(transcript(), "open 196\nclose\n");
}

TEST_F(Tools, EmptiesTheListWhenNothingOfTheTypeExists) {
  EXPECT_EQ(loop("", 196), Names{});
  EXPECT_EQ(transcript(), "open 196\n");
  EXPECT_EQ(loop("", 4711), Names{});
  EXPECT_EQ(transcript(), "open 4711\n");
}

TEST_F(Tools, FindsTheFirstNameWithTheValueAndReadsNoFurther) {
  const std::string bridges = kBridges;
  for (const char* name : {"one", "two", "two", "three"}) add_bridge(name, "");
  EXPECT_EQ(find("", 196, "two"), bridges + "2.BridgeName");
  EXPECT_EQ(transcript(), lines({"open 196", "close", "get " + bridges + "1.BridgeName",
                                 "get " + bridges + "2.BridgeName"}));
}

TEST_F(Tools, FindsWithinThePathOnly) {
  const std::string device = add_device("Ethernet");
  const Connection first = add_connection(device);
  const Connection second = add_connection(device);
  EXPECT_EQ(find(second.wan, 1359, "Static"), second.fixed + "AddressingType");
  EXPECT_EQ(transcript(), lines({"open 1359", "close", "get " + second.fixed + "AddressingType"}));
  EXPECT_EQ(find(first.wan, 1359, "DHCP"), first.dhcp + "AddressingType");
}

TEST_F(Tools, ComparesValuesByteForByte) {
  const std::string bridge = add_bridge("Internet ", "");
  EXPECT_EQ(find("", 196, "Internet"), "");
  EXPECT_EQ(find("", 196, "internet "), "");
  EXPECT_EQ(find("", 196, "Internet "), bridge + "BridgeName");
}

TEST_F(Tools, FindsAnEmptyValue) {
  const std::string bridge = add_bridge("", "");
  EXPECT_EQ(find("", 196, ""), bridge + "BridgeName");
}

struct Split {
  const char* text;
  const char* delimiters;
  Names tokens;
};

TEST_F(Tools, SplitsAtEachCharacterOfTheSet) {
  const Split cases[] = {
      {"", ",", {}},
      {"a", ",", {"a"}},
      {"a,b", ",", {"a", "b"}},
      {"a,,b", ",", {"a", "", "b"}},
      {",a", ",", {"", "a"}},
      {"a,", ",", {"a"}},
      {",", ",", {""}},
      {",,", ",", {"", ""}},
      {"a,b;c", ",;", {"a", "b", "c"}},
      {"a,;b", ",;", {"a", "", "b"}},
      {"a,b", "", {"a,b"}},
      {" a , b ", ",", {" a ", " b "}},
      {"10.0.0.1,10.0.0.2", ",", {"10.0.0.1", "10.0.0.2"}},
      {"10.0.0.1,", ",", {"10.0.0.1"}},
      {"br_1_2", "_", {"br", "1", "2"}},
  };
  for (const Split& c : cases) {
    Names out = {"left over"};
    run([&] { igd_tool_split_str(c.text, c.delimiters, out); });
    EXPECT_EQ(out, c.tokens) << '"' << c.text << "\" at \"" << c.delimiters << '"';
    EXPECT_EQ(transcript(), "");
  }
}

TEST_F(Tools, DeletesTheFirstEqualElementOnly) {
  Names list = {"LAN1", "LAN2", "LAN1"};
  run([&] { _delete_node(list, "LAN1"); });
  EXPECT_EQ(list, (Names{"LAN2", "LAN1"}));
  _delete_node(list, "lan1");
  _delete_node(list, "LAN");
  EXPECT_EQ(list, (Names{"LAN2", "LAN1"}));
  Names empty;
  _delete_node(empty, "LAN1");
  EXPECT_EQ(empty, Names{});
  EXPECT_EQ(transcript(), "");
}

}  // namespace
}  // namespace foreign
