#include "notes.h"

#include <functional>

namespace fuzz {
namespace {

constexpr std::size_t kKept = 160;  // of a text; of a longer one its end goes into a number

std::string shortened(const std::string& text) {
  if (text.size() <= kKept) return text;
  return text.substr(0, kKept) + "... " + std::to_string(text.size()) + ' ' +
         std::to_string(std::hash<std::string>()(text));
}

}  // namespace

void Notes::note(const char* call, const std::string& name) {
  calls_.append(call).append(" ").append(shortened(name)).append("\n");
}

int Notes::changing(const char* call, const std::string& name, int result) {
  wrote_ = true;
  note(call, name + " -> " + std::to_string(result));
  return result;
}

int Notes::addObject(const std::string& table_path, int* instance, int access_level) {
  return changing("add", table_path, next().addObject(table_path, instance, access_level));
}

int Notes::deleteObject(const std::string& object_path) {
  return changing("delete", object_path, next().deleteObject(object_path));
}

InstanceIterator* Notes::openInstanceIterator(int type) {
  InstanceIterator* const walk = next().openInstanceIterator(type);
  if (walk != nullptr) ++open_walks_;
  note("open", std::to_string(type));
  return walk;
}

void Notes::closeInstanceIterator(InstanceIterator* iterator) {
  --open_walks_;
  note("close", {});
  next().closeInstanceIterator(iterator);
}

std::string Notes::getValue(const std::string& name) {
  note("get", name);
  return next().getValue(name);
}

int Notes::setValue(const std::string& name, const std::string& value, int flags) {
  return changing("set", shortened(name) + " = " + value, next().setValue(name, value, flags));
}

int Notes::commit(int mode) { return changing("commit", {}, next().commit(mode)); }

int Notes::applyChanges(const std::string& scope) {
  return changing("apply", scope, next().applyChanges(scope));
}

}  // namespace fuzz
