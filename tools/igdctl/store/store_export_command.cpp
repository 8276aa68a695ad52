#include <memory>
#include <nlohmann/json.hpp>
#include <sstream>

#include "cli/command_line.h"
#include "cli/session.h"
#include "store/store_commands.h"
#include "term/text.h"

namespace igdctl {

namespace {

struct ExportOptions {
  std::string file = "-";
  std::string format;
};

void require_export(const host::ExportResult& result) {
  if (result.ok) return;
  throw Failure(ExitCode::kBadInput, result.error,
                "give a file in a folder that you can write to, or - for standard output");
}

bool ends_with(const std::string& text, const std::string& end) {
  return text.size() >= end.size() && text.compare(text.size() - end.size(), end.size(), end) == 0;
}

std::string format_of(const ExportOptions& options, bool json) {
  if (!options.format.empty()) return options.format;
  return json || ends_with(options.file, ".json") ? "json" : "csv";
}

// As text of its own form, or with --json within the envelope of all results.
void export_to_stdout(Session& session, const std::string& format) {
  Output& output = session.output();
  if (output.json() && format == "csv") {
    throw Failure(ExitCode::kBadInput, "--json and --format csv exclude each other",
                  "leave out one of them, or give a FILE for the CSV");
  }
  std::ostringstream text;
  const host::Tree& tree = host::active_tree();
  require_export(format == "csv" ? host::export_csv(tree, text) : host::export_json(tree, text));
  if (output.json()) {
    output.document("store.export", Json::parse(text.str()));
  } else {
    output.raw(text.str());
  }
  output.warn("this dump contains passwords in clear text; igdctl tree dump shows stars instead");
}

void export_to_file(Session& session, const std::string& file, const std::string& format) {
  const host::Tree& tree = host::active_tree();
  const host::ExportResult result =
      format == "csv" ? host::export_csv_file(tree, file) : host::export_json_file(tree, file);
  require_export(result);
  Output& output = session.output();
  if (output.json()) {
    output.document("store.export", {{"file", file},
                                     {"format", format},
                                     {"objects", result.objects},
                                     {"parameters", result.parameters}});
  }
  output.done("Exported " + std::to_string(result.parameters) + " parameters to " +
              in_quotes(file) + "; only you can read it, as it contains passwords in clear text");
}

void export_tree(Session& session, const ExportOptions& options) {
  (void)session.tree();
  const bool to_stdout = options.file == "-";
  const std::string format = format_of(options, to_stdout && session.output().json());
  if (to_stdout) return export_to_stdout(session, format);
  export_to_file(session, options.file, format);
}

}  // namespace

void add_store_export(CLI::App& group, Session& session) {
  CLI::App& command = add_command(
      group, "export", "Write the whole tree as CSV or JSON, with passwords in clear text",
      "store export gateway.csv");
  const auto options = std::make_shared<ExportOptions>();
  command
      .add_option("FILE", options->file,
                  "Replaced if it exists, with mode 0600; if left out, standard output")
      ->type_name("FILE");
  command
      .add_option(
          "--format", options->format,
          "csv, which store import reads, or json; if left out, json for FILE.json, else csv")
      ->check(CLI::IsMember({"csv", "json"}))
      ->type_name("FORMAT");
  command.callback([&session, options] {
    session.on_run([&session, options] { export_tree(session, *options); });
  });
}

}  // namespace igdctl
