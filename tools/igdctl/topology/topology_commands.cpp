#include "topology/topology_commands.h"

#include <langinfo.h>
#include <locale.h>

#include <CLI/App.hpp>
#include <cstdlib>
#include <memory>
#include <nlohmann/json.hpp>
#include <string>

#include "cli/command_line.h"
#include "cli/session.h"
#include "term/failure.h"
#include "term/text.h"
#include "topology/topology_model.h"
#include "wan/wan_description.h"
#include "wan/wan_words.h"

namespace igdctl {

namespace {

// The locale's own answer; when the machine lacks that locale, what its name says.
bool is_utf8_locale() {
  const locale_t locale = newlocale(LC_CTYPE_MASK, "", nullptr);
  if (locale != nullptr) {
    const bool utf8 = std::string(nl_langinfo_l(CODESET, locale)) == "UTF-8";
    freelocale(locale);
    return utf8;
  }
  for (const char* const variable : {"LC_ALL", "LC_CTYPE", "LANG"}) {
    const char* const name = std::getenv(variable);
    if (name == nullptr || *name == '\0') continue;
    const std::string charset = lower_case(name);
    return charset.find("utf-8") != std::string::npos || charset.find("utf8") != std::string::npos;
  }
  return false;
}

Topology read_topology(MibAccess& tree) {
  std::vector<DescribedConnection> described;
  for (const Connection& connection : list_connections(tree)) {
    const api_wan_info info = read_description(tree, connection);
    const std::string kind =
        word_of_class(info.connection_class) + ' ' + word_of_mode(info.connect_mode);
    described.push_back({connection, std::string(trimmed(kind))});
  }
  return join(described, read_bridges(tree));
}

void draw(Session& session, const std::string& format) {
  const Topology topology = read_topology(session.tree());
  Output& output = session.output();
  if (output.json()) {
    if (!format.empty()) {
      throw Failure(ExitCode::kBadInput, "--json and --format exclude each other",
                    "leave out one of them");
    }
    output.document("topology", json_of(topology));
  } else if (format == "dot") {
    output.raw(drawn_as_dot(topology));
  } else if (format == "svg") {
    output.raw(drawn_as_svg(topology));
  } else {
    output.raw(drawn_as_text(topology, is_utf8_locale(), output.page().width));
  }
}

}  // namespace

void add_topology_command(CLI::App& root, Session& session) {
  CLI::App& command = add_command(root, "topology", "Draw uplinks, connections, bridges and ports",
                                  "topology --format svg > gateway.svg");
  const auto format = std::make_shared<std::string>();
  command.add_option("--format", *format, "text, dot or svg")
      ->check(CLI::IsMember({"text", "dot", "svg"}))
      ->type_name("FORMAT");
  command.callback(
      [&session, format] { session.on_run([&session, format] { draw(session, *format); }); });
}

}  // namespace igdctl
