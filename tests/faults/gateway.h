// A gateway whose configuration is in a store of the tests' choice, and the platform that libigd
// finds it by.
#ifndef TESTS_PROOF_GATEWAY_H
#define TESTS_PROOF_GATEWAY_H

#include <functional>
#include <memory>
#include <string>

#include "host_store.h"

namespace proof {

// One life of a gateway's process.
class Gateway {
 public:
  // @param done  called after each step that the store said is done
  Gateway(std::string path, host::StoreOptions options, std::function<void()> done);
  Gateway(const Gateway&) = delete;
  Gateway& operator=(const Gateway&) = delete;
  ~Gateway();

  // Each is false when the store could not do it.
  bool open();
  bool did(const host::StoreResult& result);  // notes what came of a step
  void close();

  bool has_store() const { return store_ != nullptr; }
  host::Store& store() { return *store_; }
  const host::StoreResult& failure() const { return failure_; }  // the first one
  void forget_failure() { failure_ = {}; }

 private:
  std::string path_;
  host::StoreOptions options_;
  std::function<void()> done_;
  std::unique_ptr<host::Store> store_;
  host::StoreResult failure_;
};

}  // namespace proof

#endif  // TESTS_PROOF_GATEWAY_H
