/// The command "doctor".
#ifndef IGDCTL_DOCTOR_COMMANDS_H
#define IGDCTL_DOCTOR_COMMANDS_H

namespace CLI {
class App;
}

namespace igdctl {

class Session;

void add_doctor_command(CLI::App& root, Session& session);

}  // namespace igdctl

#endif  // IGDCTL_DOCTOR_COMMANDS_H
