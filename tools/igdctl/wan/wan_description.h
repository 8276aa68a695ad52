/// A connection's description: read from the tree whole, and shown.
#ifndef IGDCTL_WAN_DESCRIPTION_H
#define IGDCTL_WAN_DESCRIPTION_H

#include <string>

#include "common_util.h"
#include "gateway/connections.h"
#include "igd_types.h"
#include "term/output.h"

namespace igdctl {

/// Reads a connection as the library does, with these fields set also where the library leaves them
/// as the caller had them:
///   - connect_mode is 0 when no object is enabled, connection_class when the type is another one
///   - ip_dns_enable, ip_dns1 and ip_dns2 are those of the enabled object; the text after the first
///     comma is ip_dns2 as a whole, so that a third server is not lost when it is written back
///   - dhcp_option60 is that of the DHCP object, enabled or not
///   - bind_wan is empty for a connection without a bridge of its own
api_wan_info read_description(MibAccess& tree, const Connection& connection);

/// Sets ip_dns_enable, ip_dns1 and ip_dns2 to those of the object of a mode.
void read_dns_of_mode(MibAccess& tree, const Connection& connection, int connect_mode,
                      api_wan_info* info);

/// The description as docs/igdctl-json.md has it, with "path", "id" and "bridge" in front. A secret
/// is there only with `show_secrets`; "password_set" tells whether there is one.
Json json_of(const Connection& connection, const api_wan_info& info, bool show_secrets);

/// The same as a table for people, a line a field.
Table table_of(const Connection& connection, const api_wan_info& info, bool show_secrets);

}  // namespace igdctl

#endif  // IGDCTL_WAN_DESCRIPTION_H
