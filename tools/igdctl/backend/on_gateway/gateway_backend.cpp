#include "backend/on_gateway/gateway_backend.h"

#include <nlohmann/json.hpp>

#include "term/failure.h"

namespace igdctl {

namespace {

constexpr int kCommitMode = 1;

class DirectWrites : public Transaction {
 public:
  explicit DirectWrites(MibAccess& tree) : tree_(tree) {}

  std::optional<ChangeEffect> effect(bool, bool) override { return std::nullopt; }

  void land(const std::string&, int) override {
    if (tree_.commit(kCommitMode) == 0) return;
    throw Failure(ExitCode::kPlatform,
                  "the platform refused the commit; the writes may be in effect anyway",
                  "check the connections with igdctl wan list before you go on");
  }

 private:
  MibAccess& tree_;
};

MibAccess* tree_of_platform() {
  PlatformContext* const context = getContext();
  return context == nullptr ? nullptr : context->mibAccess();
}

}  // namespace

MibAccess& GatewayBackend::open_tree(const std::string&) {
  tree_ = tree_of_platform();
  if (tree_ == nullptr) {
    throw Failure(ExitCode::kStore, "the platform has no configuration tree yet",
                  "try again when the gateway has finished starting");
  }
  return *tree_;
}

bool GatewayBackend::has_tree(const std::string&) const { return true; }

std::unique_ptr<Transaction> GatewayBackend::begin_change() {
  return std::make_unique<DirectWrites>(*tree_);
}

std::optional<ParameterFacts> GatewayBackend::facts_of(const std::string& name) const {
  if (is_object_path(name)) return std::nullopt;
  return ParameterFacts();
}

bool GatewayBackend::is_object_path(const std::string& path) const {
  return !path.empty() && path.back() == '.';
}

std::vector<std::string> GatewayBackend::names_near(const std::string&) const { return {}; }

std::vector<Candidate> GatewayBackend::checkpoint_words() const { return {}; }

std::vector<Candidate> GatewayBackend::parameter_words(const std::string&) const { return {}; }

}  // namespace igdctl
