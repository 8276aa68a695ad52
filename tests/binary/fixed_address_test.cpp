// A program linked at a fixed address holds the library's maps itself; both must see the same ones.
#include <gtest/gtest.h>

#include "igd_api.h"
#include "igd_c_api.h"

namespace {

const std::string kPath = "InternetGatewayDevice.WANDevice.1.WANConnectionDevice.1.";

TEST(FixedAddressProgram, SeesTheNamesThatTheLibraryStores) {
  igd_c_set_l3_name("wan1", "ppp0");
  EXPECT_EQ(g_l3_ifname_table["wan1"], "ppp0");
}

TEST(FixedAddressProgram, IsSeenByTheLibrary) {
  g_l3_ifname_table["wan2"] = "eth0.100";
  char name[16] = "";
  igd_c_get_l3_name("wan2", name, sizeof name);
  EXPECT_STREQ(name, "eth0.100");
}

TEST(FixedAddressProgram, SeesTheCacheEntriesThatTheLibraryMakes) {
  EXPECT_EQ(g_wan_mibinfo_cache_list.count(kPath), 0u);
  const wan_mib_info* const entry = _get_cache(kPath);
  ASSERT_EQ(g_wan_mibinfo_cache_list.count(kPath), 1u);
  EXPECT_EQ(g_wan_mibinfo_cache_list[kPath], entry);
  EXPECT_EQ(_destory_cache(kPath), 1);
  EXPECT_EQ(g_wan_mibinfo_cache_list.count(kPath), 0u);
}

}  // namespace
