#include "doctor/doctor_commands.h"

#include <nlohmann/json.hpp>
#include <string>

#include "cli/command_line.h"
#include "cli/session.h"
#include "doctor/doctor.h"
#include "doctor/doctor_rules.h"

namespace igdctl {

namespace {

// The commands are for the store that was looked at.
std::string program_of(const Session& session) {
  const std::string& store = session.options.store;
  return store.empty() ? "igdctl " : "igdctl --store " + shell_word(store) + ' ';
}

Json json_of(const Finding& finding, const std::string& program) {
  Json fixes = Json::array();
  for (const std::string& command : finding.fixes) fixes.push_back(program + command);
  return {{"finding", finding.code},
          {"where", finding.where},
          {"message", finding.message},
          {"why", finding.why},
          {"fix", fixes}};
}

Table table_of(const Finding& finding, const std::string& program) {
  Table table{{}, {{"where", finding.where}, {"why", finding.why}}};
  for (const std::string& command : finding.fixes) {
    table.rows.push_back({"fix", {program + command, Style::kGood}});
  }
  return table;
}

// "1 bridge", "2 bridges"
std::string counted(std::size_t count, const std::string& noun) {
  return std::to_string(count) + ' ' + noun + (count == 1 ? "" : "s");
}

std::string counts_of(const Snapshot& snapshot) {
  return counted(snapshot.connections.size(), "connection") + ", " +
         counted(snapshot.bridges.size(), "bridge") + " and " +
         counted(snapshot.routes.size(), "route");
}

void show(Session& session, const std::vector<Finding>& findings) {
  const std::string program = program_of(session);
  Output& output = session.output();
  for (const Finding& finding : findings) {
    output.heading(finding.code + ": " + finding.message);
    output.raw(rendered(table_of(finding, program), {0, output.page().colour}));
    output.line("");
  }
}

void examine_tree(Session& session) {
  Snapshot snapshot = read_snapshot(session.tree());
  snapshot.has_store = session.backend().has_store();
  const std::vector<Finding> findings = examine(snapshot);
  if (!findings.empty()) session.set_exit_code(ExitCode::kFindings);
  Output& output = session.output();
  if (output.json()) {
    Json data = Json::array();
    for (const Finding& finding : findings) data.push_back(json_of(finding, program_of(session)));
    output.document("doctor", data);
    return;
  }
  show(session, findings);
  output.done(findings.empty()
                  ? "No problems in " + counts_of(snapshot)
                  : counted(findings.size(), "problem") + " in " + counts_of(snapshot));
}

}  // namespace

void add_doctor_command(CLI::App& root, Session& session) {
  CLI::App& command = add_command(
      root, "doctor", "Find contradictions in the configuration and how to fix them", "doctor");
  command.callback([&session] { session.on_run([&session] { examine_tree(session); }); });
}

}  // namespace igdctl
