/// The options that describe a connection, and the file they can stand in.
#ifndef IGDCTL_WAN_OPTIONS_H
#define IGDCTL_WAN_OPTIONS_H

#include <map>
#include <string>
#include <vector>

#include "term/output.h"
#include "wan/wan_patch.h"

namespace CLI {
class App;
}

namespace igdctl {

struct WanOptions {
  std::map<std::string, std::vector<std::string>> values;  ///< by key of the description
  std::string from;                                        ///< "" when not given
  std::string password_file;
  bool password_prompt = false;
};

/// Adds --name, --vlan, ... --from FILE, --password-file and --password-prompt to a command.
void add_wan_options(CLI::App& command, WanOptions& options);

/// The description that the file and the options make together; options go over the file.
///
/// @param problems  gets those of the options; those of the description come with read_patch()
/// Throws Failure (kBadInput) when the file or the password cannot be read, or holds several.
Json description_of(const WanOptions& options, std::vector<Problem>* problems);

/// The same for a file that may hold several descriptions, in a list. Options are laid over the
/// only one; with several they are refused.
std::vector<Json> descriptions_of(const WanOptions& options, std::vector<Problem>* problems);

}  // namespace igdctl

#endif  // IGDCTL_WAN_OPTIONS_H
