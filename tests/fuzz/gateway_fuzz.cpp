// Sequences of operations on a gateway in factory state, whose connections take each other's names,
// VLANs and ports: all do what the reference does, and the gateway stays as callers are promised.
#include <algorithm>
#include <array>

#include "harness.h"
#include "host_access.h"
#include "igd_api.h"
#include "port_rules.h"
#include "shown.h"
#include "steps.h"
#include "written.h"

namespace {

using fuzz::Input;
using fuzz::require;
using fuzz::require_same;
using operations::shown;
using Names = std::vector<std::string>;
constexpr auto kReads = fuzz::Twice::Kind::kReads;
constexpr auto kWrites = fuzz::Twice::Kind::kWrites;
constexpr int kMostSteps = 24;

std::string values_of(const host::Tree& tree) {
  std::string text;
  for (const host::Parameter& parameter : tree.parameters()) {
    text += parameter.name + '=' + parameter.value + '\n';
  }
  return text;
}

Names sorted(Names names) {
  std::sort(names.begin(), names.end());
  return names;
}

bool has_each_port_once(const api_wan_info& info) {
  Names all = info.bind_lan;
  all.insert(all.end(), info.bind_wan.begin(), info.bind_wan.end());
  all = sorted(all);
  return std::adjacent_find(all.begin(), all.end()) == all.end();
}

bool is_usual_port(const std::string& node) { return igd_tool_get_port_value(node) != 0; }

/// One gateway for the library, one for the reference.
class Gateway final : public fuzz::Run {
 public:
  explicit Gateway(Input& drawn_from) : Run(drawn_from, twice_) {}
  ~Gateway() override = default;

  std::string wan() override {
    const Names connections = library_tree_.instances(kWanConnectionDevice);
    const unsigned chosen = input.byte();
    if (chosen < 200 && !connections.empty()) return connections[chosen % connections.size()];
    return chosen < 240 ? gone_ : Run::wan();
  }
  std::string text() override {
    constexpr std::array<const char*, 8> kTexts = {"A",    "internet", "br_1_1", "br_1_2",
                                                   "eth1", "10.0.0.0", "LAN1",   ""};
    const unsigned chosen = input.byte();
    if (chosen < 200) return kTexts[chosen % kTexts.size()];
    return chosen < 240 ? wan() : Run::text();
  }
  std::string plain_text() override {
    const std::string any = text();
    return any.substr(0, any.find('\0'));
  }
  api_wan_info record() override {
    return input.byte() < 240 ? fuzz::draw_usual_record(input) : Run::record();
  }

  void create();
  void write();
  void remove();
  void route();
  void lose_object();
  void any();
  void require_same_trees() const {
    require_same(values_of(library_tree_), values_of(reference_tree_), "both trees are the same");
  }

 private:
  api_wan_info read(const std::string& wan);
  void require_rules(const std::string& wan, const api_wan_info& written,
                     const fuzz::Holdings& before);
  bool is_whole(const std::string& wan) const;

  host::Tree library_tree_ = host::Tree::factory();
  host::Tree reference_tree_ = host::Tree::factory();
  fuzz::HostAccess library_access_{library_tree_};
  fuzz::HostAccess reference_access_{reference_tree_};
  fuzz::Twice twice_{library_access_, reference_access_};
  std::string gone_;
};

// The objects of the connection and its bridges are all there.
bool Gateway::is_whole(const std::string& wan) const {
  const auto found = g_wan_mibinfo_cache_list.find(wan);
  if (found == g_wan_mibinfo_cache_list.end()) return false;
  const wan_mib_info& entry = *found->second;
  return library_tree_.has_object(entry.static_path) &&
         library_tree_.has_object(entry.wan_bridge_path) &&
         library_tree_.has_object(entry.lan_bridge_path);
}

api_wan_info Gateway::read(const std::string& wan) {
  api_wan_info back;
  twice.run(kReads, "igd_wan_get_params", &::igd_wan_get_params, &reference::igd_wan_get_params,
            [&](auto* call) {
              back = {};
              return shown(call(wan, &back)) + shown(back);
            });
  return back;
}

void Gateway::require_rules(const std::string& wan, const api_wan_info& written,
                            const fuzz::Holdings& before) {
  if (!is_whole(wan)) return;
  const api_wan_info back = read(wan);
  fuzz::require_written(back, written);
  if (!has_each_port_once(written) || !fuzz::is_tidy(before)) return;
  fuzz::require_held(wan, written, before, library_tree_);
  for (const Names* ports : {&written.bind_lan, &written.bind_wan}) {
    if (!std::all_of(ports->begin(), ports->end(), is_usual_port)) return;
  }
  require(sorted(back.bind_wan) == sorted(written.bind_wan), "the ports of its bridge come back");
  require(sorted(back.bind_lan) == sorted(written.bind_lan), "its LAN ports come back");
}

void Gateway::create() {
  constexpr std::array<const char*, 3> kUplinks = {"Ethernet", "3G", "Repeator"};
  const unsigned uplink = input.byte() % 16;
  const std::string access = uplink < 15 ? kUplinks[uplink % 3] : text();
  const api_wan_info written = record();
  const fuzz::Holdings before = fuzz::holdings_of(library_tree_);
  const std::string path = twice.run(kWrites, "igd_wan_create", &::igd_wan_create,
                                     &reference::igd_wan_create, [&](auto* call) {
                                       api_wan_info info = written;
                                       return call(access, &info);
                                     });
  require(library_tree_.has_object(path), "a connection is made");
  require_rules(path, written, before);
}

void Gateway::write() {
  const std::string path = wan();
  const api_wan_info written = record();
  const fuzz::Holdings before = fuzz::holdings_of(library_tree_);
  twice.run(kWrites, "igd_wan_set_params", &::igd_wan_set_params, &reference::igd_wan_set_params,
            [&](auto* call) {
              api_wan_info info = written;
              return shown(call(path, &info)) + shown(info);
            });
  require_rules(path, written, before);
}

void Gateway::remove() {
  gone_ = wan();
  const fuzz::Holdings before = fuzz::holdings_of(library_tree_);
  twice.run(kWrites, "igd_wan_destory", &::igd_wan_destory, &reference::igd_wan_destory,
            [&](auto* call) {
              call(gone_);
              return std::string();
            });
  if (!gone_.empty()) fuzz::require_removed(gone_, before, library_tree_);
}

// Through a connection, or one that has none of these names.
void Gateway::route() {
  constexpr std::array<const char*, 4> kNames = {"A", "B", "C", ""};
  const int code = 1 + input.below(2);
  const std::string gateway = input.coin() ? "192.168.1.9" : "";
  const api_route_info route = {
      "10.0.0.0", "255.0.0.0", 1, 1 + input.below(3), kNames[input.byte() % kNames.size()],
      gateway};
  twice.run(kWrites, "igd_set_static_route", &::igd_set_static_route,
            &reference::igd_set_static_route, [&](auto* call) { return shown(call(code, route)); });
}

// Another program of the gateway deletes a bridge or a connection behind the library's back.
void Gateway::lose_object() {
  const bool bridge = input.coin();
  const Names names = library_tree_.instances(bridge ? kBridgeName : kWanConnectionDevice);
  if (names.empty() || input.coin()) return;
  const std::string& name = names[input.byte() % names.size()];
  const std::string path = name.substr(0, name.rfind('.') + 1);
  (void)library_tree_.delete_object(path);
  (void)reference_tree_.delete_object(path);
}

void Gateway::any() {
  const std::vector<fuzz::Step>& all = fuzz::all_steps();
  all[input.byte() % all.size()](*this);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  constexpr std::array<void (Gateway::*)(), 8> kSteps = {
      &Gateway::create, &Gateway::write,       &Gateway::create, &Gateway::write,
      &Gateway::remove, &Gateway::lose_object, &Gateway::route,  &Gateway::any};
  Input input(data, size);
  Gateway gateway(input);
  for (int count = 0; count < kMostSteps && !input.done(); ++count) {
    (gateway.*kSteps[input.byte() % kSteps.size()])();
  }
  gateway.require_same_trees();
  return 0;
}
