#include "gateway.h"

#include <cstddef>
#include <utility>
#include <vector>

#include "common_util.h"
#include "igd_api.h"

namespace proof {
namespace {

Gateway* running = nullptr;

class Names final : public InstanceIterator {
 public:
  explicit Names(std::vector<std::string> names) : names_(std::move(names)) {}
  int next() override { return ++at_ <= names_.size() ? 1 : 0; }
  std::string fullName() override {
    return at_ > 0 && at_ <= names_.size() ? names_[at_ - 1] : std::string();
  }

 private:
  std::vector<std::string> names_;
  std::size_t at_ = 0;
};

class StoreAccess final : public MibAccess {
 public:
  int addObject(const std::string& table_path, int* instance, int /*access_level*/) override {
    return tree().add_object(table_path, instance);
  }
  int deleteObject(const std::string& object_path) override {
    return tree().delete_object(object_path);
  }
  InstanceIterator* openInstanceIterator(int type) override {
    std::vector<std::string> names = tree().instances(type);
    return names.empty() ? nullptr : new Names(std::move(names));
  }
  void closeInstanceIterator(InstanceIterator* iterator) override {
    delete static_cast<Names*>(iterator);
  }
  std::string getValue(const std::string& name) override { return tree().value(name); }
  int setValue(const std::string& name, const std::string& value, int /*flags*/) override {
    return tree().set_value(name, value);
  }
  int commit(int /*mode*/) override {
    const host::StoreResult result = running->store().commit("library");
    if (!running->store().in_trial()) (void)running->did(result);  // else nothing is decided yet
    return result.ok() ? 0 : -1;
  }
  int applyChanges(const std::string& /*scope*/) override { return 0; }

 private:
  static host::Tree& tree() { return running->store().tree(); }
};

class Context final : public PlatformContext {
 public:
  MibAccess* mibAccess() override { return &access_; }
  void* secondService() override { return nullptr; }

 private:
  StoreAccess access_;
};

}  // namespace

Gateway::Gateway(std::string path, host::StoreOptions options, std::function<void()> done)
    : path_(std::move(path)), options_(std::move(options)), done_(std::move(done)) {
  running = this;
}

Gateway::~Gateway() {
  std::vector<std::string> none;
  _rebuid_cache(none);  // the library must not remember another gateway's connections
  running = nullptr;
}

bool Gateway::did(const host::StoreResult& result) {
  if (!result.ok() && failure_.ok()) failure_ = result;
  if (result.ok()) done_();
  return result.ok();
}

bool Gateway::open() {
  host::StoreResult result;
  store_ = host::Store::open(path_, options_, &result);
  return did(result);
}

void Gateway::close() { store_.reset(); }

}  // namespace proof

PlatformContext* getContext() {
  static auto* const context = new proof::Context;
  return context;
}
