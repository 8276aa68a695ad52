/// Administration of the reference platform: the trees behind MibAccess, and the debug log.
///
/// A program that only uses libigd needs nothing of this: getContext() hands out a process-wide
/// MibAccess over the tree of the process's store (host_store.h). Tests and tools that make,
/// exchange, inspect or import trees use this interface beside MibAccess.
#ifndef HOST_PLATFORM_H
#define HOST_PLATFORM_H

#include <cstddef>
#include <functional>
#include <iosfwd>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "common_util.h"

/// Marks what libcommon_util.so exports.
#define HOST_EXPORT __attribute__((visibility("default")))

namespace host {

/// A call that the tree refused, and so changed nothing. libigd looks at no result; this list is
/// where a refusal shows.
struct Refusal {
  std::string call;    ///< "addObject", "deleteObject", "setValue", or "replace" for an import
  std::string name;    ///< the path or full name that was passed
  std::string reason;  ///< one sentence for people
};

/// A parameter as listed by Tree::parameters.
struct Parameter {
  std::string name;   ///< full name
  std::string value;  ///< its text; derived counts are computed
};

/// What is known about a parameter beside its value.
struct ParameterInfo {
  std::string type;     ///< TR-098's name of its type: "boolean", "unsignedInt", "IPAddress", ...
  bool writable;        ///< whether a management server may set it; the tree does not enforce it
  std::string initial;  ///< its default; "" for an extension
  bool derived;         ///< a count of instances, computed, never stored
  bool extension;       ///< not in the data model: kept as an import brought it
};

/// An object as listed by Tree::objects.
struct Object {
  enum class Kind { kSingle, kTable, kInstance };
  std::string path;  ///< ends in a dot
  Kind kind;
  bool writable;   ///< whether a management server may add or delete instances
  bool extension;  ///< not in the data model: kept as an import brought it
  int highest;     ///< highest instance number that a table ever had, 0 for none; else 0
};

/// A configuration tree in memory, held to the schema of the data model. Copies are independent.
class HOST_EXPORT Tree {
 public:
  Tree();  ///< the single objects of the data model with their defaults, every table empty
  static Tree factory();  ///< as a gateway leaves the factory
  Tree(const Tree& other);
  Tree(Tree&& other) noexcept;
  Tree& operator=(const Tree& other);
  Tree& operator=(Tree&& other) noexcept;
  ~Tree();

  /// The operations of MibAccess, with the same rules and results.
  int add_object(const std::string& table_path, int* instance);
  int delete_object(const std::string& object_path);
  int set_value(const std::string& name, const std::string& value);
  std::string value(const std::string& name) const;  ///< "" for an unknown name
  std::vector<std::string> instances(int object_type) const;

  bool has_object(std::string_view object_path) const;  ///< root, single object, table or instance
  bool has_parameter(std::string_view name) const;
  std::optional<ParameterInfo> describe(std::string_view name) const;  ///< none for an unknown name

  /// Every parameter whose full name begins with `prefix`: an object's own in byte order of their
  /// names, then those of the objects below it, instances in numeric order.
  std::vector<Parameter> parameters(std::string_view prefix = {}) const;

  /// Every object in the order of `parameters`, the root first, those without parameters too.
  std::vector<Object> objects() const;

  /// The refused calls, oldest first. The newest 10,000 are always kept; older ones go when the
  /// list has grown to 20,000, so that a process that runs for long does not grow with it.
  const std::vector<Refusal>& refusals() const;
  void clear_refusals();

 private:
  friend struct TreeAccess;
  struct Impl;
  std::unique_ptr<Impl> impl_;
};

/// The tree behind getContext(): that of the process's store (host_store.h), as it is now. It can
/// be assigned to. What is written to it lasts when it is committed through MibAccess or the store.
/// When the store cannot be opened it is an empty tree that refuses every write.
HOST_EXPORT Tree& active_tree();

/// Puts another tree behind getContext() and returns the one that was there. The MibAccess stays
/// the same object. The caller keeps `tree` alive while it is active; null brings back the
/// tree of the process's store.
HOST_EXPORT Tree* exchange_active_tree(Tree* tree);

/// What the context of getContext() hands out, for programs that supply a context of their own.
HOST_EXPORT MibAccess& mib_access();

/// Where c_debug_out goes; off at start. The text has no line end.
using DebugSink = std::function<void(const char* file, int line, const std::string& text)>;
HOST_EXPORT void set_debug_sink(DebugSink sink);  ///< an empty function turns it off
HOST_EXPORT void set_debug_sink_to_stderr();      ///< "file:line: text"

/// Appends "file:line: text" to a file, which is made with mode 0600 when it is not there.
/// Returns false when it cannot be opened; the log then goes on where it went.
HOST_EXPORT bool set_debug_sink_to_file(const std::string& path);

/// Something that an import did not take as the dump has it, or that the data model lacks.
struct ImportNote {
  enum class Kind {
    kBoolean,    ///< a value was normalised to true or false
    kCount,      ///< a count is computed, and the dump's was another
    kExtension,  ///< kept, though the data model does not know it
    kType,       ///< an extension's type is unknown and became string
    kForeign,    ///< rows skipped: not below InternetGatewayDevice; one note for each root
  };
  Kind kind;
  std::string name;  ///< full name, path of an object (it ends in a dot), or name of a root
  std::string what;  ///< what was done, for people: "TRUE became true"
  std::string why;   ///< the rule, for people
};

/// What an import did, or why it did nothing.
struct ImportResult {
  bool ok = false;
  std::string error;              ///< "file:line: reason" when not ok; the line where the record
                                  ///< starts, and none when the file cannot be opened
  std::size_t objects = 0;        ///< instances made
  std::size_t parameters = 0;     ///< values taken into the data model
  std::size_t extensions = 0;     ///< values kept though the data model does not know them
  std::size_t foreign = 0;        ///< rows skipped: not below InternetGatewayDevice
  std::size_t booleans = 0;       ///< values normalised to true or false
  std::size_t counts = 0;         ///< counts recomputed instead of taken
  std::vector<ImportNote> notes;  ///< in the order of the dump, then counts, then foreign roots:
                                  ///< the first 20, and one note for all others
};

/// Replaces a tree by a parameter dump: RFC 4180 CSV with a header line that names at least
/// Parameter, Object, Writable, Value and "Value type", in any order. A malformed file is refused
/// whole and the tree stays as it was.
///
/// @param source  the name that errors give the input
HOST_EXPORT ImportResult import_csv(Tree& tree, std::istream& input, const std::string& source);
HOST_EXPORT ImportResult import_csv_file(Tree& tree, const std::string& path);

/// What an export did, or why it wrote nothing.
struct ExportResult {
  bool ok = false;
  std::string error;           ///< one sentence when not ok
  std::size_t objects = 0;     ///< objects written: single ones, tables and instances
  std::size_t parameters = 0;  ///< parameters written, counts included
};

/// Writes a tree as a parameter dump that import_csv makes an identical tree of: values,
/// extensions with type and access, objects without parameters, and the numbers that tables go on
/// counting from. A value with a NUL byte, which CSV cannot carry, stands in hexadecimal digits.
HOST_EXPORT ExportResult export_csv(const Tree& tree, std::ostream& output);

/// Writes a tree as JSON, for programs: {"format": 1, "objects": [...], "parameters": [...]}.
HOST_EXPORT ExportResult export_json(const Tree& tree, std::ostream& output);

/// The same into a file with mode 0600, since a tree holds passwords. The file appears whole or
/// not at all: it is written beside its place, synced and then renamed, and a file that was there
/// stays until then. Only a regular file is replaced; a symbolic link is refused.
HOST_EXPORT ExportResult export_csv_file(const Tree& tree, const std::string& path);
HOST_EXPORT ExportResult export_json_file(const Tree& tree, const std::string& path);

}  // namespace host

#endif  // HOST_PLATFORM_H
