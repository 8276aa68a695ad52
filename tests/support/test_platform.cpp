#include "test_platform.h"

#include "host_platform.h"

namespace support {
namespace {

class Switchboard final : public MibAccess {
 public:
  void connect(MibAccess* mib) { mib_ = mib; }

  int addObject(const std::string& table_path, int* instance, int access_level) override {
    return mib().addObject(table_path, instance, access_level);
  }
  int deleteObject(const std::string& object_path) override {
    return mib().deleteObject(object_path);
  }
  InstanceIterator* openInstanceIterator(int type) override {
    return mib().openInstanceIterator(type);
  }
  void closeInstanceIterator(InstanceIterator* iterator) override {
    mib().closeInstanceIterator(iterator);
  }
  std::string getValue(const std::string& name) override { return mib().getValue(name); }
  int setValue(const std::string& name, const std::string& value, int flags) override {
    return mib().setValue(name, value, flags);
  }
  int commit(int mode) override { return mib().commit(mode); }
  int applyChanges(const std::string& scope) override { return mib().applyChanges(scope); }

 private:
  MibAccess& mib() { return mib_ != nullptr ? *mib_ : host::mib_access(); }
  MibAccess* mib_ = nullptr;
};

class TestContext final : public PlatformContext {
 public:
  MibAccess* mibAccess() override { return &switchboard; }
  void* secondService() override { return nullptr; }
  Switchboard switchboard;
};

TestContext& test_context() {
  static TestContext context;
  return context;
}

}  // namespace

int MibDecorator::addObject(const std::string& table_path, int* instance, int access_level) {
  return next_->addObject(table_path, instance, access_level);
}

int MibDecorator::deleteObject(const std::string& object_path) {
  return next_->deleteObject(object_path);
}

InstanceIterator* MibDecorator::openInstanceIterator(int type) {
  return next_->openInstanceIterator(type);
}

void MibDecorator::closeInstanceIterator(InstanceIterator* iterator) {
  next_->closeInstanceIterator(iterator);
}

std::string MibDecorator::getValue(const std::string& name) { return next_->getValue(name); }

int MibDecorator::setValue(const std::string& name, const std::string& value, int flags) {
  return next_->setValue(name, value, flags);
}

int MibDecorator::commit(int mode) { return next_->commit(mode); }

int MibDecorator::applyChanges(const std::string& scope) { return next_->applyChanges(scope); }

int FailingAdds::addObject(const std::string& table_path, int* instance, int access_level) {
  if (--countdown_ == 0) return -1;
  return next().addObject(table_path, instance, access_level);
}

void put_behind_switchboard(MibAccess* mib) { test_context().switchboard.connect(mib); }

}  // namespace support

PlatformContext* getContext() { return &support::test_context(); }
