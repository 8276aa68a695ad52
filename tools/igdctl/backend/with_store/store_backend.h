/// The tree of the reference platform, kept in a store.
#ifndef IGDCTL_STORE_BACKEND_H
#define IGDCTL_STORE_BACKEND_H

#include "backend/backend.h"
#include "host_store.h"

namespace igdctl {

/// A change is one trial: what the library writes, and even commits in its midst, is kept back
/// until it is known to be right.
class StoreBackend : public Backend {
 public:
  bool has_store() const override { return true; }
  MibAccess& open_tree(const std::string& store) override;
  bool has_tree(const std::string& store) const override;
  void end_read_hold() override { hold_.reset(); }
  std::unique_ptr<Transaction> begin_change() override;
  std::optional<ParameterFacts> facts_of(const std::string& name) const override;
  bool is_object_path(const std::string& path) const override;
  std::vector<std::string> names_near(const std::string& name) const override;
  std::vector<Candidate> checkpoint_words() const override;
  std::vector<Candidate> parameter_words(const std::string& prefix) const override;

 private:
  std::unique_ptr<host::ReadHold> hold_;
};

/// The file that open_tree() would open. Throws Failure (kStore) when nothing says where it is.
std::string store_path(const std::string& store);

}  // namespace igdctl

#endif  // IGDCTL_STORE_BACKEND_H
