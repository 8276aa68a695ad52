// igdctl: parses, runs, and maps what came of it to an exit code.
#include <exception>

#include "cli/command_line.h"
#include "cli/session.h"
#include "cli/trace.h"

int main(int argc, char** argv) {
  try {
    igdctl::open_standard_streams();
    igdctl::Session session;
    CLI::App root;
    igdctl::build_command_line(root, session);
    int exit_code = 0;
    if (!igdctl::parse_command_line(root, argc, argv, &exit_code)) return exit_code;
    return session.run();
  } catch (const std::exception& error) {
    igdctl::report({igdctl::ExitCode::kFailed, error.what(), "report it with the command"});
    return static_cast<int>(igdctl::ExitCode::kFailed);
  }
}
