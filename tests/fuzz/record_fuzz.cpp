// Descriptions written to a gateway and read back: what its own fields can hold comes back, and all
// of it as the reference does it.
#include <algorithm>
#include <set>

#include "harness.h"
#include "host_platform.h"
#include "igd_api.h"
#include "record.h"
#include "shown.h"
#include "twice.h"

namespace {

using fuzz::Input;
using fuzz::require;
using fuzz::require_same;
using operations::shown;
using Names = std::vector<std::string>;
constexpr auto kReads = fuzz::Twice::Kind::kReads;
constexpr auto kWrites = fuzz::Twice::Kind::kWrites;

class Walk final : public InstanceIterator {
 public:
  explicit Walk(Names names) : names_(std::move(names)) {}
  int next() override { return ++at_ < names_.size() ? 1 : 0; }
  std::string fullName() override { return names_[at_]; }

 private:
  Names names_;
  std::size_t at_ = 0;
};

// A tree of the reference platform, without its context.
class OnTree final : public MibAccess {
 public:
  explicit OnTree(host::Tree& tree) : tree_(tree) {}
  ~OnTree() = default;

  int addObject(const std::string& table_path, int* instance, int /*access*/) override {
    return tree_.add_object(table_path, instance);
  }
  int deleteObject(const std::string& path) override { return tree_.delete_object(path); }
  InstanceIterator* openInstanceIterator(int type) override {
    Names names = tree_.instances(type);
    return names.empty() ? nullptr : new Walk(std::move(names));
  }
  void closeInstanceIterator(InstanceIterator* iterator) override {
    delete static_cast<Walk*>(iterator);
  }
  std::string getValue(const std::string& name) override { return tree_.value(name); }
  int setValue(const std::string& name, const std::string& value, int /*flags*/) override {
    return tree_.set_value(name, value);
  }
  int commit(int /*mode*/) override { return 0; }
  int applyChanges(const std::string& /*scope*/) override { return 0; }

 private:
  host::Tree& tree_;
};

std::string values_of(const host::Tree& tree) {
  std::string text;
  for (const host::Parameter& parameter : tree.parameters()) {
    text += parameter.name + '=' + parameter.value + '\n';
  }
  return text;
}

std::string as_buffer_keeps(const std::string& text) {
  const std::string cut = text.substr(0, 255);
  return cut.substr(0, cut.find('\0'));
}

// Up to the first comma, and from there to the next.
std::pair<std::string, std::string> first_two(const std::string& servers) {
  const std::size_t comma = servers.find(',');
  if (comma == std::string::npos) return {servers, ""};
  const std::string second = servers.substr(comma + 1);
  return {servers.substr(0, comma), second.substr(0, second.find(','))};
}

bool has_known_mode(const api_wan_info& info) {
  return info.connect_mode >= 1 && info.connect_mode <= 3;
}

void require_texts(const api_wan_info& is, const api_wan_info& written) {
  require_same(is.wan_info_name, as_buffer_keeps(written.wan_info_name), "the name comes back");
  require_same(is.service_type, written.service_type, "the services come back");
  require_same(is.pppoe_user_name, written.pppoe_user_name, "the account comes back");
  require_same(is.pppoe_password, written.pppoe_password, "the password comes back");
  require_same(is.pppoe_mtu, written.pppoe_mtu, "the MTU of PPP comes back");
  require_same(is.static_mtu, written.static_mtu, "the MTU of static addressing comes back");
  require_same(is.dhcp_mtu, written.dhcp_mtu, "the MTU of DHCP comes back");
  require_same(is.wan_enable, written.wan_enable, "the switch comes back");
  require_same(is.wan_remote_management_enable, written.wan_remote_management_enable,
               "remote management comes back");
  require_same(is.stp_enable, written.stp_enable, "the spanning tree comes back");
}

void require_addressing(const api_wan_info& is, const api_wan_info& written) {
  require(is.connect_mode == written.connect_mode, "the mode comes back");
  require(is.ip_dns_enable == (written.ip_dns_enable == 1 ? 1 : 0), "use of servers comes back");
  if (written.ip_dns_enable != 0) {
    const auto [first, second] =
        first_two(as_buffer_keeps(written.ip_dns1 + ',' + written.ip_dns2));
    require_same(is.ip_dns1, first, "the first server comes back");
    require_same(is.ip_dns2, second, "the second server comes back");
  }
  if (written.connect_mode == kIgdDhcp && written.connection_class >= 1 &&
      written.connection_class <= 3) {
    require_same(is.dhcp_option60, written.dhcp_option60, "option 60 comes back");
  }
  if (written.connect_mode != kIgdStatic) return;
  require_same(is.ip_addr, written.ip_addr, "the address comes back");
  require_same(is.ip_mask, written.ip_mask, "the mask comes back");
  require_same(is.ip_gw, written.ip_gw, "the default gateway comes back");
}

void require_codes(const api_wan_info& is, const api_wan_info& written) {
  require(is.nat_mode == (written.nat_mode == 1 ? 1 : 0), "NAT comes back");
  if (written.connection_class >= 1 && written.connection_class <= 3) {
    require(is.connection_class == written.connection_class, "the class comes back");
  }
  require(is.vlan_enable == (written.vlan_enable != 0 ? 1 : 0), "tagging comes back");
  require(is.vlan_id == (written.vlan_enable != 0 ? written.vlan_id : 0), "the VLAN comes back");
  if (written.vlan_enable != 0) {
    require(is.vlan_priority == written.vlan_priority, "the priority comes back");
  }
  const bool short_texts = is.ip_addr.size() < 16 && is.ip_mask.size() < 16 && is.ip_gw.size() < 16;
  require(is.protocol == (short_texts ? kIgdIpv4 : kIgdIpv6), "the protocol is that of the texts");
}

bool is_bindable(const std::string& port) { return igd_tool_get_port_value(port) != 0; }

// Each port of the gateway at most once: what more is asked for has other rules.
bool has_plain_ports(const api_wan_info& info) {
  std::set<std::string> seen;
  for (const Names* ports : {&info.bind_lan, &info.bind_wan}) {
    for (const std::string& port : *ports) {
      if (!is_bindable(port) || !seen.insert(port).second) return false;
    }
  }
  return true;
}

std::string sorted(Names names) {
  std::sort(names.begin(), names.end());
  return shown(names);
}

/// One gateway for the library, one for the reference.
struct Run {
  host::Tree by_library = host::Tree::factory();
  host::Tree by_reference = host::Tree::factory();
  OnTree library_access{by_library};
  OnTree reference_access{by_reference};
  fuzz::Twice twice{library_access, reference_access};

  api_wan_info read(const std::string& wan) {
    api_wan_info back;
    twice.run(kReads, "igd_wan_get_params", &::igd_wan_get_params, &reference::igd_wan_get_params,
              [&](auto* call) {
                api_wan_info info;
                const int result = call(wan, &info);
                back = info;
                return shown(result) + shown(info);
              });
    return back;
  }

  void require_written(const std::string& wan, const api_wan_info& written) {
    const api_wan_info back = read(wan);
    require_texts(back, written);
    require_codes(back, written);
    if (has_known_mode(written)) require_addressing(back, written);
  }

  std::string create(const std::string& access, const api_wan_info& record) {
    return twice.run(kWrites, "igd_wan_create", &::igd_wan_create, &reference::igd_wan_create,
                     [&](auto* call) {
                       api_wan_info info = record;
                       return call(access, &info);
                     });
  }

  void write(const std::string& wan, const api_wan_info& record) {
    twice.run(kWrites, "igd_wan_set_params", &::igd_wan_set_params, &reference::igd_wan_set_params,
              [&](auto* call) {
                api_wan_info info = record;
                return shown(call(wan, &info)) + shown(info);
              });
  }

  void remove(const std::string& wan) {
    twice.run(kWrites, "igd_wan_destory", &::igd_wan_destory, &reference::igd_wan_destory,
              [&](auto* call) {
                call(wan);
                return std::string();
              });
    require(!by_library.has_object(wan), "a connection goes");
    for (const host::Parameter& parameter : by_library.parameters()) {
      require(parameter.value != wan, "a connection leaves no trace");
    }
  }
};

void require_ports(Run& run, const std::string& wan, const api_wan_info& written) {
  const api_wan_info back = run.read(wan);
  require_same(sorted(back.bind_wan), sorted(written.bind_wan),
               "the ports of its bridge come back");
  require_same(sorted(back.bind_lan), sorted(written.bind_lan), "its LAN ports come back");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  constexpr const char* kUplinks[] = {"Ethernet", "3G", "Repeator"};
  Input input(data, size);
  Run run;
  const unsigned uplink = input.byte() % 4;
  const std::string access = uplink < 3 ? kUplinks[uplink] : input.text();
  const api_wan_info first = fuzz::draw_record(input);
  const std::string wan = run.create(access, first);
  require(run.by_library.has_object(wan), "a connection is made");
  run.require_written(wan, first);
  if (has_plain_ports(first)) require_ports(run, wan, first);
  const api_wan_info second = fuzz::draw_record(input);
  run.write(wan, second);
  run.require_written(wan, second);
  if (has_plain_ports(first) && has_plain_ports(second)) require_ports(run, wan, second);
  if (input.coin()) run.remove(wan);
  require_same(values_of(run.by_library), values_of(run.by_reference), "both trees are the same");
  return 0;
}
