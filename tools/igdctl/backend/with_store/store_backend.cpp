#include "backend/with_store/store_backend.h"

#include <sys/stat.h>

#include <cstdlib>

#include "backend/with_store/store_failure.h"

namespace igdctl {

MibAccess& StoreBackend::open_tree(const std::string& store) {
  if (!store.empty()) (void)setenv("IGD_STORE", store.c_str(), 1);
  host::StoreResult result;
  host::Store* const opened = host::process_store(&result);
  if (opened == nullptr) throw store_failure(result);
  hold_ = std::make_unique<host::ReadHold>(*opened);
  return host::mib_access();
}

bool StoreBackend::has_tree(const std::string& store) const {
  struct stat status {};
  return stat(store_path(store).c_str(), &status) == 0 && S_ISREG(status.st_mode);
}

std::string store_path(const std::string& store) {
  std::string path = store.empty() ? host::default_store_path() : store;
  if (!path.empty()) return path;
  throw Failure(ExitCode::kStore, "there is no default location for the store",
                "give a file with --store, or set HOME");
}

}  // namespace igdctl
