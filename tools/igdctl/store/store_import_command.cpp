#include <filesystem>
#include <memory>
#include <nlohmann/json.hpp>
#include <sstream>

#include "backend/with_store/store_backend.h"
#include "backend/with_store/store_failure.h"
#include "cli/change.h"
#include "cli/command_line.h"
#include "cli/input_file.h"
#include "cli/session.h"
#include "gateway/management.h"
#include "store/store_commands.h"
#include "term/text.h"

namespace igdctl {

namespace {

using NoteKind = host::ImportNote::Kind;

constexpr std::size_t kNotesShown = 20;

struct ImportOptions {
  std::string file;
  bool keep_corrupt_aside = false;
  ChangeOptions change;
};

const char* name_of(NoteKind kind) {
  switch (kind) {
    case NoteKind::kBoolean:
      return "boolean";
    case NoteKind::kCount:
      return "count";
    case NoteKind::kExtension:
      return "extension";
    case NoteKind::kType:
      return "type";
    case NoteKind::kForeign:
      break;
  }
  return "foreign";
}

host::ImportResult import(host::Tree& tree, const std::string& dump, const std::string& file) {
  std::istringstream input(dump);
  host::ImportResult result = host::import_csv(tree, input, source_name_of(file));
  if (result.ok) return result;
  const std::size_t first = dump.find_first_not_of(" \t\r\n");
  const bool is_json = first != std::string::npos && dump[first] == '{';
  throw Failure(ExitCode::kBadInput, result.error,
                is_json ? "import a CSV dump; JSON dumps cannot be imported"
                        : "correct the dump; nothing was changed");
}

Json json_of(const host::ImportResult& result) {
  Json notes = Json::array();
  for (const host::ImportNote& note : result.notes) {
    notes.push_back({{"kind", name_of(note.kind)},
                     {"name", note.name},
                     {"what", note.what},
                     {"why", note.why}});
  }
  return {{"objects", result.objects},
          {"parameters", result.parameters},
          {"extensions", result.extensions},
          {"foreign", result.foreign},
          {"booleans", result.booleans},
          {"counts", result.counts},
          {"notes", notes}};
}

void show(Output& output, const host::ImportResult& result, bool all_notes) {
  const std::size_t shown =
      all_notes ? result.notes.size() : std::min(result.notes.size(), kNotesShown);
  output.table({{},
                {{"objects", std::to_string(result.objects)},
                 {"values", std::to_string(result.parameters)},
                 {"values outside the data model", std::to_string(result.extensions)},
                 {"booleans rewritten as true or false", std::to_string(result.booleans)},
                 {"counts computed", std::to_string(result.counts)},
                 {"rows below other roots, skipped", std::to_string(result.foreign)}}});
  Table table{{"NOTE", "NAME", "WHAT", "WHY"}, {}};
  for (std::size_t i = 0; i < shown; ++i) {
    const host::ImportNote& note = result.notes[i];
    table.rows.push_back({name_of(note.kind), note.name, note.what, note.why});
  }
  if (shown > 0) output.table(table);
  if (shown == result.notes.size()) return;
  output.line("and " + std::to_string(result.notes.size() - shown) +
              " more notes; --verbose shows all");
}

// The name that the store gives the next damaged file.
std::string next_aside(const std::string& path) {
  for (int n = 1;; ++n) {
    const std::string aside = path + ".corrupt-" + std::to_string(n);
    std::error_code error;
    if (!std::filesystem::exists(aside, error) && !std::filesystem::exists(aside + "-wal", error)) {
      return aside;
    }
  }
}

// A store is moved away only when there is a dump that can take its place.
void move_away_if_corrupt(Session& session) {
  const std::string path = store_path(session.options.store);
  host::StoreResult result;
  if (host::Store::open(path, {}, &result) != nullptr) return;
  if (result.error != host::StoreError::kCorrupt) throw store_failure(result);
  const std::string aside = next_aside(path);
  host::StoreOptions options;
  options.keep_corrupt_aside = true;
  if (host::Store::open(path, options, &result) == nullptr) throw store_failure(result);
  session.output().warn("the damaged store is now " + in_quotes(aside));
}

std::string why_consent(const std::vector<ManagementPlace>& places,
                        const host::Difference& difference) {
  std::vector<std::string> names = difference.added;
  names.insert(names.end(), difference.deleted.begin(), difference.deleted.end());
  for (const host::ValueChange& value : difference.values) names.push_back(value.name);
  for (const std::string& name : names) {
    std::string why = why_at_stake(places, name);
    if (!why.empty()) return why;
  }
  return {};
}

void import_file(Session& session, const ImportOptions& options) {
  const std::string dump = content_of_file(options.file);
  if (options.keep_corrupt_aside) {
    host::Tree scratch;
    (void)import(scratch, dump, options.file);
    move_away_if_corrupt(session);
  }
  host::ImportResult result;
  Change change(session, options.change);
  const std::string source = source_name_of(options.file);
  const ChangeOutcome outcome = change.run("store import " + source, [&] {
    replace_tree(session, change,
                 [&](host::Store& store) { result = import(store.tree(), dump, options.file); });
  });
  change.add_detail("import", json_of(result));
  Output& output = session.output();
  if (!output.json() && !session.options.output.quiet) {
    show(output, result, session.options.output.verbose);
  }
  change.report(outcome, "Imported " + in_quotes(source));
}

}  // namespace

void replace_tree(Session& session, Change& change,
                  const std::function<void(host::Store&)>& replace) {
  const std::vector<ManagementPlace> places = management_places(session.tree());
  host::Store& store = *host::process_store();
  replace(store);
  const std::string why = why_consent(places, store.difference());
  if (!why.empty()) change.needs_consent(why);
}

void add_store_import(CLI::App& group, Session& session) {
  CLI::App& command =
      add_command(group, "import", "Replace the whole tree with a CSV dump of a gateway",
                  "store import gateway.csv --dry-run");
  const auto options = std::make_shared<ImportOptions>();
  command.add_option("FILE", options->file, "The dump, - for standard input")
      ->required()
      ->type_name("FILE");
  add_change_options(command, session, options->change);
  CLI::Option* const aside = command.add_flag(
      "--keep-corrupt-aside", options->keep_corrupt_aside,
      "Rename a damaged store to FILE.corrupt-N and start a new one from the dump");
  aside->excludes("--dry-run");
  command.callback([&session, options] {
    session.on_run([&session, options] { import_file(session, *options); });
  });
}

}  // namespace igdctl
