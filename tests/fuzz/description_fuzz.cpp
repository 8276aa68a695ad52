// Descriptions of connections in JSON, as igdctl takes them: they are refused, and nothing is
// changed, or written, and writing them once more changes nothing.
//
// The first byte of an input chooses the command, the second its options; the rest is the document.
#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <cstdio>
#include <iostream>
#include <sstream>

#include "backend/with_store/store_backend.h"
#include "cli/command_line.h"
#include "cli/session.h"
#include "harness.h"
#include "host_store.h"
#include "igd_api.h"
#include "input.h"
#include "wan/wan_commands.h"

namespace {

using fuzz::require;
using fuzz::require_same;
using Words = std::vector<const char*>;

constexpr int kDone = 0;

struct Command {
  Words words;
  void (*add)(CLI::App& group, igdctl::Session& session);
  bool settles;  ///< doing it again changes nothing
};

const Command kCommands[] = {
    {{"igdctl", "wan", "ensure", "--from", "-"}, igdctl::add_wan_ensure, true},
    {{"igdctl", "wan", "create", "--from", "-"}, igdctl::add_wan_create, false},
    {{"igdctl", "wan", "set", "1.1", "--from", "-"}, igdctl::add_wan_set, true},
    {{"igdctl", "wan", "check", "--from", "-"}, igdctl::add_wan_check, true},
    {{"igdctl", "wan", "check", "1.2", "--from", "-"}, igdctl::add_wan_check, true},
};

std::string values_of(const host::Tree& tree) {
  std::string text;
  for (const host::Parameter& parameter : tree.parameters()) {
    text += parameter.name + '=' + parameter.value + '\n';
  }
  return text;
}

api_wan_info description(const char* name, int mode, int vlan, const char* services) {
  api_wan_info info;
  info.wan_info_name = name;
  info.connection_class = kIgdRouted;
  info.connect_mode = mode;
  info.vlan_enable = 1;
  info.vlan_id = vlan;
  info.service_type = services;
  info.nat_mode = 1;
  info.wan_enable = "true";
  info.wan_remote_management_enable = "false";
  info.stp_enable = "false";
  info.dhcp_mtu = info.static_mtu = "1500";
  info.pppoe_mtu = "1492";
  return info;
}

// Internet with two ports bound to it, Television with one in its own bridge, Management.
host::Tree household() {
  host::Tree tree = host::Tree::factory();
  host::Tree* const before = host::exchange_active_tree(&tree);
  api_wan_info internet = description("Internet", kIgdPppoe, 100, "INTERNET");
  internet.bind_lan = {"LAN1", "LAN2"};
  api_wan_info television = description("Television", kIgdDhcp, 200, "OTHER");
  television.bind_wan = {"LAN3"};
  api_wan_info management = description("Management", kIgdDhcp, 46, "TR069");
  for (api_wan_info* const info : {&internet, &television, &management}) {
    (void)igd_wan_create("Ethernet", info);
  }
  (void)host::exchange_active_tree(before);
  std::vector<std::string> none;
  _rebuid_cache(none);
  return tree;
}

Words arguments_of(const Command& command, unsigned options) {
  Words words = command.words;
  const bool writes = command.add != igdctl::add_wan_check;
  if (writes && (options & 1U) != 0) words.push_back("--dry-run");
  if (writes && (options & 2U) != 0) words.push_back("--yes");
  if (writes && (options & 4U) != 0) words.push_back("--force");
  return words;
}

int run(const Command& command, unsigned options, const std::string& document) {
  std::istringstream input(document);
  std::streambuf* const before = std::cin.rdbuf(input.rdbuf());
  static igdctl::StoreBackend backend;
  igdctl::Session session(backend);
  session.options.output.json = (options & 8U) != 0;
  session.options.show_secrets = (options & 16U) != 0;
  CLI::App root;
  command.add(igdctl::add_group(root, "wan", "Connections"), session);
  const Words words = arguments_of(command, options);
  int exit_code = kDone;
  if (igdctl::parse_command_line(root, static_cast<int>(words.size()), words.data(), &exit_code)) {
    exit_code = session.run();
  }
  (void)std::cin.rdbuf(before);
  std::cin.clear();
  require(exit_code >= kDone && exit_code <= 10 && exit_code != 1, "an end that was thought of");
  return exit_code;
}

// The messages to people go where the trace goes. Findings are told in other ways.
bool silence_messages() {
  stderr = std::fopen("/dev/null", "we");
  return stderr != nullptr;
}

host::Store& store() {
  host::Store* const opened = host::process_store();
  require(opened != nullptr, "a store in memory can be opened");
  return *opened;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const bool silent = silence_messages();
  static const host::Tree start = household();
  static const std::string before = values_of(start);
  require(silent, "messages can be dropped");
  fuzz::Input input(data, size);
  const Command& command = kCommands[input.byte() % std::size(kCommands)];
  const unsigned options = input.byte();
  const std::string document = input.rest();
  if (values_of(store().tree()) != before) {
    store().tree() = start;
    require(store().commit("start").ok(), "the start can be brought back");
  }
  const int exit_code = run(command, options, document);
  const std::string after = values_of(store().tree());
  const bool may_write = command.add != igdctl::add_wan_check && (options & 1U) == 0;
  if (exit_code != kDone || !may_write) {
    require_same(after, before, "what is refused or only tried changes nothing");
  } else if (command.settles) {
    require(run(command, options, document) == kDone, "what was written can be written again");
    require_same(values_of(store().tree()), after, "what is as described stays as it is");
  }
  return 0;
}
