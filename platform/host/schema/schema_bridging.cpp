// Rows of the data model for the Layer 2 bridges, their ports, VLANs, filters and markings.
#include <iterator>

#include "schema/schema.h"

namespace host {
namespace {

constexpr SchemaRow kBridgingRows[] = {
    object("Layer2Bridging."),
    read_only("MaxBridgeEntries", kUnsignedInt),
    read_only("MaxDBridgeEntries", kUnsignedInt),
    read_only("MaxFilterEntries", kUnsignedInt),
    read_only("MaxMarkingEntries", kUnsignedInt),
    count("BridgeNumberOfEntries", "Bridge"),
    count("FilterNumberOfEntries", "Filter"),
    count("MarkingNumberOfEntries", "Marking"),
    count("AvailableInterfaceNumberOfEntries", "AvailableInterface"),
    read_only("MaxQBridgeEntries", kUnsignedInt),
    read_only("MaxVLANEntries", kUnsignedInt),

    table("Layer2Bridging.Bridge.{i}.", kReadWrite),
    read_write("Alias", kAlias),
    read_only("BridgeKey", kUnsignedInt),
    read_write("BridgeStandard", kString, "802.1D"),
    read_write("BridgeEnable", kBoolean, "false"),
    read_only("BridgeStatus", kString, "Disabled"),
    read_write("BridgeName", kString, "", kBridgeName),
    read_write("VLANID", kUnsignedInt, "0", kBridgeVlanId),
    count("PortNumberOfEntries", "Port"),
    count("VLANNumberOfEntries", "VLAN"),
    read_write("X_ZYN_WANName", kString, "", kBridgeWanName),
    read_write("X_ZYN_VLANPriority", kUnsignedInt),

    table("Layer2Bridging.Bridge.{i}.Port.{i}.", kReadWrite),
    read_write("PortEnable", kBoolean, "false", kPortEnable),
    read_write("Alias", kAlias),
    read_write("PortInterface", kString, "", kPortInterface),
    read_only("PortState", kString, "Disabled"),
    read_write("PVID", kInt, "1", kPortPvid),
    read_write("AcceptableFrameTypes", kString, "AdmitAll"),
    read_write("IngressFiltering", kBoolean, "false"),
    read_write("X_ZYN_DependWanName", kString, "", kPortDependWanName),
    read_write("PortOption60", kString),

    table("Layer2Bridging.Bridge.{i}.VLAN.{i}.", kReadWrite),
    read_write("VLANEnable", kBoolean, "false"),
    read_write("Alias", kAlias),
    read_write("VLANName", kString),
    read_write("VLANID", kInt),

    table("Layer2Bridging.Filter.{i}.", kReadWrite),
    read_write("Alias", kAlias),
    read_only("FilterKey", kUnsignedInt),
    read_write("FilterEnable", kBoolean, "false"),
    read_only("FilterStatus", kString, "Disabled"),
    read_write("FilterBridgeReference", kInt, "-1"),
    read_write("ExclusivityOrder", kUnsignedInt, "0"),
    read_write("FilterInterface", kString),
    read_write("VLANIDFilter", kInt, "-1"),
    read_write("AdmitOnlyVLANTagged", kBoolean, "false"),
    read_write("EthertypeFilterList", kUnsignedInt),
    read_write("EthertypeFilterExclude", kBoolean, "true"),
    read_write("SourceMACAddressFilterList", kString),
    read_write("SourceMACAddressFilterExclude", kBoolean, "true"),
    read_write("DestMACAddressFilterList", kString),
    read_write("DestMACAddressFilterExclude", kBoolean, "true"),
    read_write("SourceMACFromVendorClassIDFilter", kString),
    read_write("SourceMACFromVendorClassIDFilterExclude", kBoolean, "true"),
    read_write("DestMACFromVendorClassIDFilter", kString),
    read_write("DestMACFromVendorClassIDFilterExclude", kBoolean, "true"),
    read_write("DestMACFromVendorClassIDMode", kString, "Exact"),
    read_write("SourceMACFromClientIDFilter", kString),
    read_write("SourceMACFromClientIDFilterExclude", kBoolean, "true"),
    read_write("DestMACFromClientIDFilter", kString),
    read_write("DestMACFromClientIDFilterExclude", kBoolean, "true"),
    read_write("SourceMACFromUserClassIDFilter", kString),
    read_write("SourceMACFromUserClassIDFilterExclude", kBoolean, "true"),
    read_write("DestMACFromUserClassIDFilter", kString),
    read_write("DestMACFromUserClassIDFilterExclude", kBoolean, "true"),
    read_write("SourceMACFromVendorClassIDMode", kString, "Exact"),

    table("Layer2Bridging.Marking.{i}.", kReadWrite),
    read_write("Alias", kAlias),
    read_only("MarkingKey", kUnsignedInt),
    read_write("MarkingEnable", kBoolean, "false"),
    read_only("MarkingStatus", kString, "Disabled"),
    read_write("MarkingBridgeReference", kInt, "-1"),
    read_write("MarkingInterface", kString),
    read_write("VLANIDUntag", kBoolean, "false"),
    read_write("VLANIDMark", kInt, "-1"),
    read_write("EthernetPriorityMark", kInt, "-1"),
    read_write("EthernetPriorityOverride", kBoolean, "false"),
    read_write("VLANIDMarkOverride", kBoolean, "false"),

    table("Layer2Bridging.AvailableInterface.{i}.", kReadOnly),
    read_write("Alias", kAlias),
    read_only("AvailableInterfaceKey", kUnsignedInt),
    read_only("InterfaceType", kString),
    read_only("InterfaceReference", kString),
};

}  // namespace

SchemaRows bridging_rows() { return {std::begin(kBridgingRows), std::end(kBridgingRows)}; }

}  // namespace host
