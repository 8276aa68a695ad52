#include "data_model.h"

#include <cstddef>
#include <cstring>
#include <string>

#include "common_util.h"
#include "igd_vocabulary.h"
#include "text.h"

namespace {

PlatformContext* g_context = nullptr;
MibAccess* g_tree = nullptr;
void* g_second_service = nullptr;  // obtained as the platform expects, never used

std::string full_name(const std::string& path, const char* name) {
  const std::size_t size = std::strlen(name);
  std::string parameter;
  parameter.reserve(path.size() + size);
  parameter.append(path).append(name, size);
  return parameter;
}

}  // namespace

void ensureContext() {
  if (g_context != nullptr) return;
  g_context = getContext();
  if (g_context == nullptr) return;
  g_tree = g_context->mibAccess();
  g_second_service = g_context->secondService();
}

std::string _get_value(const std::string& path, const char* name) {
  return igd::value_of(full_name(path, name));
}

void _set_value(const std::string& path, const char* name, const std::string& value) {
  igd::store(full_name(path, name), value);
}

void _set_value(const std::string& path, const char* name, const char* value) {
  _set_value(path, name, std::string(value));
}

void _delete_port(const std::string& path) {
  if (igd::tree() == nullptr) return;
  _set_value(path, "PortEnable", igd::kFalse);
  igd::delete_object(path);
}

namespace igd {

MibAccess* tree() {
  ensureContext();
  return g_tree;
}

std::string value_of(const std::string& parameter) {
  MibAccess* const mib = tree();
  return mib == nullptr ? std::string() : mib->getValue(parameter);
}

int number_of(const std::string& parameter) { return lenient_number(value_of(parameter)); }

bool has_value(const std::string& parameter, const std::string& text) {
  return value_of(parameter) == text;
}

void store(const std::string& parameter, const std::string& value) {
  MibAccess* const mib = tree();
  if (mib != nullptr) (void)mib->setValue(parameter, value, kSetFlags);
}

void read_into(const std::string& path, const char* name, std::string* field) {
  *field = _get_value(path, name);
}

int number_at(const std::string& path, const char* name) {
  return lenient_number(_get_value(path, name));
}

bool value_is(const std::string& path, const char* name, const char* text) {
  return _get_value(path, name) == text;
}

bool value_is(const std::string& path, const char* name, const std::string& text) {
  return _get_value(path, name) == text;
}

void delete_object(const std::string& object_path) {
  MibAccess* const mib = tree();
  if (mib != nullptr) (void)mib->deleteObject(object_path);
}

NewInstance add_instance(const std::string& table_path) {
  MibAccess* const mib = tree();
  int number = 0;
  const bool added = mib != nullptr && mib->addObject(table_path, &number, kInternalAccess) == 0;
  return {added, numbered(table_path, number)};
}

void commit() {
  MibAccess* const mib = tree();
  if (mib != nullptr) (void)mib->commit(kCommitMode);
}

void commit_and_apply() {
  commit();
  MibAccess* const mib = tree();
  if (mib != nullptr) (void)mib->applyChanges("");
}

}  // namespace igd
