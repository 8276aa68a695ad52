// The commands behind completion and manual pages; all but `completion` are hidden from help.
#include <memory>

#include "cli/command_line.h"
#include "cli/session.h"
#include "gateway/bridges.h"
#include "gateway/connections.h"
#include "help/completion.h"
#include "help/help_commands.h"
#include "help/man_page.h"
#include "term/text.h"

namespace igdctl {

namespace {

constexpr char kFilesToo[] = ":files\n";  // the shell completes names of files itself

struct NamedKind {
  const char* name;
  WordKind kind;
};
constexpr NamedKind kNamedKinds[] = {{"wan", WordKind::kConnection},
                                     {"port", WordKind::kPort},
                                     {"bridge", WordKind::kBridge},
                                     {"checkpoint", WordKind::kCheckpoint},
                                     {"parameter", WordKind::kParameter}};

std::vector<Candidate> connection_words(MibAccess& tree) {
  std::vector<Candidate> words;
  for (const Connection& connection : list_connections(tree)) {
    words.push_back({title_of(connection), connection.service});
  }
  return words;
}

std::vector<Candidate> bridge_words(MibAccess& tree) {
  std::vector<Candidate> words;
  for (const Bridge& bridge : read_bridges(tree)) words.push_back({bridge.name, ""});
  return words;
}

std::vector<Candidate> port_words(MibAccess& tree) {
  std::vector<Candidate> words;
  for (const std::string& node : assignable_nodes(read_bridges(tree))) words.push_back({node, ""});
  return words;
}

std::vector<Candidate> all_words(Session& session, WordKind kind, const std::string& prefix) {
  MibAccess& tree = session.tree();
  switch (kind) {
    case WordKind::kConnection:
      return connection_words(tree);
    case WordKind::kPort:
      return port_words(tree);
    case WordKind::kBridge:
      return bridge_words(tree);
    case WordKind::kCheckpoint:
      return session.backend().checkpoint_words();
    case WordKind::kParameter:
      return session.backend().parameter_words(prefix);
    case WordKind::kNothing:
    case WordKind::kFile:
      break;
  }
  return {};
}

// A word with control characters cannot be typed, and a shell must not get it.
void print(Output& output, const std::string& before, const std::vector<Candidate>& candidates) {
  for (const Candidate& candidate : candidates) {
    if (candidate.word.empty() || printable(candidate.word) != candidate.word) continue;
    output.raw(before + candidate.word);
    if (!candidate.description.empty()) output.raw('\t' + printable(candidate.description));
    output.raw("\n");
  }
}

void complete(Session& session, const CLI::App& root, const std::string& kind,
              const std::vector<std::string>& words) {
  Output& output = session.output();
  for (const NamedKind& row : kNamedKinds) {
    const std::string prefix = words.empty() ? "" : words.back();
    if (row.name == kind) return print(output, "", words_of_kind(session, row.kind, prefix));
  }
  const Completion completion = complete_line(root, words);
  if (!completion.store.empty()) session.options.store = completion.store;
  print(output, "", completion.candidates);
  print(output, completion.before, words_of_kind(session, completion.kind, completion.prefix));
  if (completion.kind == WordKind::kFile) output.raw(kFilesToo);
}

void print_man_page(Session& session, const CLI::App& root, const std::string& name) {
  Output& output = session.output();
  if (name.empty()) {
    for (const std::string& page : man_page_names(root)) output.line(page);
    return;
  }
  const std::string page = man_page(root, name, session.backend().has_store());
  if (page.empty()) {
    throw Failure(ExitCode::kBadInput, "there is no manual page " + in_quotes(name),
                  "igdctl __man lists them");
  }
  output.raw(page);
}

CLI::App& add_hidden_command(CLI::App& root, const std::string& name) {
  return *root.add_subcommand(name)->group("");
}

void add_complete(CLI::App& root, Session& session) {
  struct Options {
    std::string kind;
    std::vector<std::string> words;
  };
  CLI::App& command = add_hidden_command(root, "__complete");
  const auto options = std::make_shared<Options>();
  command.add_option("KIND", options->kind)
      ->required()
      ->check(CLI::IsMember({"line", "wan", "port", "bridge", "checkpoint", "parameter"}));
  command.add_option("WORD", options->words);
  command.callback([&session, &root, options] {
    session.on_run(
        [&session, &root, options] { complete(session, root, options->kind, options->words); });
  });
}

void add_man(CLI::App& root, Session& session) {
  CLI::App& command = add_hidden_command(root, "__man");
  const auto name = std::make_shared<std::string>();
  command.add_option("PAGE", *name);
  command.callback([&session, &root, name] {
    session.on_run([&session, &root, name] { print_man_page(session, root, *name); });
  });
}

}  // namespace

std::vector<Candidate> words_of_kind(Session& session, WordKind kind, const std::string& prefix) {
  std::vector<Candidate> words;
  if (kind == WordKind::kNothing || kind == WordKind::kFile) return words;
  try {
    if (!session.backend().has_tree(session.options.store)) return words;
    words = all_words(session, kind, prefix);
  } catch (const Failure&) {
    return {};  // completion is no place for messages
  }
  std::vector<Candidate> fitting;
  for (Candidate& word : words) {
    if (begins_with(word.word, prefix)) fitting.push_back(std::move(word));
  }
  return fitting;
}

void add_help_commands(CLI::App& root, Session& session) {
  CLI::App& command = *root.add_subcommand("completion", "Print the completion script for a shell");
  command.footer("Example:\n  source <(igdctl completion bash)");
  const auto shell = std::make_shared<std::string>();
  command.add_option("SHELL", *shell, "bash, zsh or fish")
      ->required()
      ->check(CLI::IsMember({"bash", "zsh", "fish"}));
  command.callback([&session, shell] {
    session.on_run([&session, shell] { session.output().raw(completion_script(*shell)); });
  });
  add_complete(root, session);
  add_man(root, session);
}

}  // namespace igdctl
