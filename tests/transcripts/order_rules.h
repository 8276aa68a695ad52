// Rules of order that hold for every transcript, whatever the scenario.
#ifndef IGD_TESTS_ORDER_RULES_H
#define IGD_TESTS_ORDER_RULES_H

#include <string>
#include <vector>

#include "form/lines.h"

namespace transcripts {

/// How often a rule had something to say about a transcript, and where it was broken.
struct Finding {
  int checked = 0;
  Lines broken;
};

using OrderRule = Finding (*)(const Lines& lines);

/// In a port update no port is removed once one was created.
Finding removals_before_creations(const Lines& lines);

/// Groups leave in the order internet, bind_lan, bind_wan and come in the reverse one.
Finding groups_in_their_order(const Lines& lines);

/// Nothing is named before the DHCP, static and PPP objects were disabled, in this order.
Finding objects_disabled_before_named(const Lines& lines);

/// The object of the connect mode is enabled by the very last write of the description.
Finding active_object_enabled_last(const Lines& lines);

/// After a commit nothing is written; only the services may be told, directly after it.
Finding commit_last(const Lines& lines);

/// A port is switched off directly before it is deleted.
Finding ports_switched_off_before_deleted(const Lines& lines);

/// A new port gets PVID, interface, option 60 or its connection, and is switched on last.
Finding new_ports_written_in_order(const Lines& lines);

/// A new bridge is named first and enabled last.
Finding new_bridges_enabled_last(const Lines& lines);

/// Uplink, connection device, static, DHCP and PPP object with their mappings, then the bridge.
Finding adds_of_a_creation_in_order(const Lines& lines);

/// The connection's routes go first, then its objects, its bridge and its cache entry.
Finding removal_in_order(const Lines& lines);

}  // namespace transcripts

#endif  // IGD_TESTS_ORDER_RULES_H
