// Static routes: listing, clearing, adding, changing and removing them.
#include <utility>

#include "gateway_test.h"

namespace {

using support::kRoutes;

using Texts = std::vector<std::string>;

constexpr char kForwarding[] = "InternetGatewayDevice.Layer3Forwarding.";

/// A tree whose deletions fail, those of routes or that of the forwarding object itself; counts the
/// commits.
class FailingDeletes final : public support::MibDecorator {
 public:
  explicit FailingDeletes(bool of_routes) : MibDecorator(host::mib_access()), routes_(of_routes) {}

  int deleteObject(const std::string& object_path) override {
    if ((object_path != kForwarding) == routes_) return -5;
    return next().deleteObject(object_path);
  }
  int commit(int mode) override {
    ++commits_;
    return next().commit(mode);
  }
  int commits() const { return commits_; }

 private:
  bool routes_;
  int commits_ = 0;
};

class Routes : public support::GatewayTest {
 protected:
  static api_route_info by_gateway(const std::string& dest_ip, const std::string& gateway) {
    return {dest_ip, "255.0.0.0", 1, kIgdRouteByGateway, "unused", gateway};
  }

  static api_route_info by_interface(const std::string& dest_ip, const std::string& name) {
    return {dest_ip, "255.0.0.0", 1, kIgdRouteByInterface, name, "unused"};
  }

  /// "dest/mask enable type interface gateway" of each listed route.
  static Texts listed() {
    std::vector<api_route_info> routes(3);
    const int count = igd_get_static_route_list(routes);
    EXPECT_EQ(count, static_cast<int>(routes.size()));
    Texts texts;
    for (const api_route_info& route : routes) {
      texts.push_back(route.dest_ip + '/' + route.dest_mask + ' ' + std::to_string(route.enable) +
                      ' ' + std::to_string(route.route_type) + " [" + route.interface + "] [" +
                      route.gateway + ']');
    }
    return texts;
  }

  std::string add_route(const std::string& dest_ip, const std::string& dest_mask) {
    const std::string path = add(kRoutes);
    set(path + "DestIPAddress", dest_ip);
    set(path + "DestSubnetMask", dest_mask);
    return path;
  }

  std::string hop_of(const std::string& path) const {
    return '[' + get(path + "Interface") + "] [" + get(path + "GatewayIPAddress") + ']';
  }
};

TEST_F(Routes, AreListedInTheTreesOrderDisabledOnesToo) {
  set(add_route("10.0.0.0", "255.0.0.0") + "GatewayIPAddress", "10.0.0.1");
  const std::string second = add_route("20.0.0.0", "255.255.0.0");
  set(second + "Interface", "wan");
  set(second + "Enable", "true");
  EXPECT_EQ(listed(),
            (Texts{"10.0.0.0/255.0.0.0 0 1 [] [10.0.0.1]", "20.0.0.0/255.255.0.0 1 2 [wan] []"}));
}

TEST_F(Routes, WithAGatewayShowNoInterface) {
  const std::string path = add_route("10.0.0.0", "255.0.0.0");
  set(path + "GatewayIPAddress", "10.0.0.1");
  set(path + "Interface", "wan");
  EXPECT_EQ(listed(), Texts{"10.0.0.0/255.0.0.0 0 1 [] [10.0.0.1]"});
}

TEST_F(Routes, WithoutGatewayCountAsRoutesByInterface) {
  (void)add_route("10.0.0.0", "255.0.0.0");
  EXPECT_EQ(listed(), Texts{"10.0.0.0/255.0.0.0 0 2 [] []"});
}

TEST_F(Routes, AreEnabledByTheExactTextTrue) {
  const std::string path = add_route("10.0.0.0", "255.0.0.0");
  const std::vector<std::pair<std::string, std::string>> rows = {
      {"true", "1"}, {"TRUE", "0"}, {"1", "0"}, {"true ", "0"}, {"false", "0"}, {"", "0"}};
  for (const auto& [text, enable] : rows) {
    set(path + "Enable", text);
    EXPECT_EQ(listed(), Texts{"10.0.0.0/255.0.0.0 " + enable + " 2 [] []"}) << text;
  }
}

TEST_F(Routes, MayBeNone) { EXPECT_EQ(listed(), Texts{}); }

TEST_F(Routes, AreClearedAndCommitted) {
  (void)add_route("10.0.0.0", "255.0.0.0");
  (void)add_route("20.0.0.0", "255.0.0.0");
  support::Transcript transcript;
  EXPECT_EQ(igd_clear_static_route(), 0);
  EXPECT_EQ(transcript.writes(), "delete " + kRoutes + "1.\ndelete " + kRoutes + "2.\ndelete " +
                                     kForwarding + "\ncommit 1\napply \"\"\n");
  EXPECT_EQ(listed(), Texts{});
}

TEST_F(Routes, AreClearedEvenWhenThereAreNone) {
  support::Transcript transcript;
  EXPECT_EQ(igd_clear_static_route(), 0);
  EXPECT_EQ(transcript.writes(), std::string("delete ") + kForwarding + "\ncommit 1\napply \"\"\n");
}

TEST_F(Routes, AreNotCommittedWhenTheForwardingObjectRefuses) {
  (void)add_route("10.0.0.0", "255.0.0.0");
  FailingDeletes tree(false);
  const support::BehindSwitchboard behind(tree);
  EXPECT_EQ(igd_clear_static_route(), -5);
  EXPECT_EQ(tree.commits(), 0);
  EXPECT_EQ(listed(), Texts{});
}

TEST_F(Routes, MayRefuseToGoOneByOne) {
  (void)add_route("10.0.0.0", "255.0.0.0");
  FailingDeletes tree(true);
  const support::BehindSwitchboard behind(tree);
  EXPECT_EQ(igd_clear_static_route(), 0);
  EXPECT_EQ(tree.commits(), 1);
}

class SetRoute : public Routes {};

TEST_F(SetRoute, AddsARouteByGateway) {
  EXPECT_EQ(igd_set_static_route(kIgdRouteSet, by_gateway("10.0.0.0", "10.0.0.1")), 0);
  EXPECT_EQ(listed(), Texts{"10.0.0.0/255.0.0.0 1 1 [] [10.0.0.1]"});
}

TEST_F(SetRoute, AddsARouteByTheNameOfAConnection) {
  const std::string wan = add_connection_device(1, {"DHCP"});
  set(wan + "WANIPConnection.1.Name", "1_INTERNET");
  EXPECT_EQ(igd_set_static_route(kIgdRouteSet, by_interface("10.0.0.0", "1_INTERNET")), 0);
  EXPECT_EQ(listed(), Texts{"10.0.0.0/255.0.0.0 1 2 [" + wan + "] []"});
}

TEST_F(SetRoute, StoresNoInterfaceForAnUnknownName) {
  const std::string wan = add_connection_device(1, {"DHCP"});
  for (const std::string& name : {std::string("unknown"), wan}) {
    EXPECT_EQ(igd_set_static_route(kIgdRouteSet, by_interface("10.0.0.0", name)), 0);
    EXPECT_EQ(listed(), Texts{"10.0.0.0/255.0.0.0 1 2 [] []"}) << name;
  }
}

TEST_F(SetRoute, RewritesTheEntryOfItsDestination) {
  const std::string path = add_route("10.0.0.0", "255.0.0.0");
  EXPECT_EQ(igd_set_static_route(kIgdRouteSet, by_gateway("10.0.0.0", "10.0.0.1")), 0);
  EXPECT_EQ(igd_set_static_route(kIgdRouteSet, by_gateway("10.0.0.0", "10.0.0.2")), 0);
  EXPECT_EQ(listed(), Texts{"10.0.0.0/255.0.0.0 1 1 [] [10.0.0.2]"});
  EXPECT_TRUE(tree_.has_object(path));
}

TEST_F(SetRoute, RewritesTheFirstOfTwoEqualEntries) {
  const std::string first = add_route("10.0.0.0", "255.0.0.0");
  const std::string second = add_route("10.0.0.0", "255.0.0.0");
  (void)igd_set_static_route(kIgdRouteSet, by_gateway("10.0.0.0", "10.0.0.1"));
  EXPECT_EQ(hop_of(first), "[] [10.0.0.1]");
  EXPECT_EQ(hop_of(second), "[] []");
}

TEST_F(SetRoute, ComparesDestinationAndMaskExactly) {
  (void)add_route("10.0.0.0", "255.0.0.0 ");
  (void)add_route("10.0.0", "255.0.0.0");
  (void)add_route("10.0.0.00", "255.0.0.0");
  (void)add_route("255.0.0.0", "10.0.0.0");
  EXPECT_EQ(igd_set_static_route(kIgdRouteDelete, by_gateway("10.0.0.0", "")), -1);
  EXPECT_EQ(igd_set_static_route(kIgdRouteSet, by_gateway("10.0.0.0", "10.0.0.1")), 0);
  EXPECT_EQ(hop_of(kRoutes + "5."), "[] [10.0.0.1]");
}

TEST_F(SetRoute, ReplacesTheOtherKindOfHop) {
  const std::string wan = add_connection_device(1, {"DHCP"});
  set(wan + "WANIPConnection.1.Name", "1_INTERNET");
  (void)igd_set_static_route(kIgdRouteSet, by_interface("10.0.0.0", "1_INTERNET"));
  (void)igd_set_static_route(kIgdRouteSet, by_gateway("10.0.0.0", "10.0.0.1"));
  EXPECT_EQ(hop_of(kRoutes + "1."), "[] [10.0.0.1]");
  (void)igd_set_static_route(kIgdRouteSet, by_interface("10.0.0.0", "1_INTERNET"));
  EXPECT_EQ(hop_of(kRoutes + "1."), '[' + wan + "] []");
}

TEST_F(SetRoute, LeavesTheHopAloneForAnUnknownType) {
  const std::string path = add_route("10.0.0.0", "255.0.0.0");
  set(path + "Interface", "wan");
  set(path + "GatewayIPAddress", "10.0.0.1");
  for (const int type : {0, 3, -1}) {
    api_route_info route = by_gateway("10.0.0.0", "10.0.0.2");
    route.route_type = type;
    EXPECT_EQ(igd_set_static_route(kIgdRouteSet, route), 0);
    EXPECT_EQ(hop_of(path), "[wan] [10.0.0.1]") << type;
    EXPECT_EQ(get(path + "Enable"), "true") << type;
  }
}

TEST_F(SetRoute, EnablesForAnyNonZeroFlag) {
  const std::vector<std::pair<int, std::string>> rows = {
      {1, "true"}, {0, "false"}, {5, "true"}, {-1, "true"}};
  for (const auto& [enable, text] : rows) {
    api_route_info route = by_gateway("10.0.0.0", "10.0.0.1");
    route.enable = enable;
    (void)igd_set_static_route(kIgdRouteSet, route);
    EXPECT_EQ(get(kRoutes + "1.Enable"), text) << enable;
  }
}

TEST_F(SetRoute, DisablesTheEntryWhileItIsRewrittenAndCommits) {
  support::Transcript transcript;
  (void)igd_set_static_route(kIgdRouteSet, by_gateway("10.0.0.0", "10.0.0.1"));
  const std::string entry = "set " + kRoutes + "1.";
  EXPECT_EQ(transcript.writes(),
            "add " + kRoutes + " -> 1\n" + entry + "Enable = \"false\"\n" + entry +
                "DestIPAddress = \"10.0.0.0\"\n" + entry + "DestSubnetMask = \"255.0.0.0\"\n" +
                entry + "Interface = \"\"\n" + entry + "GatewayIPAddress = \"10.0.0.1\"\n" + entry +
                "Enable = \"true\"\ncommit 1\napply \"\"\n");
}

TEST_F(SetRoute, WritesToBareNamesWhenNoEntryCouldBeAdded) {
  support::FailingAdds failing(host::mib_access(), 1);
  const support::BehindSwitchboard behind(failing);
  EXPECT_EQ(igd_set_static_route(kIgdRouteSet, by_gateway("10.0.0.0", "10.0.0.1")), 0);
  EXPECT_EQ(take_refusals(),
            (Texts{"setValue Enable", "setValue DestIPAddress", "setValue DestSubnetMask",
                   "setValue Interface", "setValue GatewayIPAddress", "setValue Enable"}));
}

TEST_F(SetRoute, DeletesTheRouteWithItsMask) {
  (void)add_route("10.0.0.0", "255.255.0.0");
  (void)add_route("10.0.0.0", "255.0.0.0");
  support::Transcript transcript;
  EXPECT_EQ(igd_set_static_route(kIgdRouteDelete, by_gateway("10.0.0.0", "")), 0);
  EXPECT_EQ(transcript.writes(), "delete " + kRoutes + "2.\ncommit 1\napply \"\"\n");
  EXPECT_EQ(listed(), Texts{"10.0.0.0/255.255.0.0 0 2 [] []"});
}

TEST_F(SetRoute, ReportsARouteToDeleteThatIsNotThere) {
  (void)add_route("10.0.0.0", "255.0.0.0");
  support::Transcript transcript;
  EXPECT_EQ(igd_set_static_route(kIgdRouteDelete, by_gateway("20.0.0.0", "")), -1);
  EXPECT_EQ(transcript.writes(), "");
}

TEST_F(SetRoute, DoesNothingForAnUnknownOperation) {
  (void)add_route("10.0.0.0", "255.0.0.0");
  support::Transcript transcript;
  for (const int op : {0, 3, -1}) {
    EXPECT_EQ(igd_set_static_route(op, by_gateway("10.0.0.0", "10.0.0.1")), 0) << op;
    EXPECT_EQ(igd_set_static_route(op, by_gateway("20.0.0.0", "10.0.0.1")), 0) << op;
  }
  EXPECT_EQ(transcript.writes(), "");
}

}  // namespace
