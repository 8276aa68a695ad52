// The tree of the libcommon_util that this program is linked to, as it is. For running the suite on
// a gateway; a platform that can provide more has its own file of this kind.
#include "contract_platform.h"

namespace contract {
namespace {

class GatewayPlatform final : public Platform {
 public:
  explicit GatewayPlatform(MibAccess& mib) : mib_(mib) {}
  // The test has removed what it created.
  ~GatewayPlatform() override { (void)mib_.commit(1); }
  GatewayPlatform(const GatewayPlatform&) = delete;
  GatewayPlatform& operator=(const GatewayPlatform&) = delete;

  MibAccess& mib() override { return mib_; }

 private:
  MibAccess& mib_;
};

std::unique_ptr<Platform> find_platform() {
  PlatformContext* const context = getContext();
  MibAccess* const mib = context != nullptr ? context->mibAccess() : nullptr;
  if (mib == nullptr) return nullptr;
  return std::make_unique<GatewayPlatform>(*mib);
}

}  // namespace

std::vector<PlatformCase> platforms() { return {{"Gateway", &find_platform}}; }

}  // namespace contract
