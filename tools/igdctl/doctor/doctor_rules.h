/// The doctor's rules by subject, and what they share.
#ifndef IGDCTL_DOCTOR_RULES_H
#define IGDCTL_DOCTOR_RULES_H

#include <string>
#include <vector>

#include "doctor/doctor.h"

namespace igdctl {

using Findings = std::vector<Finding>;

void examine_bridges(const Snapshot& snapshot, Findings* findings);
void examine_ports(const Snapshot& snapshot, Findings* findings);
void examine_connections(const Snapshot& snapshot, Findings* findings);
/// VLANs, packet marks, names and the management service.
void examine_shared(const Snapshot& snapshot, Findings* findings);
void examine_routes(const Snapshot& snapshot, Findings* findings);

/// A word as a POSIX shell takes it: as it is, or in single quotes.
std::string shell_word(const std::string& text);

/// How a command can name the connection: by its name when that is plain and no other's.
std::string selector_of(const Snapshot& snapshot, const Connection& connection);
/// How a command can name the bridge.
std::string selector_of(const Snapshot& snapshot, const Bridge& bridge);

/// The connection with this path; null when there is none.
const ConnectionState* find_path(const Snapshot& snapshot, const std::string& path);

bool carries_management(const ConnectionState& state);

/// " --confirm 300" or " --yes" for a connection that carries the management service, else "".
std::string consent_for(const Snapshot& snapshot, const ConnectionState& state);

}  // namespace igdctl

#endif  // IGDCTL_DOCTOR_RULES_H
