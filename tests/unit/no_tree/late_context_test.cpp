// The platform becomes ready while the process runs.
#include <gtest/gtest.h>

#include "bare_platform.h"
#include "igd_api.h"

namespace {

/// Answers every name with one address.
class OneAddress final : public MibAccess {
 public:
  int addObject(const std::string&, int*, int) override { return -1; }
  int deleteObject(const std::string&) override { return -1; }
  InstanceIterator* openInstanceIterator(int) override { return nullptr; }
  void closeInstanceIterator(InstanceIterator*) override {}
  std::string getValue(const std::string&) override { return "192.168.1.1"; }
  int setValue(const std::string&, const std::string&, int) override { return -1; }
  int commit(int) override { return 0; }
  int applyChanges(const std::string&) override { return 0; }
};

TEST(LateContext, IsFoundWhenItComesAndKeptFromThenOn) {
  EXPECT_EQ(igd_c_get_lan_ipaddr(), "");
  EXPECT_EQ(igd_c_get_lan_ipaddr(), "");
  const int calls_without = bare::context_calls;
  EXPECT_GE(calls_without, 2);

  OneAddress mib;
  bare::Context context;
  context.mib = &mib;
  bare::context = &context;
  EXPECT_EQ(igd_c_get_lan_ipaddr(), "192.168.1.1");
  EXPECT_EQ(igd_c_get_lan_ipaddr(), "192.168.1.1");
  EXPECT_EQ(bare::context_calls, calls_without + 1);
  EXPECT_EQ(context.asked, (std::vector<std::string>{"tree", "second service"}));
}

}  // namespace
