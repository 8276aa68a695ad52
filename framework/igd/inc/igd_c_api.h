/** @file
 * Operations of libigd with C linkage, for callers that work with character buffers.
 *
 * This header also compiles as C99, where the record is opaque. Texts are zero-terminated and
 * 8-bit. Readers write into the caller's buffer like snprintf: truncated to its size, and always
 * terminated if the size is at least 1 (except igd_c_get_l3_name). */
#ifndef IGD_C_API_H
#define IGD_C_API_H

#include <stddef.h>

#ifdef __cplusplus
extern "C" {
#endif

/** Marks the functions that libigd.so exports. */
#define IGD_C_API __attribute__((visibility("default")))

struct api_wan_info; /* one WAN connection; its fields are in igd_types.h */

/** Checks whether a network interface is a member of a bridge.
 *
 * @param bridge_name  BridgeName of the bridge; must not be null
 * @param ifname       device name as the system knows it, "eth1.100"; null gives 0
 * @return 1 if a port of the bridge translates to this device, otherwise 0. On an 802.1Q bridge the
 * taggable devices have their port's PVID as suffix. A port with an unknown node name translates
 * to the empty text, so an empty ifname matches it.
 * Reads the tree, writes nothing. Logs "Matched Ifname ..." on a match. */
IGD_C_API int igd_c_check_belong_bridge(const char* bridge_name, const char* ifname);

/** Derives the packet mark of a connection from its bridge's name, without using the tree.
 *
 * @param name  "br_<d>_<c>"; null gives 0
 * @return A * 30 + (B % 30) modulo 2^32, where A and B are the first two non-zero numbers between
 * underscores: "br_1_2" gives 32. Zeros are skipped, so "br_0_5" gives 150. */
IGD_C_API unsigned int igd_c_get_mask(const char* name);

/** Derives the name of a connection's own bridge from its path, without using the tree.
 *
 * @param wan_path  connection device path; the first two non-zero numbers between dots are taken
 * @param buf       receives "br_<d>_<c>"; "br_0_0" for a path without numbers
 * @param size      size of buf in octets
 *
 * Writes nothing if a pointer is null or size is 0. */
IGD_C_API void igd_c_get_wan_bridge_name(const char* wan_path, char* buf, size_t size);

/** The same as igd_c_get_wan_bridge_name: a bridge's network interface has the bridge's name.
 *
 * @param wan_path  connection device path
 * @param buf       receives the name
 * @param size      size of buf in octets */
IGD_C_API void igd_c_get_wan_bridge_intf_name(const char* wan_path, char* buf, size_t size);

/** Reads the PVID of a connection's own bridge.
 *
 * @param wan_path  connection device path, or any path below it
 * @param buf       receives the tree's text; empty if no bridge matches
 * @param size      size of buf in octets
 *
 * The first bridge whose X_ZYN_WANName is a prefix of wan_path is read; a bridge with an empty
 * X_ZYN_WANName therefore matches every path. Writes nothing into buf if a pointer is null or
 * size is 0. Reads the tree, writes nothing to it. */
IGD_C_API void igd_c_get_wan_bridge_pvid_name(const char* wan_path, char* buf, size_t size);

/** Reads the VLANID of a connection's own bridge, by the same rules as the PVID.
 *
 * @param wan_path  connection device path, or any path below it
 * @param buf       receives the tree's text; empty if no bridge matches
 * @param size      size of buf in octets */
IGD_C_API void igd_c_get_wan_bridge_vlanid_name(const char* wan_path, char* buf, size_t size);

/** Reads the X_ZYN_VLANPriority of a connection's own bridge, by the same rules as the PVID.
 *
 * @param wan_path  connection device path, or any path below it
 * @param buf       receives the tree's text; empty if no bridge matches
 * @param size      size of buf in octets */
IGD_C_API void igd_c_get_wan_bridge_vlanpriority_name(const char* wan_path, char* buf, size_t size);

/** Writes a connection's VLAN identifier as the PVID of every port of a bridge, tagged or not.
 *
 * @param bridge_name  BridgeName of the bridge; null prints "(null)" and changes nothing
 * @param info         only vlan_id is read; must not be null
 * @return 0, always
 *
 * If there is no such bridge nothing changes.
 * Prints one line, and one more for each port. Does not commit. */
IGD_C_API int igd_c_set_bridge_pvid(const char* bridge_name, struct api_wan_info* info);

/** Records the layer-3 interface name of a key in the process-wide table, replacing an older one.
 *
 * @param key    name by which it is looked up
 * @param value  the layer-3 interface
 *
 * A null key or value changes nothing. The table is lost when the process ends. */
IGD_C_API void igd_c_set_l3_name(const char* key, const char* value);

/** Looks up a layer-3 interface name.
 *
 * @param key   name it was recorded under; a null key writes the empty text
 * @param buf   receives at most size - 1 characters, a shorter value padded with zeros; a value
 *              of size - 1 or more characters is NOT terminated, so clear the buffer first
 * @param size  size of buf in octets; with size 1 nothing is written
 *
 * A key that was never set is added to the table with an empty value. Writes nothing, and leaves
 * the table unchanged, if buf is null or size is 0. */
IGD_C_API void igd_c_get_l3_name(const char* key, char* buf, size_t size);

#ifdef __cplusplus
}
#endif

#endif /* IGD_C_API_H */
