/// The data model of the reference platform: which objects and parameters exist, their types,
/// defaults and access, and the numbers by which the tree enumerates them.
///
/// The rows stand in schema_device.cpp, schema_wan.cpp and schema_bridging.cpp. They follow TR-098;
/// the parameters beginning with X_, the MTU of a connection and PortOption60 are the operator's
/// and the gateway's own.
#ifndef PLATFORM_HOST_SCHEMA_H
#define PLATFORM_HOST_SCHEMA_H

#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "common_util.h"
#include "schema/name_table.h"

namespace host {

inline constexpr std::string_view kRootPath = "InternetGatewayDevice.";

enum ValueType {
  kBoolean,
  kInt,
  kUnsignedInt,
  kString,
  kDateTime,
  kIpAddress,
  kMacAddress,
  kAlias
};

/// What a management server may do. The tree itself does not enforce it.
enum Access { kReadOnly, kReadWrite };

enum RowKind {
  kObjectRow,     ///< an object that always exists where its parent does
  kTableRow,      ///< a table and the object each of its instances is
  kParameterRow,  ///< a parameter of the object row above it
  kCountRow,      ///< a parameter that tells how many instances a table beside it has
};

/// One line of the data model.
struct SchemaRow {
  RowKind kind;
  int identifier;  ///< ObjectType of each instance or of the parameter, 0 for none
  ValueType type;
  Access access;
  std::string_view name;     ///< path pattern below the root, or a parameter's own name
  std::string_view initial;  ///< default of a parameter
  std::string_view counted;  ///< table that a count row counts
};

constexpr SchemaRow object(std::string_view pattern) {
  return {kObjectRow, 0, kString, kReadOnly, pattern, {}, {}};
}

constexpr SchemaRow table(std::string_view pattern, Access access, int identifier = 0) {
  return {kTableRow, identifier, kString, access, pattern, {}, {}};
}

constexpr SchemaRow read_only(std::string_view name, ValueType type, std::string_view initial = {},
                              int identifier = 0) {
  return {kParameterRow, identifier, type, kReadOnly, name, initial, {}};
}

constexpr SchemaRow read_write(std::string_view name, ValueType type, std::string_view initial = {},
                               int identifier = 0) {
  return {kParameterRow, identifier, type, kReadWrite, name, initial, {}};
}

constexpr SchemaRow count(std::string_view name, std::string_view counted) {
  return {kCountRow, 0, kUnsignedInt, kReadOnly, name, {}, counted};
}

/// A piece of the table; later pieces build on the objects of earlier ones.
struct SchemaRows {
  const SchemaRow* first;
  const SchemaRow* last;
  const SchemaRow* begin() const { return first; }
  const SchemaRow* end() const { return last; }
};
SchemaRows device_rows();
SchemaRows wan_rows();
SchemaRows bridging_rows();

/// An object of the data model with everything it has, gathered from the rows. For a table it
/// describes the instances.
struct ObjectSchema {
  const SchemaRow* row = nullptr;
  bool enumerated = false;                   ///< whether an ObjectType enumerates it, or in it
  std::vector<const SchemaRow*> parameters;  ///< in byte order of their names
  NameTable places;                          ///< of the parameters
  std::map<std::string, std::unique_ptr<ObjectSchema>, std::less<>> children;

  bool is_table() const { return row->kind == kTableRow; }
};

/// The data model from its root down; made at first use, the same object ever after.
const ObjectSchema& data_model();

/// What an ObjectType enumerates: all objects of a kind, or one parameter of each.
struct Enumeration {
  const ObjectSchema* object;
  std::string_view parameter;  ///< its name, "" for the object itself
};

/// Null for a number that is no ObjectType.
const Enumeration* enumeration_of(int object_type);

/// The type's name in TR-098 ("unsignedInt").
std::string_view type_name(ValueType type);

/// The type a parameter dump states ("xsd:unsignedInt"); anything unknown is a string.
ValueType type_from_dump(std::string_view text);

}  // namespace host

#endif  // PLATFORM_HOST_SCHEMA_H
