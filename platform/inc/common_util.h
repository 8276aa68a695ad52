/// @file
/// The platform's contract: what libigd needs from libcommon_util, slot by slot.
///
/// On a gateway the platform vendor supplies libcommon_util.so; on a workstation the
/// reference platform of this project does. A library built against this header runs on either,
/// because it depends only on the order of the virtual functions below, the two free functions,
/// the numbers of ObjectType, and the C++ library's std::string, which both sides must share.
///
/// Names in the tree
///   - An object path ends in a dot: "InternetGatewayDevice.WANDevice.1.".
///   - A parameter's full name is its object's path followed by its own name.
///   - Every value is 8-bit text; booleans are "true" and "false", numbers are decimal.
///
/// The order of the virtual functions is part of the binary interface: never insert, remove or move
/// one. Slots that libigd does not call have empty bodies, so that a platform or a test can derive
/// from these classes and override only what it needs. The destructors are protected and not
/// virtual: a virtual one would take two slots, and libigd never deletes a platform object.
#ifndef COMMON_UTIL_H
#define COMMON_UTIL_H

#include <string>

/// Numbers that identify kinds of objects or parameters for enumeration. They are the platform's
/// own; the comments show what one enumerated instance is.
enum ObjectType : int {
  kForwardingDestIpAddress = 171,  ///< Layer3Forwarding.Forwarding.{i}.DestIPAddress
  kForwardingInterface = 177,      ///< Layer3Forwarding.Forwarding.{i}.Interface
  kBridgeName = 196,               ///< Layer2Bridging.Bridge.{i}.BridgeName
  kBridgeWanName = 197,            ///< Layer2Bridging.Bridge.{i}.X_ZYN_WANName
  kBridgeVlanId = 199,             ///< Layer2Bridging.Bridge.{i}.VLANID
  kPortEnable = 203,               ///< Layer2Bridging.Bridge.{i}.Port.{j}.PortEnable
  kPortDependWanName = 204,        ///< Layer2Bridging.Bridge.{i}.Port.{j}.X_ZYN_DependWanName
  kPortInterface = 205,            ///< Layer2Bridging.Bridge.{i}.Port.{j}.PortInterface
  kPortPvid = 209,                 ///< Layer2Bridging.Bridge.{i}.Port.{j}.PVID
  kWanAccessType = 1007,           ///< WANDevice.{i}.WANCommonInterfaceConfig.WANAccessType
  kWanConnectionDevice = 1273,     ///< WANDevice.{i}.WANConnectionDevice.{j}. (an object)
  kIpConnectionName = 1351,        ///< ...WANIPConnection.{k}.Name
  kAddressingType = 1359,          ///< ...WANIPConnection.{k}.AddressingType
  kPppConnection = 1429,           ///< ...WANPPPConnection.{k}. (an object)
  kPppConnectionName = 1437,       ///< ...WANPPPConnection.{k}.Name
  kServiceList = 1887,             ///< ...WANPPPConnection.{k}.X_CT-COM_ServiceList
};

/// A walk over the instances of one ObjectType. Created by MibAccess::openInstanceIterator, which
/// positions it on the first instance, and released by MibAccess::closeInstanceIterator.
class InstanceIterator {
 public:
  /// Moves to the next instance.
  /// @return non-zero if there is one, 0 after the last
  virtual int next() = 0;      // slot 0
  virtual void reserved1() {}  ///< the platform's own
  virtual void reserved2() {}  ///< the platform's own
  /// Names the current instance.
  /// @return an object path ending in a dot for an object type, the full parameter name for a
  ///         parameter type
  virtual std::string fullName() = 0;  // slot 3

 protected:
  ~InstanceIterator() = default;
};

/// The configuration tree of the gateway.
class MibAccess {
 public:
  virtual void reserved0() {}  ///< the platform's own
  virtual void reserved1() {}  ///< the platform's own
  virtual void reserved2() {}  ///< the platform's own
  virtual void reserved3() {}  ///< the platform's own
  virtual void reserved4() {}  ///< the platform's own
  virtual void reserved5() {}  ///< the platform's own
  virtual void reserved6() {}  ///< the platform's own
  virtual void reserved7() {}  ///< the platform's own
  virtual void reserved8() {}  ///< the platform's own
  virtual void reserved9() {}  ///< the platform's own

  /// Creates an instance in a table.
  ///
  /// @param table_path    path of the table, ending in a dot ("InternetGatewayDevice.WANDevice.")
  /// @param instance      set to the number of the new instance, 1 or higher
  /// @param access_level  libigd passes 255, the internal level: the data model's own access
  ///                      rules do not apply
  /// @return 0, or non-zero if nothing was created; libigd sets `instance` to 0 before the call
  ///         and may continue with that 0, so a failure must not change it
  /// libigd does pass bare and unknown paths ("Port.", if there is no LAN bridge); refuse them.
  virtual int addObject(const std::string& table_path, int* instance, int access_level) = 0;  // 10

  /// Removes an object with everything below it.
  ///
  /// @param object_path  ends in a dot; an instance, or "InternetGatewayDevice.Layer3Forwarding.",
  ///                     which loses all its routes
  /// @return 0, or non-zero if nothing was removed; checked only when all routes are cleared
  /// libigd does pass the empty path (for the bridge of a connection that has none): refuse it and
  /// remove nothing, never the tree. Refuse unknown paths too.
  virtual int deleteObject(const std::string& object_path) = 0;  // 11

  virtual void reserved12() {}  ///< the platform's own

  /// Starts a walk over every instance of a type anywhere in the tree, in ascending numeric order
  /// at every level. libigd reads all names before it writes, so a walk need not survive writes.
  ///
  /// @param type  an ObjectType
  /// @return a walk positioned on the first instance, or null if there is none
  virtual InstanceIterator* openInstanceIterator(int type) = 0;  // 13

  /// Releases a walk. libigd closes every walk it opened, exactly once.
  /// @param iterator  as returned by openInstanceIterator, never null
  virtual void closeInstanceIterator(InstanceIterator* iterator) = 0;  // 14

  /// Reads a parameter.
  ///
  /// @param name  its full name; libigd passes bare names ("Enable") if an object is missing
  /// @return its text; empty for an unknown name, which libigd takes as "not set"
  virtual std::string getValue(const std::string& name) = 0;  // 15

  /// Stores a parameter; the writing process can read it back at once.
  ///
  /// @param name   its full name
  /// @param value  any text without NUL bytes, whatever the parameter's type
  /// @param flags  libigd passes 0
  /// @return 0, or non-zero if refused; libigd ignores the result and relies on bare names,
  ///         unknown names and names of instance 0 being refused without effect
  virtual int setValue(const std::string& name, const std::string& value, int flags) = 0;  // 16

  virtual void reserved17() {}  ///< the platform's own

  /// Makes everything written since the last commit durable and visible to other processes.
  ///
  /// @param mode  libigd passes 1
  /// @return 0, or non-zero if the batch is not in effect
  virtual int commit(int mode) = 0;  // 18

  /// Tells the gateway's services to act on what was committed. Called for routes only, directly
  /// after commit.
  ///
  /// @param scope  libigd passes the empty text
  /// @return 0, or non-zero; libigd ignores it
  virtual int applyChanges(const std::string& scope) = 0;  // 19

 protected:
  ~MibAccess() = default;
};

/// The process-wide platform context.
class PlatformContext {
 public:
  virtual void reserved0() {}  ///< the platform's own
  virtual void reserved1() {}  ///< the platform's own
  virtual void reserved2() {}  ///< the platform's own
  virtual void reserved3() {}  ///< the platform's own
  virtual void reserved4() {}  ///< the platform's own
  virtual void reserved5() {}  ///< the platform's own

  /// Returns the configuration tree. Called once; the object must live as long as the process.
  /// @return the tree, or null if this process has none
  virtual MibAccess* mibAccess() = 0;  // slot 6

  /// Returns a second service. libigd asks for it once, after the tree, and never uses it.
  /// @return anything, including null
  virtual void* secondService() = 0;  // slot 7

 protected:
  ~PlatformContext() = default;
};

/// Returns the context of this process. libigd calls this at every operation until it gets one,
/// then never again.
/// @return the context, or null while the platform is not ready
PlatformContext* getContext();

/// Writes one line to the platform's debug log.
///
/// @param file    name of the source unit, by which field tools filter: "igd_api" or
///                "framework/igd/inc/igd_common"
/// @param line    source line; some are fixed because field tools look for them
/// @param format  printf format of the line, no line end
extern "C" void c_debug_out(const char* file, int line, const char* format, ...)
    __attribute__((format(printf, 3, 4)));

#endif  // COMMON_UTIL_H
