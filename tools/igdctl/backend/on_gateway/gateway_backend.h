/// The tree of the gateway on which igdctl runs: nothing but common_util.h is known of its
/// platform.
#ifndef IGDCTL_GATEWAY_BACKEND_H
#define IGDCTL_GATEWAY_BACKEND_H

#include "backend/backend.h"

namespace igdctl {

/// Writes go to the tree at once, and one commit ends them. The platform gives values only: each
/// name counts as known, of any type, and writable.
class GatewayBackend : public Backend {
 public:
  bool has_store() const override { return false; }
  MibAccess& open_tree(const std::string& store) override;
  bool has_tree(const std::string& store) const override;
  void end_read_hold() override {}
  std::unique_ptr<Transaction> begin_change() override;
  std::optional<ParameterFacts> facts_of(const std::string& name) const override;
  bool is_object_path(const std::string& path) const override;
  std::vector<std::string> names_near(const std::string& name) const override;
  std::vector<Candidate> checkpoint_words() const override;
  std::vector<Candidate> parameter_words(const std::string& prefix) const override;

 private:
  MibAccess* tree_ = nullptr;
};

}  // namespace igdctl

#endif  // IGDCTL_GATEWAY_BACKEND_H
