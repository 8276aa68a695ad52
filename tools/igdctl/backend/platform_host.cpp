#include <CLI/App.hpp>
#include <cstdlib>
#include <memory>

#include "backend/platform.h"
#include "backend/store_failure.h"
#include "cli/session.h"
#include "host_store.h"
#include "term/failure.h"

namespace igdctl {

namespace {

// One state for all reads of a run, also while others commit.
std::unique_ptr<host::ReadHold>& read_hold() {
  static std::unique_ptr<host::ReadHold> hold;
  return hold;
}

}  // namespace

bool has_store() { return true; }

MibAccess& open_tree(const std::string& store) {
  if (!store.empty()) (void)setenv("IGD_STORE", store.c_str(), 1);
  host::StoreResult result;
  host::Store* const opened = host::process_store(&result);
  if (opened == nullptr) throw store_failure(result);
  read_hold() = std::make_unique<host::ReadHold>(*opened);
  return host::mib_access();
}

void end_read_hold() { read_hold().reset(); }

void add_store_option(CLI::App& root, Session& session) {
  root.add_option("--store", session.options.store,
                  "The store's file, instead of IGD_STORE or the usual one")
      ->type_name("FILE");
}

}  // namespace igdctl
