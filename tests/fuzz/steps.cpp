#include "steps.h"

#include "igd_api.h"
#include "igd_c_api.h"
#include "shown.h"

namespace fuzz {
namespace {

using operations::shown;
using Names = std::vector<std::string>;
constexpr auto kReads = Twice::Kind::kReads;
constexpr auto kWrites = Twice::Kind::kWrites;

// Both sides by their one name.
#define BOTH(operation) #operation, &::operation, &reference::operation

// ---- Reading connections ----

void verify(Run& run) {
  const std::string wan = run.input.coin() ? run.wan() : std::string();
  const api_wan_info record = run.record();
  const int mask = run.input.coin() ? 255 : run.input.number();
  run.twice.run(kReads, BOTH(igd_verify_new_wan_info_valid), [&](auto* call) {
    api_wan_info info = record;
    return shown(call(wan, &info, mask)) + shown(info);
  });
}

void read_connection(Run& run) {
  const std::string wan = run.wan();
  const api_wan_info record = run.input.coin() ? run.record() : api_wan_info();
  run.twice.run(kReads, BOTH(igd_wan_get_params), [&](auto* call) {
    api_wan_info info = record;
    return shown(call(wan, &info)) + shown(info);
  });
}

void read_status(Run& run) {
  const std::string wan = run.wan();
  run.twice.run(kReads, BOTH(igd_wan_status), [&](auto* call) {
    api_wan_status status;
    return shown(call(wan, &status)) + shown(status);
  });
}

void print_record(Run& run) {
  api_wan_info info = run.record();
  const std::string before = shown(info);
  (void)igd_wan_print_params(&info);
  require_same(shown(info), before, "what is printed stays as it is");
}

void list_connections(Run& run) {
  run.twice.run(kReads, BOTH(igd_wan_list), [](auto* call) {
    Names paths = {"old"};
    return shown(call(paths)) + shown(paths);
  });
}

void list_used_ports(Run& run) {
  const std::string wan = run.wan();
  run.twice.run(kReads, BOTH(igd_get_used_port_list), [&](auto* call) {
    Names ports = {"old"};
    return shown(call(wan, ports)) + shown(ports);
  });
}

void ask_about_text(Run& run) {
  const std::string text = run.wan();
  const auto number = [&](auto* call) { return shown(call(text)); };
  run.twice.run(kReads, BOTH(igd_verify_can_remove_wan), number);
  run.twice.run(kReads, BOTH(igd_check_wan_index), number);
  run.twice.run(kReads, BOTH(igd_verify_is_wan_index), number);
  run.twice.run(kReads, BOTH(igd_verify_wan_index_in_bridge), number);
  const auto same_text = [&](auto* call) { return call(text); };
  run.twice.run(kReads, BOTH(igd_wan_get_id_by_name), same_text);
  run.twice.run(kReads, BOTH(igd_get_bridge_info), same_text);
}

void look_into_cache(Run& run) {
  const std::string wan = run.wan();
  run.twice.run(kReads, BOTH(_get_cache), [&](auto* call) { return shown(*call(wan)); });
  if (run.input.coin()) return;
  run.twice.run(kReads, BOTH(_destory_cache), [&](auto* call) { return shown(call(wan)); });
}

void rebuild_cache(Run& run) {
  const Names paths = {run.wan(), run.wan()};
  run.twice.run(kReads, BOTH(_rebuid_cache), [&](auto* call) {
    Names rebuilt = paths;
    call(rebuilt);
    return shown(rebuilt);
  });
}

void keep_layer_3_name(Run& run) {
  const std::string key = run.plain_text();
  const std::string value = run.plain_text();
  const bool has_key = run.input.below(8) != 0;
  const bool has_value = run.input.below(8) != 0;
  run.twice.run(kReads, BOTH(igd_c_set_l3_name), [&](auto* call) {
    call(has_key ? key.c_str() : nullptr, has_value ? value.c_str() : nullptr);
    return std::string();
  });
  const std::size_t size = run.input.byte() % 48;
  const std::string asked = run.input.coin() ? key : run.plain_text();
  run.twice.run(kReads, BOTH(igd_c_get_l3_name), [&](auto* call) {
    std::string buffer(size, '?');
    call(has_key ? asked.c_str() : nullptr, buffer.data(), buffer.size());
    return buffer;
  });
}

// ---- Reading bridges, routes and settings ----

void find_bridge(Run& run) {
  const std::string text = run.wan();
  const auto find = [&](auto* call) {
    std::string path = "kept";
    std::string name = "kept";
    const int result = call(text, &path, &name);
    return shown(result) + path + '|' + name;
  };
  run.twice.run(kReads, BOTH(igd_wan_get_lan_bridge_info), find);
  run.twice.run(kReads, BOTH(igd_wan_get_wan_bridge_info), find);
  run.twice.run(kReads, BOTH(igd_wan_get_bridge_info_from_phy), find);
  run.twice.run(kReads, BOTH(igd_wan_intf), [&](auto* call) {
    Names ports = {"old"};
    unsigned int vlan = 7;
    const std::string name = call(text, ports, vlan);
    return name + shown(ports) + std::to_string(vlan);
  });
}

void read_into_buffers(Run& run) {
  const std::string text =
      run.input.coin() ? run.input.path(kWanPattern).c_str() : run.plain_text();
  const std::size_t size = run.input.byte() % 48;
  const auto read = [&](auto* call) {
    std::string buffer(size, '?');
    call(text.c_str(), buffer.data(), buffer.size());
    return buffer;
  };
  run.twice.run(kReads, BOTH(igd_c_get_wan_bridge_pvid_name), read);
  run.twice.run(kReads, BOTH(igd_c_get_wan_bridge_vlanid_name), read);
  run.twice.run(kReads, BOTH(igd_c_get_wan_bridge_vlanpriority_name), read);
  run.twice.run(kReads, BOTH(igd_c_get_wan_bridge_name), read);
  run.twice.run(kReads, BOTH(igd_c_get_wan_bridge_intf_name), read);
}

void ask_about_interface(Run& run) {
  const std::string bridge = run.plain_text();
  const std::string interface = run.plain_text();
  run.twice.run(kReads, BOTH(igd_c_check_belong_bridge),
                [&](auto* call) { return shown(call(bridge.c_str(), interface.c_str())); });
  run.twice.run(kReads, BOTH(igd_wan_get_unused_vlan), [](auto* call) { return shown(call()); });
}

void read_routes_and_settings(Run& run) {
  run.twice.run(kReads, BOTH(igd_get_static_route_list), [](auto* call) {
    std::vector<api_route_info> routes(1);
    std::string answer = shown(call(routes));
    for (const api_route_info& route : routes) answer += shown(route);
    return answer;
  });
  run.twice.run(kReads, BOTH(igd_mng_server_get_params), [](auto* call) {
    api_mng_server_info info;
    return shown(call(&info)) + shown(info);
  });
  run.twice.run(kReads, BOTH(igd_c_get_lan_ipaddr), [](auto* call) { return call(); });
}

void enumerate(Run& run) {
  constexpr int kTypes[] = {171, 177, 196,  197,  199,  203,  204,
                            205, 209, 1007, 1273, 1351, 1359, 1429};
  const std::string prefix = run.wan();
  const int type = run.input.coin() ? kTypes[run.input.byte() % 14] : run.input.number();
  run.twice.run(kReads, BOTH(igd_tool_loop_instance), [&](auto* call) {
    Names names = {"old"};
    return shown(call(prefix, type, names)) + shown(names);
  });
  const std::string value = run.text();
  run.twice.run(kReads, BOTH(igd_tool_loop_fullname),
                [&](auto* call) { return call(prefix, type, value); });
}

// ---- Writing ----

void write_connection(Run& run) {
  const std::string wan = run.wan();
  const api_wan_info record = run.record();
  run.twice.run(kWrites, BOTH(igd_wan_set_params), [&](auto* call) {
    api_wan_info info = record;
    return shown(call(wan, &info)) + shown(info);
  });
}

void create_connection(Run& run) {
  const std::string access = run.text();
  const api_wan_info record = run.record();
  run.twice.run(kWrites, BOTH(igd_wan_create), [&](auto* call) {
    api_wan_info info = record;
    return call(access, &info) + shown(info);
  });
}

void bind_ports(Run& run) {
  const std::string wan = run.wan();
  const api_wan_info record = run.record();
  run.twice.run(kWrites, BOTH(saveLanInterfaceToWanNode), [&](auto* call) {
    api_wan_info info = record;
    call(wan, &info);
    return shown(info);
  });
  const std::string bridge = run.plain_text();
  run.twice.run(kWrites, BOTH(igd_c_set_bridge_pvid), [&](auto* call) {
    api_wan_info info = record;
    return shown(call(bridge.c_str(), &info)) + shown(info);
  });
}

void set_in_all_objects(Run& run) {
  const std::string wan = run.wan();
  const std::string node = run.input.path(
      "InternetGatewayDevice.WANDevice.#.WANConnectionDevice.#.WANIPConnection.#.Name");
  const std::string value = run.text();
  run.twice.run(kWrites, BOTH(igd_set_wan_all_value), [&](auto* call) {
    call(wan, node, value);
    return std::string();
  });
}

void remove_connection(Run& run) {
  const std::string wan = run.wan();
  run.twice.run(kWrites, BOTH(igd_wan_destory), [&](auto* call) {
    call(wan);
    return std::string();
  });
}

void write_routes_and_settings(Run& run) {
  const int code = run.input.coin() ? 1 : run.input.number();
  const api_route_info route = {run.text(),         run.text(), run.input.number(),
                                run.input.below(4), run.text(), run.text()};
  run.twice.run(kWrites, BOTH(igd_set_static_route),
                [&](auto* call) { return shown(call(code, route)); });
  api_mng_server_info server{run.text(), "gateway", "", run.text(), "", "x"};
  run.twice.run(kWrites, BOTH(igd_mng_server_set_params),
                [&](auto* call) { return shown(call(&server)) + shown(server); });
  if (run.input.coin()) return;
  run.twice.run(kWrites, BOTH(igd_clear_static_route), [](auto* call) { return shown(call()); });
}

}  // namespace

const std::vector<Step>& all_steps() {
  static const std::vector<Step> all = {verify,
                                        read_connection,
                                        read_status,
                                        print_record,
                                        list_connections,
                                        list_used_ports,
                                        ask_about_text,
                                        look_into_cache,
                                        find_bridge,
                                        read_into_buffers,
                                        ask_about_interface,
                                        read_routes_and_settings,
                                        enumerate,
                                        write_connection,
                                        create_connection,
                                        bind_ports,
                                        set_in_all_objects,
                                        remove_connection,
                                        write_routes_and_settings,
                                        rebuild_cache,
                                        keep_layer_3_name};
  return all;
}

}  // namespace fuzz
