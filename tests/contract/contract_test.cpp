#include "contract_test.h"

#include <algorithm>

namespace contract {

void Verbs::start(const PlatformCase& platform) {
  platform_ = platform.make();
  ASSERT_NE(platform_, nullptr) << platform.name << " has no tree";
  for (const int type : kObjectTypes) at_start_[type] = walk(type);
}

void Verbs::TearDown() {
  if (platform_ == nullptr) return;
  check_refusals();
  remove_what_was_added();
}

std::string Verbs::add(const std::string& table_path) {
  return table_path + std::to_string(number_of_added(table_path)) + ".";
}

int Verbs::number_of_added(const std::string& table_path) {
  int number = 0;
  EXPECT_EQ(mib().addObject(table_path, &number, kInternalLevel), 0) << table_path;
  EXPECT_GE(number, 1) << table_path;
  if (number >= 1) added_.push_back(table_path + std::to_string(number) + ".");
  return number;
}

Gateway Verbs::add_one_of_each() {
  Gateway gateway;
  gateway.wan_device = add(kWanDevices);
  gateway.connection_device = add(gateway.wan_device + "WANConnectionDevice.");
  gateway.ip = add(gateway.connection_device + "WANIPConnection.");
  gateway.ppp = add(gateway.connection_device + "WANPPPConnection.");
  gateway.mapping = add(gateway.ip + "PortMapping.");
  gateway.bridge = add(kBridges);
  gateway.port = add(gateway.bridge + "Port.");
  gateway.route = add(kRoutes);
  return gateway;
}

void Verbs::set(const std::string& name, const std::string& value) {
  EXPECT_EQ(mib().setValue(name, value, 0), 0) << name;
}

void Verbs::remove(const std::string& object_path) {
  EXPECT_EQ(mib().deleteObject(object_path), 0) << object_path;
  const auto is_gone = [&object_path](const std::string& path) {
    return path.compare(0, object_path.size(), object_path) == 0;
  };
  added_.erase(std::remove_if(added_.begin(), added_.end(), is_gone), added_.end());
}

Names Verbs::walk(int type) {
  Names names;
  InstanceIterator* iterator = mib().openInstanceIterator(type);
  if (iterator == nullptr) return names;
  do {
    names.push_back(iterator->fullName());
  } while (iterator->next() != 0);
  mib().closeInstanceIterator(iterator);
  return names;
}

Names Verbs::walk_mine(int type) {
  const Names& others = at_start_[type];
  Names mine;
  for (const std::string& name : walk(type)) {
    if (std::find(others.begin(), others.end(), name) == others.end()) mine.push_back(name);
  }
  return mine;
}

std::string Verbs::everything() {
  std::string text = platform_->listing();
  for (const int type : kObjectTypes) {
    for (const std::string& name : walk(type)) text += name + "=" + get(name) + "\n";
  }
  return text;
}

void Verbs::expect_refused(const std::string& call, const std::string& name) {
  expected_.push_back({call, name});
}

// A test may have made an object that another deletion took along, so results do not count here.
void Verbs::remove_what_was_added() {
  for (auto path = added_.rbegin(); path != added_.rend(); ++path) {
    (void)platform_->mib().deleteObject(*path);
  }
}

void Verbs::check_refusals() {
  const auto noted = platform_->refused();
  if (!noted.has_value()) return;
  EXPECT_EQ(noted->size(), expected_.size()) << "refused calls that were noted";
  for (std::size_t i = 0; i < std::min(noted->size(), expected_.size()); ++i) {
    EXPECT_EQ((*noted)[i].call, expected_[i].call);
    EXPECT_EQ((*noted)[i].name, expected_[i].name);
  }
}

}  // namespace contract
