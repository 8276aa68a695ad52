#include "cli/command_line.h"

#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <memory>
#include <vector>

#include "cli/session.h"
#include "term/text.h"
#include "version.h"

namespace igdctl {

namespace {

constexpr std::size_t kColumn = 30;
constexpr std::size_t kRootColumn = 18;
constexpr char kDefaultTrace[] = "igdctl.trace";

// The root's help fits one screen: a line for each group and each global option.
class HelpFormatter : public CLI::Formatter {
 public:
  std::string make_help(const CLI::App* app, std::string name,
                        CLI::AppFormatMode mode) const override {
    if (app->get_parent() != nullptr) return CLI::Formatter::make_help(app, name, mode);
    std::string text = "Usage: igdctl [OPTION]... GROUP COMMAND [ARGUMENT]...\n\n";
    for (const CLI::App* group : shown_commands(*app)) {
      text += row(group->get_name(), group->get_description());
    }
    text += '\n';
    for (const CLI::Option* option : app->get_options()) {
      text += row(option->get_name(false, true) + type_of(*option), option->get_description());
    }
    return text + '\n' + app->get_footer() + '\n';
  }

 private:
  static std::string row(const std::string& left, const std::string& right) {
    const std::size_t blanks = left.size() < kRootColumn ? kRootColumn - left.size() : 1;
    return "  " + left + std::string(blanks, ' ') + right + '\n';
  }
  static std::string type_of(const CLI::Option& option) {
    if (option.get_expected_max() == 0) return {};
    const std::string type = option.get_type_name();
    return type.front() == '[' ? "[=" + type.substr(1) : '=' + type;
  }
};

void add_global_options(CLI::App& root, Session& session) {
  GlobalOptions& options = session.options;
  root.set_help_flag("-h,--help", "Show this help, or that of a group or command");
  root.set_version_flag("--version", std::string("igdctl ") + kVersion)
      ->description("Show the version of igdctl");
  if (session.backend().has_store()) {
    root.add_option("--store", options.store, "Use this store instead of IGD_STORE or the default")
        ->type_name("FILE");
  }
  root.add_flag("--json", options.output.json, "Print results as one JSON document");
  root.add_flag("--show-secrets", options.show_secrets,
                "Show passwords in clear text instead of stars");
  root.add_option("--trace", options.trace, "Write the library's trace, with passwords, to a file")
      ->type_name("[FILE]");
  root.add_flag("-q,--quiet", options.output.quiet, "Print only data, no sentences or warnings");
  root.add_flag("-v,--verbose", options.output.verbose, "Print every detail");
}

// "--bind-lan=" gives an empty value, as "--bind-lan ''" does; CLI11 would miss one.
bool gives_empty_value(const std::string& argument) {
  return argument.rfind("--", 0) == 0 && argument.find('=') == argument.size() - 1;
}

// "--trace" alone names the usual file; as an argument of its own a file would be ambiguous.
std::vector<std::string> arguments_of(int argc, const char* const* argv) {
  std::vector<std::string> arguments;
  bool options_over = false;
  for (int i = 1; i < argc; ++i) {
    std::string argument = argv[i];
    options_over = options_over || argument == "--";
    const bool empty_value = !options_over && gives_empty_value(argument);
    if (empty_value) argument.pop_back();
    const bool bare_trace = !options_over && !empty_value && argument == "--trace";
    if (bare_trace) argument += std::string("=") + kDefaultTrace;
    arguments.push_back(argument);
    if (empty_value) arguments.emplace_back();
  }
  return {arguments.rbegin(), arguments.rend()};  // as CLI11 takes them
}

const CLI::App& chosen_command(const CLI::App& root) {
  const CLI::App* command = &root;
  while (!command->get_subcommands().empty()) command = command->get_subcommands().back();
  return *command;
}

// An unknown command; CLI11 only says that a command is missing.
bool find_unknown_command(const CLI::App& root, const CLI::App& command, Problem* problem) {
  const std::vector<std::string> rest = root.remaining(true);
  const std::vector<const CLI::App*> known = shown_commands(command);
  if (known.empty() || rest.empty() || rest.front().rfind('-', 0) == 0) return false;
  std::vector<std::string> names;
  for (const CLI::App* sub : known) names.push_back(sub->get_name());
  problem->message = command_path(command) + " has no command " + in_quotes(rest.front());
  problem->hint = did_you_mean(rest.front(), names, "its commands are " + joined(names, ", "));
  return true;
}

std::string one_line(std::string text) {
  for (char& letter : text) {
    if (letter == '\n') letter = ' ';
  }
  return std::string(trimmed(text));
}

}  // namespace

void build_root(CLI::App& root, Session& session) {
  root.name("igdctl");
  root.description("Show and change the WAN connections of a home gateway and their bridges");
  auto formatter = std::make_shared<HelpFormatter>();
  formatter->column_width(kColumn);
  root.formatter(formatter);
  root.footer("igdctl GROUP --help lists commands, igdctl GROUP COMMAND --help explains one.");
  root.require_subcommand(1);
  add_global_options(root, session);
  root.fallthrough();  // global options may stand anywhere; groups inherit this
}

bool parse_command_line(CLI::App& root, int argc, const char* const* argv, int* exit_code) {
  std::vector<std::string> arguments = arguments_of(argc, argv);
  try {
    root.parse(arguments);
    return true;
  } catch (const CLI::ParseError& error) {
    if (error.get_exit_code() == static_cast<int>(CLI::ExitCodes::Success)) {
      *exit_code = root.exit(error);
      return false;
    }
    const CLI::App& command = chosen_command(root);
    Problem problem{one_line(error.what()), "see " + command_path(command) + " --help"};
    (void)find_unknown_command(root, command, &problem);
    report(Failure(ExitCode::kBadInput, {problem}));
  }
  *exit_code = static_cast<int>(ExitCode::kBadInput);
  return false;
}

CLI::App& add_group(CLI::App& root, const std::string& name, const std::string& description) {
  CLI::App& group = *root.add_subcommand(name, description);
  group.require_subcommand(1);
  return group;
}

CLI::App& add_command(CLI::App& group, const std::string& name, const std::string& description,
                      const std::string& example) {
  CLI::App& command = *group.add_subcommand(name, description);
  command.footer("Example:\n  igdctl " + example);
  return command;
}

void add_connection_argument(CLI::App& command, std::string& selector) {
  command.add_option("CONNECTION", selector, "Its name, its path, or <d>.<c> as listed")
      ->required();
}

void add_bridge_argument(CLI::App& command, std::string& selector) {
  command.add_option("BRIDGE", selector, "Its name or its path")->required();
}

std::string command_path(const CLI::App& command) {
  const CLI::App* const parent = command.get_parent();
  return parent == nullptr ? "igdctl" : command_path(*parent) + ' ' + command.get_name();
}

std::vector<const CLI::App*> shown_commands(const CLI::App& command) {
  return command.get_subcommands(
      [](const CLI::App* sub) { return !sub->get_group().empty(); });  // hidden ones have none
}

}  // namespace igdctl
