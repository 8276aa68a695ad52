#include <string>
#include <vector>

#include "connection_test.h"

namespace {

using Names = std::vector<std::string>;

const char kParameter[] = "X_CT-COM_LanInterface";

class WanBinding : public support::ConnectionTest {
 protected:
  static api_wan_info ports(const Names& bind_lan, const Names& bind_wan) {
    api_wan_info info;
    info.bind_lan = bind_lan;
    info.bind_wan = bind_wan;
    return info;
  }

  // Records the ports on a connection and returns the writes it made.
  std::string save(const std::string& wan_path, api_wan_info info) {
    return support::writes_of([&] { saveLanInterfaceToWanNode(wan_path, &info); });
  }
  std::string save(api_wan_info info) { return save(wan_, info); }

  void store_on_objects(const std::string& value) {
    for (const std::string& path : {static_, dhcp_, ppp_}) set(path + kParameter, value);
  }

  static std::string write_of(const std::string& path, const std::string& value) {
    return "set " + path + kParameter + " = \"" + value + "\"\n";
  }
};

TEST_F(WanBinding, ListsBindLanFirstWithoutBlanksOrTheEthernetUplink) {
  const struct {
    Names bind_lan;
    Names bind_wan;
    const char* value;
  } kCases[] = {
      {{"LAN1", "LAN3"}, {"WLAN1"}, "LAN1,LAN3,WLAN1"},
      {{"LAN0", "LAN2"}, {}, "LAN2"},
      {{"LAN2", "LAN0"}, {}, "LAN2"},
      {{}, {"LAN0", "LAN4"}, "LAN4"},
      {{"WLAN2"}, {"LAN0"}, "WLAN2"},
      {{"LAN3"}, {"LAN1"}, "LAN3,LAN1"},
      {{"LAN1"}, {"LAN1"}, "LAN1,LAN1"},
      {{"3G0", "WIFIW0"}, {}, "3G0,WIFIW0"},
      {{"lan0", "LAN0 "}, {}, "lan0,LAN0 "},
      {{"", "LAN1"}, {}, "LAN1"},
      {{"LAN1", ""}, {}, "LAN1,"},
      {{}, {}, ""},
  };
  for (const auto& c : kCases) {
    store_on_objects("other");
    (void)save(ports(c.bind_lan, c.bind_wan));
    for (const std::string& path : {static_, dhcp_, ppp_}) {
      EXPECT_EQ(get(path + kParameter), c.value) << path;
    }
  }
}

TEST_F(WanBinding, WritesStaticDhcpAndPppInThatOrderAndDoesNotCommit) {
  EXPECT_EQ(save(ports({"LAN1"}, {})),
            write_of(static_, "LAN1") + write_of(dhcp_, "LAN1") + write_of(ppp_, "LAN1"));
}

TEST_F(WanBinding, WritesNothingTheSecondTime) {
  EXPECT_NE(save(ports({"LAN1"}, {"WLAN1"})), "");
  EXPECT_EQ(save(ports({"LAN1"}, {"WLAN1"})), "");
}

TEST_F(WanBinding, WritesOnlyObjectsWhoseValueDiffers) {
  set(dhcp_ + kParameter, "LAN1");
  EXPECT_EQ(save(ports({"LAN1"}, {})), write_of(static_, "LAN1") + write_of(ppp_, "LAN1"));
}

TEST_F(WanBinding, ComparesByteForByte) {
  set(static_ + kParameter, "LAN1 ");
  set(dhcp_ + kParameter, "lan1");
  set(ppp_ + kParameter, "LAN1,");
  EXPECT_EQ(save(ports({"LAN1"}, {})),
            write_of(static_, "LAN1") + write_of(dhcp_, "LAN1") + write_of(ppp_, "LAN1"));
}

TEST_F(WanBinding, OverwritesAStoredListWithTheEmptyOne) {
  store_on_objects("LAN1");
  EXPECT_EQ(save(ports({}, {})), write_of(static_, "") + write_of(dhcp_, "") + write_of(ppp_, ""));
}

TEST_F(WanBinding, AsksForTheBareNameOfAMissingObject) {
  const std::string path = add_connection_device(1, {"DHCP", "PPP"});
  EXPECT_EQ(save(path, ports({"LAN1"}, {})), write_of("", "LAN1") +
                                                 write_of(path + "WANIPConnection.1.", "LAN1") +
                                                 write_of(path + "WANPPPConnection.1.", "LAN1"));
  EXPECT_EQ(take_refusals(), Names{std::string("setValue ") + kParameter});
}

TEST_F(WanBinding, DoesNotWriteAnEmptyListToAMissingObject) {
  const std::string path = add_connection_device(1, {});
  EXPECT_EQ(save(path, ports({}, {})), "");
}

TEST_F(WanBinding, MakesTheConnectionsCacheEntry) {
  (void)save(ports({}, {}));
  ASSERT_EQ(g_wan_mibinfo_cache_list.count(wan_), 1U);
  EXPECT_EQ(g_wan_mibinfo_cache_list[wan_]->static_path, static_);
}

TEST_F(WanBinding, UsesTheCachedPathsAlsoWhenTheTreeHasChanged) {
  (void)save(ports({}, {}));
  set(dhcp_ + "AddressingType", "Other");
  EXPECT_NE(save(ports({"LAN1"}, {})).find(write_of(dhcp_, "LAN1")), std::string::npos);
}

TEST_F(WanBinding, PrintsEveryPortAndTheListOfEveryObject) {
  (void)save(ports({}, {}));  // the cache entry prints its own lines
  api_wan_info info = ports({"LAN0", "WLAN1"}, {"LAN4"});
  const std::string end = "---value:WLAN1,LAN4------------\n";
  EXPECT_EQ(support::printed_by([&] { saveLanInterfaceToWanNode(wan_, &info); }),
            "---index:" + wan_ + "--------\n" +
                "------phy:LAN0------------\n"
                "------phy:WLAN1------------\n"
                "------phy:LAN4------------\n" +
                "---static_path:" + static_ + kParameter + end + "---dhcp_path:" + dhcp_ +
                kParameter + end + "---ppp_path:" + ppp_ + kParameter + end);
}

}  // namespace
