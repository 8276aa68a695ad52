#include "help/man_page.h"

#include <sstream>

#include "cli/command_line.h"
#include "term/exit_codes.h"
#include "version.h"

namespace igdctl {

namespace {

struct Term {
  const char* term;
  const char* text;
};

constexpr Term kEnvironment[] = {
    {"COLUMNS", "Width of tables, instead of that of the terminal."},
    {"NO_COLOR", "If set and not empty, output has no colours."},
    {"TERM", "If it is \"dumb\", output has no colours."},
};
constexpr Term kStoreEnvironment[] = {
    {"IGD_STORE", "The file of the store; \":memory:\" keeps nothing. --store takes precedence."},
    {"XDG_STATE_HOME, HOME", "Folders for the store if neither --store nor IGD_STORE is given."},
};
constexpr Term kFiles[] = {
    {"/var/lib/igd/gateway.db", "The store of root."},
    {"~/.local/state/igd/gateway.db", "The store of other users."},
    {"igdctl.trace", "The library's trace, if --trace names no file. It contains passwords."},
};
constexpr char kWithoutStore[] =
    "This build works on the gateway's own configuration tree, which has no store. Commands write "
    "to the tree directly and commit once. --dry-run and --confirm need a store and are refused "
    "with exit status 7.";
constexpr char kWithStore[] =
    "The configuration tree is kept in a store. Each command changes it as a whole or not at all. "
    "--dry-run shows what a command would do. --confirm SECONDS reverts its change unless igdctl "
    "store confirm follows in time.";

std::string page_name_of(const CLI::App& group) { return "igdctl-" + group.get_name(); }

// Without what the validators add behind a colon.
std::string type_of(const CLI::Option& option) {
  const std::string type = option.get_type_name();
  return type.substr(0, type.find(':'));
}

/// Writes one page.
class Page {
 public:
  explicit Page(const std::string& name) {
    std::string title = name;
    for (char& letter : title) {
      if (letter >= 'a' && letter <= 'z') letter = static_cast<char>(letter - 'a' + 'A');
    }
    text_ << R"(.TH ")" << roff_text(title) << R"(" 1 "" "igdctl )" << kVersion
          << R"(" "igdctl manual")" << '\n';
  }

  void section(const char* title) {
    text_ << ".SH " << title << '\n';
    begun_ = false;
  }
  void subsection(const std::string& title) { text_ << ".SS \"" << roff_text(title) << "\"\n"; }
  void paragraph(const std::string& text) { begin_paragraph() << roff_text(text) << '\n'; }
  void line(const std::string& text) { text_ << roff_text(text) << '\n'; }
  void term(const std::string& term, const std::string& text) {
    text_ << ".TP\n\\fB" << roff_text(term) << "\\fR\n" << roff_text(text) << '\n';
  }
  template <std::size_t N>
  void terms(const Term (&terms)[N]) {
    for (const Term& one : terms) term(one.term, one.text);
  }
  void example(const std::string& text) {
    begin_paragraph() << ".nf\n.RS 4\n" << roff_text(text) << "\n.RE\n.fi\n";
  }
  void synopsis(const std::string& words, const std::string& rest) {
    begin_paragraph() << "\\fB" << roff_text(words) << "\\fR" << roff_text(rest) << '\n';
  }
  std::string text() const { return text_.str(); }

 private:
  // A section begins with a paragraph of its own.
  std::ostream& begin_paragraph() {
    if (begun_) text_ << ".PP\n";
    begun_ = true;
    return text_;
  }

  std::ostringstream text_;
  bool begun_ = false;
};

std::string arguments_of(const CLI::App& command) {
  std::string text = " [OPTION]...";
  for (const CLI::Option* option : command.get_options()) {
    if (!option->get_positional()) continue;
    const std::string word = option->get_name() + (option->get_expected_max() > 1 ? "..." : "");
    text += option->get_required() ? ' ' + word : " [" + word + ']';
  }
  return text;
}

void write_options(Page& page, const CLI::App& command) {
  for (const CLI::Option* option : command.get_options()) {
    const bool help_of_command = command.get_parent() != nullptr && option->check_name("--help");
    if (option->get_group().empty() || help_of_command) continue;
    std::string term = option->get_name(false, true);
    if (option->get_positional()) term = option->get_name();
    if (!option->get_positional() && option->get_expected_max() > 0) term += ' ' + type_of(*option);
    page.term(term, option->get_description() + '.');
  }
}

void write_synopsis(Page& page, const CLI::App& command) {
  const std::vector<const CLI::App*> commands = shown_commands(command);
  const bool itself = commands.empty() || command.get_require_subcommand_min() == 0;
  if (itself) page.synopsis(command_path(command), arguments_of(command));
  for (const CLI::App* sub : commands) write_synopsis(page, *sub);
}

void write_command(Page& page, const CLI::App& command) {
  page.subsection(command_path(command));
  page.line(command.get_description() + '.');
  write_options(page, command);
  for (const CLI::App* sub : shown_commands(command)) write_command(page, *sub);
}

// The lines below "Example:" in the help of commands.
void write_examples(Page& page, const CLI::App& command) {
  std::istringstream footer(command.get_footer());
  for (std::string line; std::getline(footer, line);) {
    if (line.rfind("  ", 0) == 0) page.example(line.substr(2));
  }
  for (const CLI::App* sub : shown_commands(command)) write_examples(page, *sub);
}

void write_exit_codes(Page& page) {
  page.section("EXIT STATUS");
  for (const ExitCodeMeaning& row : exit_code_meanings()) {
    page.term(std::to_string(static_cast<int>(row.code)), std::string(row.meaning) + '.');
  }
}

void write_surroundings(Page& page, bool has_store) {
  write_exit_codes(page);
  page.section("FILES");
  if (has_store) {
    page.terms(kFiles);
  } else {
    page.term(kFiles[2].term, kFiles[2].text);
  }
  page.section("ENVIRONMENT");
  if (has_store) page.terms(kStoreEnvironment);
  page.terms(kEnvironment);
}

void write_see_also(Page& page, const CLI::App& root, const std::string& name) {
  page.section("SEE ALSO");
  std::string text;
  for (const std::string& other : man_page_names(root)) {
    if (other != name) text += (text.empty() ? "" : ", ") + other + "(1)";
  }
  page.line(text);
}

void write_root(Page& page, const CLI::App& root, bool has_store) {
  page.section("NAME");
  page.line("igdctl - " + root.get_description());
  page.section("SYNOPSIS");
  page.synopsis("igdctl", " [OPTION]... GROUP COMMAND [ARGUMENT]...");
  page.section("DESCRIPTION");
  page.paragraph(has_store ? kWithStore : kWithoutStore);
  page.paragraph(
      "Results go to standard output: as tables, or with --json as one document {\"format\": 1, "
      "\"kind\": ..., \"data\": ...}. Messages go to standard error: one line says what is wrong, "
      "the next what to do.");
  page.section("GROUPS");
  for (const CLI::App* group : shown_commands(root)) {
    page.term(group->get_name(),
              group->get_description() + ". See " + page_name_of(*group) + "(1).");
  }
  page.section("OPTIONS");
  write_options(page, root);
}

void write_group(Page& page, const CLI::App& root, const CLI::App& group, bool has_store) {
  page.section("NAME");
  page.line(page_name_of(group) + " - " + group.get_description());
  page.section("SYNOPSIS");
  write_synopsis(page, group);
  page.section("DESCRIPTION");
  page.paragraph(has_store ? kWithStore : kWithoutStore);
  page.section("COMMANDS");
  const std::vector<const CLI::App*> commands = shown_commands(group);
  if (commands.empty()) write_command(page, group);
  for (const CLI::App* command : commands) write_command(page, *command);
  page.section("OPTIONS");
  page.line("These may be given before or after the command.");
  write_options(page, root);
}

}  // namespace

std::string roff_text(const std::string& text) {
  std::string result;
  bool begins_line = true;
  for (const char letter : text) {
    if (begins_line && (letter == '.' || letter == '\'')) result += "\\&";
    begins_line = letter == '\n';
    switch (letter) {
      case '\\':
        result += "\\e";
        break;
      case '-':
        result += "\\-";
        break;
      case '\'':
        result += "\\(aq";
        break;
      case '"':
        result += "\\(dq";
        break;
      default:
        result += letter;
    }
  }
  return result;
}

std::vector<std::string> man_page_names(const CLI::App& root) {
  std::vector<std::string> names = {"igdctl"};
  for (const CLI::App* group : shown_commands(root)) names.push_back(page_name_of(*group));
  return names;
}

std::string man_page(const CLI::App& root, const std::string& name, bool has_store) {
  Page page(name);
  const CLI::App* group = nullptr;
  for (const CLI::App* one : shown_commands(root)) {
    if (page_name_of(*one) == name) group = one;
  }
  if (group == nullptr && name != "igdctl") return {};
  if (group == nullptr) {
    write_root(page, root, has_store);
  } else {
    write_group(page, root, *group, has_store);
  }
  page.section("EXAMPLES");
  write_examples(page, group == nullptr ? root : *group);
  write_surroundings(page, has_store);
  write_see_also(page, root, name);
  return page.text();
}

}  // namespace igdctl
