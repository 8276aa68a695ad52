#include "data_model.h"

#include <string>
#include <vector>

#include "gateway_test.h"

namespace {

using support::kBridges;
using support::kWanDevices;

const std::string kLanAddress =
    "InternetGatewayDevice.LANDevice.1.LANHostConfigManagement.IPInterface.1.";

class DataModel : public support::GatewayTest {};

// Notes the arguments that callers of the library never see.
class ArgumentRecorder : public support::MibDecorator {
 public:
  ArgumentRecorder() : MibDecorator(host::mib_access()) {}

  int addObject(const std::string& table_path, int* instance, int access_level) override {
    note("add", access_level);
    number_before_add_ = *instance;
    return next().addObject(table_path, instance, access_level);
  }
  int setValue(const std::string& name, const std::string& value, int flags) override {
    note("set", flags);
    return next().setValue(name, value, flags);
  }
  int commit(int mode) override {
    note("commit", mode);
    return next().commit(mode);
  }
  int applyChanges(const std::string& scope) override {
    noted_ += "apply '" + scope + "' ";
    return next().applyChanges(scope);
  }

  const std::string& noted() const { return noted_; }
  int number_before_add() const { return number_before_add_; }

 private:
  void note(const char* call, int argument) {
    noted_ += std::string(call) + ' ' + std::to_string(argument) + ' ';
  }

  std::string noted_;
  int number_before_add_ = -1;
};

TEST_F(DataModel, ReadsTheParameterOfThatPathAndName) {
  EXPECT_EQ(_get_value(kLanAddress, "IPInterfaceIPAddress"), "192.168.1.1");
}

TEST_F(DataModel, AsksTheTreeForPathAndNameJoinedAsTheyAre) {
  const auto read = [] { (void)_get_value("InternetGatewayDevice.WANDevice.1.", "Enable"); };
  EXPECT_EQ(support::transcript_of(read), "get InternetGatewayDevice.WANDevice.1.Enable -> \"\"\n");
}

TEST_F(DataModel, AddsNoDotToAPathThatLacksIt) {
  const std::string path = kLanAddress.substr(0, kLanAddress.size() - 1);
  std::string value = "not asked";
  const auto read = [&] { value = _get_value(path, "IPInterfaceIPAddress"); };
  EXPECT_EQ(support::transcript_of(read), "get " + path + "IPInterfaceIPAddress -> \"\"\n");
  EXPECT_EQ(value, "");
}

TEST_F(DataModel, StoresTheParameterOfThatPathAndName) {
  _set_value(kBridges + "1.", "VLANID", "77");
  EXPECT_EQ(get(kBridges + "1.VLANID"), "77");
}

TEST_F(DataModel, LeavesRefusingAnUnknownNameToTheTree) {
  _set_value("", "VLANID", "77");
  EXPECT_EQ(take_refusals(), std::vector<std::string>{"setValue VLANID"});
  EXPECT_EQ(get(kBridges + "1.VLANID"), "0");
}

TEST_F(DataModel, SwitchesAPortOffBeforeDeletingIt) {
  const std::string port_path = kBridges + "1.Port.3.";
  EXPECT_EQ(support::writes_of([&] { _delete_port(port_path); }),
            "set " + port_path + "PortEnable = \"false\"\ndelete " + port_path + '\n');
  EXPECT_EQ(ports_of(kBridges + "1."),
            (std::vector<std::string>{"LAN1", "LAN2", "LAN4", "WLAN1", "WLAN2", "WLAN3", "WLAN4"}));
}

TEST_F(DataModel, SwitchesOffAndDeletesAlsoAPortThatIsNotThere) {
  const std::string port_path = kBridges + "1.Port.99.";
  _delete_port(port_path);
  EXPECT_EQ(take_refusals(), (std::vector<std::string>{"setValue " + port_path + "PortEnable",
                                                       "deleteObject " + port_path}));
}

TEST_F(DataModel, GivesThePathOfAnAddedInstance) {
  const auto [added, path] = igd::add_instance(kBridges);
  EXPECT_TRUE(added);
  EXPECT_EQ(path, kBridges + "2.");
  EXPECT_TRUE(tree_.has_object(kBridges + "2."));
}

TEST_F(DataModel, StartsFromNumberZeroAndKeepsItWhenAddingFails) {
  support::FailingAdds failing(host::mib_access(), 1);
  const support::BehindSwitchboard behind(failing);
  const auto [added, path] = igd::add_instance(kWanDevices);
  EXPECT_FALSE(added);
  EXPECT_EQ(path, kWanDevices + "0.");
  EXPECT_FALSE(tree_.has_object(kWanDevices + "1."));
}

TEST_F(DataModel, PassesThePlatformItsFixedArguments) {
  ArgumentRecorder recorder;
  const support::BehindSwitchboard behind(recorder);
  (void)igd::add_instance(kWanDevices);
  _set_value(kBridges + "1.", "VLANID", "1");
  igd::commit();
  igd::commit_and_apply();
  EXPECT_EQ(recorder.noted(), "add 255 set 0 commit 1 commit 1 apply '' ");
  EXPECT_EQ(recorder.number_before_add(), 0);
}

TEST_F(DataModel, DeletesAnObjectWithAllBelowIt) {
  igd::delete_object(kBridges + "1.");
  EXPECT_FALSE(tree_.has_object(kBridges + "1."));
  EXPECT_EQ(get(kBridges + "1.Port.1.PortInterface"), "");
}

}  // namespace
