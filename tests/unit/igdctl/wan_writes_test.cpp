// A plain field is written in its own places, and what the tree refuses ends the change.
#include "wan/wan_writes.h"

#include <gtest/gtest.h>

#include "wan_set_fixture.h"

namespace {

using namespace igdctl_tests;

// Passes on, counts writes, and can refuse those of one parameter.
class Watched final : public MibAccess {
 public:
  int addObject(const std::string& path, int* number, int level) override {
    return inner_.addObject(path, number, level);
  }
  int deleteObject(const std::string& path) override { return inner_.deleteObject(path); }
  InstanceIterator* openInstanceIterator(int type) override {
    return inner_.openInstanceIterator(type);
  }
  void closeInstanceIterator(InstanceIterator* walk) override {
    inner_.closeInstanceIterator(walk);
  }
  std::string getValue(const std::string& name) override { return inner_.getValue(name); }
  int setValue(const std::string& name, const std::string& value, int flags) override {
    ++writes;
    if (!refused.empty() && name.find(refused) != std::string::npos) return -1;
    return inner_.setValue(name, value, flags);
  }
  int commit(int mode) override { return inner_.commit(mode); }
  int applyChanges(const std::string& scope) override { return inner_.applyChanges(scope); }

  int writes = 0;
  std::string refused;

 private:
  MibAccess& inner_ = host::mib_access();
};

class WanPlainWrites : public WanSet {
 protected:
  WanPlainWrites() {
    api_wan_info info = description(kIgdRouted, kIgdStatic, 100, {"192.0.2.53"});
    path_ = quietly([&info] { return igd_wan_create("Ethernet", &info); });
    fixed_ = path_ + "WANIPConnection.1.";
    dhcp_ = path_ + "WANIPConnection.2.";
    ppp_ = path_ + "WANPPPConnection.1.";
  }

  // The names of what a change writes; each write goes to the watched tree.
  Names names_written(const WanPatch& patch) {
    const Values before = values();
    const Connection connection = only_connection();
    const WanDraft draft = propose(connection, patch);
    tree_watch_.writes = 0;
    quietly([&] { WanWrites(tree_watch_, connection, draft).run(); });
    Names names;
    for (const auto& [name, text] : values()) {
      if (before.at(name) != text) names.push_back(name);
    }
    return names;
  }

  std::string path_;
  std::string fixed_;
  std::string dhcp_;
  std::string ppp_;
  Watched tree_watch_;
};

TEST_F(WanPlainWrites, GoToTheParametersOfTheFieldOnly) {
  const std::string bridge = only_connection().bridge_path;
  struct Case {
    const char* key;
    Value value;
    Names names;
  };
  const std::vector<Case> cases = {
      {"name",
       "Radio",
       {path_ + "WANEthernetLinkConfig.X_CT-COM_Name", fixed_ + "Name", dhcp_ + "Name",
        ppp_ + "Name"}},
      {"priority", 5, {bridge + "X_ZYN_VLANPriority"}},
      {"service",
       Names{"VOIP"},
       {fixed_ + "X_CT-COM_ServiceList", dhcp_ + "X_CT-COM_ServiceList",
        ppp_ + "X_CT-COM_ServiceList"}},
      {"nat", false, {fixed_ + "NATEnabled", dhcp_ + "NATEnabled", ppp_ + "NATEnabled"}},
      {"user", "other", {ppp_ + "Username"}},
      {"password", "other", {ppp_ + "Password"}},
      {"address", "192.0.2.11", {fixed_ + "ExternalIPAddress"}},
      {"mask", "255.255.0.0", {fixed_ + "SubnetMask"}},
      {"gateway", "192.0.2.2", {fixed_ + "DefaultGateway"}},
      {"dns", Names{"192.0.2.54"}, {fixed_ + "DNSServers"}},
      {"mtu", 1300, {fixed_ + "MTU"}},
      {"option60", "other", {dhcp_ + "X_ZYN-COM_OPTION60"}},
      {"port_option60", TextsByPort{{"LAN3", "other"}}, {bridge + "Port.2.PortOption60"}},
      {"enable", false, {path_ + "X_CT-COM_Enable"}},
      {"remote_management", true, {path_ + "X_CT-COM_RemoteManagerEnable"}},
      {"stp", false, {path_ + "X_CT-COM_STPEnable"}}};
  std::set<std::string> tried;
  for (const Case& one : cases) {
    WanPatch patch;
    patch[one.key] = one.value;
    const Names names = names_written(patch);
    EXPECT_EQ(std::set<std::string>(names.begin(), names.end()),
              std::set<std::string>(one.names.begin(), one.names.end()))
        << one.key;
    EXPECT_EQ(tree_watch_.writes, static_cast<int>(one.names.size())) << one.key;
    EXPECT_EQ(names_written(patch), Names{}) << one.key;
    EXPECT_EQ(tree_watch_.writes, 0) << one.key << " is there already";
    tried.insert(one.key);
  }
  for (const WanField& field : kWanFields) {
    const bool plain = !field.structural && field.places.front().where != Where::kNowhere;
    EXPECT_EQ(tried.count(field.key), plain ? 1U : 0U) << field.key;
  }
}

TEST_F(WanPlainWrites, FailWhenTheTreeRefusesOne) {
  WanPatch patch;
  patch["mtu"] = 1300;
  tree_watch_.refused = "MTU";
  EXPECT_THROW(names_written(patch), Failure);
}

TEST_F(WanPlainWrites, FailWhenWhatIsPutBackIsRefused) {
  set(fixed_ + "NATEnabled", "1");
  WanPatch patch;
  patch["vlan"] = 110;
  tree_watch_.refused = "NATEnabled";
  EXPECT_THROW(names_written(patch), Failure);
}

TEST_F(WanPlainWrites, AnOption60IsWrittenAlsoWhereTheTypeIsUnknown) {
  for (const std::string* object : {&fixed_, &dhcp_, &ppp_}) {
    set(*object + "ConnectionType", "Relay");
  }
  WanPatch patch;
  patch["option60"] = "other";
  EXPECT_EQ(names_written(patch), Names{dhcp_ + "X_ZYN-COM_OPTION60"});
}

// Words stand in the table and beside the library's codes.
TEST(WanFieldsTable, EveryWordIsTakenAndShown) {
  for (const WanField& field : kWanFields) {
    if (field.kind != FieldKind::kWord) continue;
    for (const std::string& word : words_of(field)) {
      WanDescription description;
      field.lay(&description, word);
      EXPECT_EQ(field.value(description), Value(word)) << field.key;
    }
  }
}

}  // namespace
