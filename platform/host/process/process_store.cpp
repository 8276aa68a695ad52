// The store of this process: where it is, and opening it.
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>

#include "store/store_error.h"

namespace host {
namespace {

using Clock = std::chrono::steady_clock;

constexpr std::chrono::seconds kBetweenTries{1};

std::string environment(const char* name) {
  const char* text = secure_getenv(name);
  return text != nullptr ? text : "";
}

void sync_folder(const std::string& path) {
  const int folder = open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (folder < 0) return;
  (void)fsync(folder);
  (void)close(folder);
}

// Makes the folders of the default path, for their owner alone, and syncs the name of each that it
// made: without it a power cut takes a store with all its commits. What fails shows on opening.
void make_folders(const std::string& path) {
  std::size_t above = 0;
  for (std::size_t slash = path.find('/', 1); slash != std::string::npos;
       slash = path.find('/', slash + 1)) {
    const bool is_new = mkdir(path.substr(0, slash).c_str(), S_IRWXU) == 0;
    if (is_new) sync_folder(path.substr(0, above + 1));
    above = slash;
  }
}

// Made at first use and never destroyed: other objects may still use it while the process ends.
struct ProcessStore {
  std::unique_ptr<Store> store;
  StoreResult result;
  Clock::time_point last_try;
  bool tried = false;
};

ProcessStore& the_store() {
  static auto* const store = new ProcessStore;
  return *store;
}

void try_to_open(ProcessStore& process) {
  const bool first = !process.tried;
  process.tried = true;
  process.last_try = Clock::now();
  const std::string path = default_store_path();
  if (path.empty()) {
    process.result = {StoreError::kNotOpened, "none of IGD_STORE, XDG_STATE_HOME and HOME is set"};
  } else {
    if (environment("IGD_STORE").empty()) make_folders(path);
    process.store = Store::open(path, {}, &process.result);
  }
  if (process.store == nullptr && first) report(process.result.text);
}

}  // namespace

std::string default_store_path() {
  const std::string chosen = environment("IGD_STORE");
  if (!chosen.empty()) return chosen;
  if (geteuid() == 0) return "/var/lib/igd/gateway.db";
  std::string folder = environment("XDG_STATE_HOME");
  if (folder.empty()) {
    const std::string home = environment("HOME");
    if (home.empty()) return {};
    folder = home + "/.local/state";
  }
  return folder + "/igd/gateway.db";
}

Store* process_store(StoreResult* result) {
  ProcessStore& process = the_store();
  const bool may_try = !process.tried || Clock::now() - process.last_try >= kBetweenTries;
  if (process.store == nullptr && may_try) {
    try_to_open(process);
    if (process.store != nullptr) (void)std::atexit([] { the_store().store->abandon(); });
  }
  if (result != nullptr) *result = process.result;
  return process.store.get();
}

}  // namespace host
