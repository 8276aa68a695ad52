#include <algorithm>
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

struct Request {
  WanOptions wan;
  ChangeOptions change;
};

struct Wanted {
  WanPatch patch;
  std::vector<Problem> problems;
};

// Every description is read before anything is written. With several, a problem says of which it
// is.
std::vector<Wanted> read_wanted(const Request& request) {
  std::vector<Problem> problems;
  const std::vector<Json> descriptions = descriptions_of(request.wan, &problems);
  std::vector<Wanted> all;
  Names names;
  for (const Json& description : descriptions) {
    Wanted wanted;
    wanted.patch = read_patch(description, &wanted.problems);
    const std::string name = wanted.patch.text("name");
    if (name.empty()) {
      wanted.problems.push_back({"a description has no name", "add the name of the connection"});
    } else if (std::find(names.begin(), names.end(), name) != names.end()) {
      wanted.problems.push_back({in_quotes(name) + " is described twice", "describe it once"});
    }
    names.push_back(name);
    for (Problem& problem : wanted.problems) {
      if (descriptions.size() > 1) {
        problem.message = "description " + std::to_string(names.size()) + ": " + problem.message;
      }
      problems.push_back(problem);
    }
    all.push_back(std::move(wanted));
  }
  fail_on(problems);
  return all;
}

const Connection* find_named(const std::vector<Connection>& connections, const std::string& name) {
  const Connection* found = nullptr;
  for (const Connection& connection : connections) {
    if (connection.name != name) continue;
    if (found != nullptr) {
      throw Failure(ExitCode::kBadInput, "several connections are named " + in_quotes(name),
                    "give one another name: igdctl wan set " + connection.id + " --name NAME");
    }
    found = &connection;
  }
  return found;
}

void ensure(Session& session, const Request& request) {
  const std::vector<Wanted> all = read_wanted(request);
  Change change(session, request.change);
  Names titles;
  std::string path;
  bool written = false;
  const ChangeOutcome outcome = change.run("wan ensure", [&] {
    WanChanger changer(session, change);
    for (const Wanted& wanted : all) {
      const std::vector<Connection> connections = list_connections(session.tree());
      const Connection* const found = find_named(connections, wanted.patch.text("name"));
      if (found != nullptr) {
        written = changer.set(*found, wanted.patch, {}) || written;
        path = found->path;
      } else {
        path = changer.create(wanted.patch, {});
        written = true;
      }
      titles.push_back(in_quotes(wanted.patch.text("name")));
    }
    if (!written) change.makes_no_difference();
  });
  change.report(outcome, "Ensured " + joined(titles, ", "), all.size() == 1 ? path : "");
}

}  // namespace

void add_wan_ensure(CLI::App& group, Session& session) {
  CLI::App& command =
      add_command(group, "ensure", "Create or change connections so that they match a description",
                  "wan ensure --from wan.json --yes");
  const auto request = std::make_shared<Request>();
  add_wan_options(command, request->wan);
  add_change_options(command, session, request->change);
  add_force_option(command, request->change);
  command.callback(
      [&session, request] { session.on_run([&session, request] { ensure(session, *request); }); });
}

}  // namespace igdctl
