#include "backend/platform.h"
#include "term/failure.h"

namespace igdctl {

bool has_store() { return false; }

MibAccess& open_tree(const std::string&) {
  PlatformContext* const context = getContext();
  MibAccess* const tree = context == nullptr ? nullptr : context->mibAccess();
  if (tree == nullptr) {
    throw Failure(ExitCode::kStore, "the platform has no configuration tree yet",
                  "try again when the gateway has started");
  }
  return *tree;
}

void end_read_hold() {}

void add_store_option(CLI::App&, Session&) {}

}  // namespace igdctl
