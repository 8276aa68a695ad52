#include <memory>
#include <nlohmann/json.hpp>
#include <string>

#include "cli/command_line.h"
#include "cli/session.h"
#include "term/text.h"
#include "wan/wan_change.h"
#include "wan/wan_commands.h"
#include "wan/wan_options.h"

namespace igdctl {

namespace {

// What the three commands take from the command line.
struct Request {
  std::string connection;
  WanOptions wan;
  ChangeOptions change;
};

void create(Session& session, const Request& request) {
  std::vector<Problem> problems;
  const WanPatch patch = read_patch(description_of(request.wan, &problems), &problems);
  const std::string name = patch.text("name");
  Change change(session, request.change);
  std::string path;
  const ChangeOutcome outcome = change.run(
      "wan create " + name, [&] { path = WanChanger(session, change).create(patch, problems); });
  change.report(outcome, "Created connection " + in_quotes(name) + ", " + id_of_path(path), path);
}

void set(Session& session, const Request& request) {
  std::vector<Problem> problems;
  const WanPatch patch = read_patch(description_of(request.wan, &problems), &problems);
  Change change(session, request.change);
  Connection connection;
  const ChangeOutcome outcome = change.run("wan set " + request.connection, [&] {
    connection = find_connection(session.tree(), request.connection);
    if (!WanChanger(session, change).set(connection, patch, problems)) change.makes_no_difference();
  });
  change.report(outcome, "Changed connection " + in_quotes(title_of(connection)), connection.path);
}

void remove(Session& session, const Request& request) {
  Change change(session, request.change);
  Connection connection;
  const ChangeOutcome outcome = change.run("wan remove " + request.connection, [&] {
    connection = find_connection(session.tree(), request.connection);
    WanChanger(session, change).remove(connection);
  });
  change.report(outcome, "Removed connection " + in_quotes(title_of(connection)), connection.path);
}

using Work = void (*)(Session&, const Request&);

void add_work(CLI::App& command, Session& session, const std::shared_ptr<Request>& request,
              Work work) {
  add_change_options(command, session, request->change);
  add_force_option(command, request->change);
  command.callback([&session, request, work] {
    session.on_run([&session, request, work] { work(session, *request); });
  });
}

}  // namespace

void add_wan_create(CLI::App& group, Session& session) {
  CLI::App& command =
      add_command(group, "create", "Create a connection",
                  "wan create --name Internet --mode pppoe --user household@example.net "
                  "--password-prompt --vlan 100 --bind-lan LAN1,LAN2");
  const auto request = std::make_shared<Request>();
  add_wan_options(command, request->wan);
  add_work(command, session, request, create);
}

void add_wan_set(CLI::App& group, Session& session) {
  CLI::App& command = add_command(group, "set", "Change the given settings of a connection",
                                  "wan set Internet --vlan 110 --dry-run");
  const auto request = std::make_shared<Request>();
  add_connection_argument(command, request->connection);
  add_wan_options(command, request->wan);
  add_work(command, session, request, set);
}

void add_wan_remove(CLI::App& group, Session& session) {
  CLI::App& command =
      add_command(group, "remove", "Remove a connection; its ports go back to the LAN bridge",
                  "wan remove Television");
  const auto request = std::make_shared<Request>();
  add_connection_argument(command, request->connection);
  add_work(command, session, request, remove);
}

}  // namespace igdctl
