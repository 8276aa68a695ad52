// Connections that the library made survive an export and an import of their tree.
#include <gtest/gtest.h>

#include <string>

#include "gateway_test.h"
#include "stdout_capture.h"
#include "tree_text.h"

namespace {

using support::GatewayTest;

class CreatedConnections : public GatewayTest {};

TEST_F(CreatedConnections, ComeBackFromCsvAsTheyWere) {
  create(support::routed_pppoe("Internet", 100));
  create(support::dhcp_management("Management", 46));
  const std::string third = create(support::bridged("Television", 0, {"LAN2"}), "3G");
  (void)support::printed_by([&third] { igd_wan_destory(third); });
  create(support::bridged("Television", 30, {"LAN2"}));
  const host::Tree copy = host_tests::through_csv(tree_);
  EXPECT_EQ(copy.instances(kWanConnectionDevice), tree_.instances(kWanConnectionDevice));
  EXPECT_EQ(copy.instances(kWanConnectionDevice).size(), 3U);
  EXPECT_TRUE(host_tests::whole_text(copy) == host_tests::whole_text(tree_));
}

}  // namespace
