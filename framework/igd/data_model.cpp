#include "data_model.h"

namespace {

PlatformContext* g_context = nullptr;
MibAccess* g_tree = nullptr;
void* g_second_service = nullptr;  // obtained as the platform expects, never used

std::string full_name(const std::string& path, std::string_view name) {
  std::string parameter;
  parameter.reserve(path.size() + name.size());
  parameter.append(path).append(name);
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

std::string _get_value(const std::string& path, std::string_view name) {
  return igd::value_of(full_name(path, name));
}

void _set_value(const std::string& path, std::string_view name, const std::string& value) {
  igd::store(full_name(path, name), value);
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

void store(const std::string& parameter, const std::string& value) {
  MibAccess* const mib = tree();
  if (mib != nullptr) (void)mib->setValue(parameter, value, kSetFlags);
}

void delete_object(const std::string& object_path) {
  MibAccess* const mib = tree();
  if (mib != nullptr) (void)mib->deleteObject(object_path);
}

bool add_instance(const std::string& table_path, int& instance) {
  instance = 0;
  MibAccess* const mib = tree();
  return mib != nullptr && mib->addObject(table_path, &instance, kInternalAccess) == 0;
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
