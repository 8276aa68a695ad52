#include <memory>
#include <nlohmann/json.hpp>
#include <string>

#include "cli/command_line.h"
#include "cli/session.h"
#include "term/text.h"
#include "wan/wan_change.h"
#include "wan/wan_checks.h"
#include "wan/wan_commands.h"
#include "wan/wan_options.h"

namespace igdctl {

namespace {

struct Request {
  std::string connection;  // "" for a new one
  bool removal = false;
  WanOptions wan;
};

Json json_of(const std::vector<Conflict>& conflicts, int verdict) {
  Json list = Json::array();
  for (const Conflict& conflict : conflicts) {
    list.push_back({{"message", conflict.message},
                    {"hint", conflict.hint},
                    {"can_be_forced", conflict.can_be_forced},
                    {"was_there", conflict.was_there}});
  }
  return {{"fits", conflicts.empty()}, {"verdict", verdict}, {"conflicts", list}};
}

// Found problems end the command before any verdict.
std::vector<Conflict> judge(Session& session, const Request& request, int* verdict) {
  MibAccess& tree = session.tree();
  std::vector<Problem> problems;
  const WanPatch patch = read_patch(description_of(request.wan, &problems), &problems);
  Connection connection;
  const bool is_new = request.connection.empty();
  if (!is_new) connection = find_connection(tree, request.connection);
  const GatewayState gateway = read_gateway_state(tree, is_new ? nullptr : &connection);
  if (request.removal) {
    std::vector<Conflict> conflicts = conflicts_of_removal(connection, gateway);
    *verdict = conflicts.empty() ? 1 : 0;
    return conflicts;
  }
  const WanDraft draft = is_new ? draft_new(patch) : draft_change(tree, connection, patch);
  for (const Problem& problem : problems_of(draft, gateway)) problems.push_back(problem);
  fail_on(problems);
  return conflicts_of(draft, gateway, verdict);
}

void check(Session& session, const Request& request) {
  if (request.removal && request.connection.empty()) {
    throw Failure(ExitCode::kBadInput, "--removal needs a connection",
                  "igdctl wan check Television --removal");
  }
  int verdict = 0;
  const std::vector<Conflict> conflicts = judge(session, request, &verdict);
  Output& output = session.output();
  if (output.json()) output.document("wan.check", json_of(conflicts, verdict));
  if (conflicts.empty()) {
    output.done(request.removal ? "It may be removed" : "It fits");
    return;
  }
  std::vector<Problem> problems;
  for (const Conflict& conflict : conflicts) {
    problems.push_back({conflict.message, conflict.hint});
  }
  throw Failure(ExitCode::kRefused, problems);
}

}  // namespace

void add_wan_check(CLI::App& group, Session& session) {
  CLI::App& command = add_command(
      group, "check", "Check whether a new connection, a change or a removal would be accepted",
      "wan check Internet --vlan 110");
  const auto request = std::make_shared<Request>();
  command.add_option("CONNECTION", request->connection,
                     "The connection to change; if left out, a new one is checked");
  command.add_flag("--removal", request->removal, "Check whether it may be removed");
  add_wan_options(command, request->wan);
  command.callback(
      [&session, request] { session.on_run([&session, request] { check(session, *request); }); });
}

}  // namespace igdctl
