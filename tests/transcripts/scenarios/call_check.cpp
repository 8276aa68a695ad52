#include "call_check.h"

namespace transcripts {
namespace {

constexpr int kInternalAccess = 255;
constexpr int kSetFlags = 0;
constexpr int kCommitMode = 1;

}  // namespace

std::vector<std::string> CallCheck::faults() {
  check_no_open_walk("the end");
  return faults_;
}

int CallCheck::addObject(const std::string& table_path, int* instance, int access_level) {
  check_no_open_walk("addObject " + table_path);
  check(access_level == kInternalAccess, "access level of addObject " + table_path);
  check(instance != nullptr && *instance == 0, "number before addObject " + table_path);
  return next().addObject(table_path, instance, access_level);
}

int CallCheck::deleteObject(const std::string& object_path) {
  check_no_open_walk("deleteObject " + object_path);
  return next().deleteObject(object_path);
}

InstanceIterator* CallCheck::openInstanceIterator(int type) {
  check_no_open_walk("openInstanceIterator " + std::to_string(type));
  open_walk_ = next().openInstanceIterator(type);
  return open_walk_;
}

void CallCheck::closeInstanceIterator(InstanceIterator* iterator) {
  check(iterator != nullptr && iterator == open_walk_, "a walk was closed that was not open");
  open_walk_ = nullptr;
  next().closeInstanceIterator(iterator);
}

std::string CallCheck::getValue(const std::string& name) {
  check_no_open_walk("getValue " + name);
  return next().getValue(name);
}

int CallCheck::setValue(const std::string& name, const std::string& value, int flags) {
  check_no_open_walk("setValue " + name);
  check(flags == kSetFlags, "flags of setValue " + name);
  return next().setValue(name, value, flags);
}

int CallCheck::commit(int mode) {
  check_no_open_walk("commit");
  check(mode == kCommitMode, "mode of commit");
  return next().commit(mode);
}

int CallCheck::applyChanges(const std::string& scope) {
  check_no_open_walk("applyChanges");
  check(scope.empty(), "scope of applyChanges");
  return next().applyChanges(scope);
}

void CallCheck::check(bool right, const std::string& fault) {
  if (!right) faults_.push_back(fault);
}

void CallCheck::check_no_open_walk(const std::string& call) {
  check(open_walk_ == nullptr, "a walk is still open at " + call);
}

}  // namespace transcripts
