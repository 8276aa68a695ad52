// A program that brings getContext and c_debug_out itself is asked instead of libcommon_util.
#include <gtest/gtest.h>

#include <cstdarg>
#include <cstdio>

#include "common_util.h"
#include "igd_api.h"

namespace {

std::string log_text;

class OwnMib final : public MibAccess {
 public:
  int addObject(const std::string&, int*, int) override { return -1; }
  int deleteObject(const std::string&) override { return -1; }
  InstanceIterator* openInstanceIterator(int) override { return nullptr; }
  void closeInstanceIterator(InstanceIterator*) override {}
  std::string getValue(const std::string& name) override { return "mine: " + name; }
  int setValue(const std::string&, const std::string&, int) override { return -1; }
  int commit(int) override { return -1; }
  int applyChanges(const std::string&) override { return -1; }
};

class OwnContext final : public PlatformContext {
 public:
  MibAccess* mibAccess() override { return &mib_; }
  void* secondService() override { return nullptr; }

 private:
  OwnMib mib_;
};

TEST(OwnPlatform, IsAskedForValues) {
  EXPECT_EQ(igd_c_get_lan_ipaddr(),
            "mine: InternetGatewayDevice.LANDevice.1.LANHostConfigManagement.IPInterface.1."
            "IPInterfaceIPAddress");
}

TEST(OwnPlatform, IsGivenTheLog) {
  log_text.clear();
  (void)igd_wan_get_wan_bridge_info("InternetGatewayDevice.WANDevice.1.WANConnectionDevice.2.",
                                    nullptr, nullptr);
  EXPECT_EQ(log_text, "igd_api INDEX=InternetGatewayDevice.WANDevice.1.WANConnectionDevice.2.");
}

}  // namespace

PlatformContext* getContext() {
  static OwnContext context;
  return &context;
}

extern "C" void c_debug_out(const char* file, int, const char* format, ...) {
  char text[256];
  va_list arguments;
  va_start(arguments, format);
  (void)std::vsnprintf(text, sizeof text, format, arguments);
  va_end(arguments);
  log_text += std::string(file) + ' ' + text;
}
