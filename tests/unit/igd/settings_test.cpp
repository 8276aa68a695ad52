// The management server's settings and the LAN address.
#include <string>
#include <vector>

#include "gateway_test.h"

namespace {

using Texts = std::vector<std::string>;

constexpr char kServer[] = "InternetGatewayDevice.ManagementServer.";

/// A tree that refuses to store one parameter.
class RefusesOne final : public support::MibDecorator {
 public:
  explicit RefusesOne(std::string name) : MibDecorator(host::mib_access()), name_(name) {}
  int setValue(const std::string& name, const std::string& value, int flags) override {
    return name == name_ ? -1 : next().setValue(name, value, flags);
  }

 private:
  std::string name_;
};

class ServerSettings : public support::GatewayTest {
 protected:
  Texts stored() const {
    Texts texts;
    for (const char* name : {"URL", "Username", "Password", "ConnectionRequestURL",
                             "ConnectionRequestUsername", "ConnectionRequestPassword"}) {
      texts.push_back(get(std::string(kServer) + name));
    }
    return texts;
  }

  api_mng_server_info info_ = {"http://acs", "user", "secret", "http://gw", "back", "door"};
  const Texts texts_ = {"http://acs", "user", "secret", "http://gw", "back", "door"};
};

TEST_F(ServerSettings, AreWrittenEachToItsParameter) {
  EXPECT_EQ(igd_mng_server_set_params(&info_), 0);
  EXPECT_EQ(stored(), texts_);
}

TEST_F(ServerSettings, AreReadBackUnchanged) {
  ASSERT_EQ(igd_mng_server_set_params(&info_), 0);
  api_mng_server_info read = {"old", "old", "old", "old", "old", "old"};
  EXPECT_EQ(igd_mng_server_get_params(&read), 0);
  EXPECT_EQ((Texts{read.url, read.username, read.password, read.connection_request_url,
                   read.connection_request_username, read.connection_request_password}),
            texts_);
}

TEST_F(ServerSettings, AreEmptyWhereTheTreeHasNone) {
  EXPECT_EQ(igd_mng_server_get_params(&info_), 0);
  EXPECT_EQ(info_.url + info_.username + info_.password + info_.connection_request_url +
                info_.connection_request_username + info_.connection_request_password,
            "");
}

TEST_F(ServerSettings, MayBecomeEmpty) {
  ASSERT_EQ(igd_mng_server_set_params(&info_), 0);
  info_.password = "";
  EXPECT_EQ(igd_mng_server_set_params(&info_), 0);
  EXPECT_EQ(stored(), (Texts{"http://acs", "user", "", "http://gw", "back", "door"}));
}

TEST_F(ServerSettings, NeedARecord) {
  ASSERT_EQ(igd_mng_server_set_params(&info_), 0);
  EXPECT_EQ(igd_mng_server_get_params(nullptr), -1022);
  EXPECT_EQ(igd_mng_server_set_params(nullptr), -1022);
  EXPECT_EQ(stored(), texts_);
}

TEST_F(ServerSettings, AreAllWrittenEvenWhenOneIsRefused) {
  RefusesOne tree(std::string(kServer) + "URL");
  const support::BehindSwitchboard behind(tree);
  EXPECT_EQ(igd_mng_server_set_params(&info_), 0);
  EXPECT_EQ(stored(), (Texts{"", "user", "secret", "http://gw", "back", "door"}));
}

TEST_F(ServerSettings, AreNotCommitted) {
  support::Transcript transcript;
  (void)igd_mng_server_set_params(&info_);
  EXPECT_EQ(transcript.text().find("commit"), std::string::npos);
  EXPECT_EQ(transcript.text().find("apply"), std::string::npos);
}

class LanAddress : public support::GatewayTest {};

TEST_F(LanAddress, IsThatOfTheFirstInterfaceOfTheFirstDevice) {
  const std::string table_path =
      "InternetGatewayDevice.LANDevice.1.LANHostConfigManagement.IPInterface.";
  EXPECT_EQ(igd_c_get_lan_ipaddr(), "192.168.1.1");
  set(add(table_path) + "IPInterfaceIPAddress", "192.168.2.1");
  EXPECT_EQ(igd_c_get_lan_ipaddr(), "192.168.1.1");
  set(table_path + "1.IPInterfaceIPAddress", "10.0.0.1");
  EXPECT_EQ(igd_c_get_lan_ipaddr(), "10.0.0.1");
}

TEST_F(LanAddress, IsEmptyWithoutThatInterface) {
  tree_ = host::Tree();
  EXPECT_EQ(igd_c_get_lan_ipaddr(), "");
}

}  // namespace
