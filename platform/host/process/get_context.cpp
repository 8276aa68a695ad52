// The context that libigd asks for. In a source of its own, so that a program which is linked to
// the platform as an archive can supply another one.
#include "host_platform.h"
#include "process/process_tree.h"

namespace {

class HostContext final : public PlatformContext {
 public:
  MibAccess* mibAccess() override { return &host::mib_access(); }
  void* secondService() override { return nullptr; }
};

}  // namespace

HOST_EXPORT PlatformContext* getContext() {
  static auto* const context = new HostContext;
  return host::has_active_tree() ? context : nullptr;
}
