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

Json json_of(const std::vector<Objection>& objections, int verdict) {
  Json list = Json::array();
  for (const Objection& objection : objections) {
    list.push_back({{"what", objection.what},
                    {"todo", objection.todo},
                    {"can_be_forced", objection.can_be_forced},
                    {"was_there", objection.was_there}});
  }
  return {{"fits", objections.empty()}, {"verdict", verdict}, {"objections", list}};
}

// Found faults end the command before any verdict.
std::vector<Objection> judge(Session& session, const Request& request, int* verdict) {
  MibAccess& tree = session.tree();
  std::vector<Fault> faults;
  const WanWish wish = read_wish(description_of(request.wan, &faults), &faults);
  Connection connection;
  const bool is_new = request.connection.empty();
  if (!is_new) connection = find_connection(tree, request.connection);
  const Surroundings around = read_surroundings(tree, is_new ? nullptr : &connection);
  if (request.removal) {
    std::vector<Objection> objections = objections_to_removal(connection, around);
    *verdict = objections.empty() ? 1 : 0;
    return objections;
  }
  const WanProposal proposal = is_new ? propose_new(wish) : propose_change(tree, connection, wish);
  for (const Fault& fault : faults_of(proposal, around)) faults.push_back(fault);
  fail_on(faults);
  return objections_to(proposal, around, verdict);
}

void check(Session& session, const Request& request) {
  if (request.removal && request.connection.empty()) {
    throw Failure(ExitCode::kBadInput, "--removal needs a connection",
                  "igdctl wan check Television --removal");
  }
  int verdict = 0;
  const std::vector<Objection> objections = judge(session, request, &verdict);
  Output& output = session.output();
  if (output.json()) output.document("wan.check", json_of(objections, verdict));
  if (objections.empty()) {
    output.done(request.removal ? "It may be removed" : "It fits");
    return;
  }
  std::vector<Fault> faults;
  for (const Objection& objection : objections) {
    faults.push_back({objection.what, objection.todo});
  }
  throw Failure(ExitCode::kRefused, faults);
}

}  // namespace

void add_wan_check(CLI::App& group, Session& session) {
  CLI::App& command = add_command(
      group, "check", "Ask whether a new connection, a change or a removal would be accepted",
      "wan check Internet --vlan 110");
  const auto request = std::make_shared<Request>();
  command.add_option("CONNECTION", request->connection,
                     "The one to be changed; without it a new one is checked");
  command.add_flag("--removal", request->removal, "Ask whether it may be removed");
  add_wan_options(command, request->wan);
  command.callback(
      [&session, request] { session.on_run([&session, request] { check(session, *request); }); });
}

}  // namespace igdctl
