// A gateway with two connections for the doctor to look at.
#ifndef IGDCTL_TESTS_DOCTOR_TEST_H
#define IGDCTL_TESTS_DOCTOR_TEST_H

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "doctor/doctor.h"
#include "gateway_test.h"
#include "stdout_capture.h"

namespace igdctl_tests {

using igdctl::Finding;
using Words = std::vector<std::string>;

class Doctor : public support::GatewayTest {
 protected:
  // Internet (1.1, VLAN 100, LAN1 bound) and Management (1.2, VLAN 46).
  Doctor() {
    api_wan_info internet = support::routed_pppoe("Internet", 100);
    internet.bind_lan = {"LAN1"};
    internet_ = create(internet);
    management_ = create(support::dhcp_management("Management", 46));
  }

  std::vector<Finding> found() const {
    igdctl::Snapshot snapshot;
    (void)support::printed_by(
        [&] { snapshot = igdctl::read_snapshot(*getContext()->mibAccess()); });
    return igdctl::examine(snapshot);
  }

  // The one finding there is.
  Finding only() const {
    const std::vector<Finding> findings = found();
    EXPECT_EQ(findings.size(), 1U);
    for (const Finding& finding : findings) {
      if (findings.size() > 1) ADD_FAILURE() << finding.code << ": " << finding.message;
    }
    return findings.empty() ? Finding() : findings.front();
  }

  std::vector<std::string> codes() const {
    std::vector<std::string> codes;
    for (const Finding& finding : found()) codes.push_back(finding.code);
    return codes;
  }

  std::string add_route(const std::string& destination, const std::string& mask,
                        const std::string& gateway, const std::string& interface) {
    std::string path = add(support::kRoutes);
    set(path + "DestIPAddress", destination);
    set(path + "DestSubnetMask", mask);
    set(path + "GatewayIPAddress", gateway);
    set(path + "Interface", interface);
    set(path + "Enable", "true");
    return path;
  }

  std::string port_of_lan1() const {
    for (const igdctl::Bridge& bridge : igdctl::read_bridges(*getContext()->mibAccess())) {
      for (const igdctl::Port& port : bridge.ports) {
        if (port.node == "LAN1") return port.path;
      }
    }
    return {};
  }

  std::string internet_;
  std::string management_;
};

}  // namespace igdctl_tests

#endif  // IGDCTL_TESTS_DOCTOR_TEST_H
