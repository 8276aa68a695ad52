/// @file
/// Administration of the reference platform: the trees behind MibAccess, and the debug log.
///
/// A program that only uses libigd does not need this header: getContext() provides a process-wide
/// MibAccess to the tree of the process's store (host_store.h). Tests and tools that create,
/// exchange, inspect or import trees use this interface as well as MibAccess.
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

/// Marks the functions and classes that libcommon_util.so exports.
#define HOST_EXPORT __attribute__((visibility("default")))

namespace host {

/// Size of the longest text of a parameter and the longest label of a change: 16 MiB.
inline constexpr std::size_t kLongestText = std::size_t{16} << 20U;

/// A call that the tree refused, and that therefore changed nothing. Since libigd ignores results,
/// refusals are recorded in a list.
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

/// What is known about a parameter besides its value.
struct ParameterInfo {
  std::string type;     ///< TR-098's name of its type: "boolean", "unsignedInt", "IPAddress", ...
  bool writable;        ///< whether a management server may set it; the tree does not enforce it
  std::string initial;  ///< its default; "" for an extension
  bool derived;         ///< a count of instances, computed, never stored
  bool extension;       ///< not in the data model, but added by an import
};

/// An object as listed by Tree::objects.
struct Object {
  /// The role of an object in the data model.
  enum class Kind {
    kSingle,   ///< exists once: the root, and anything that is neither table nor instance
    kTable,    ///< has instances; the data model gives it no parameters
    kInstance  ///< its path ends in its number
  };
  std::string path;  ///< ends in a dot
  Kind kind;         ///< an extension is kTable if it has, or ever had, an instance
  bool writable;     ///< whether a management server may add or delete instances
  bool extension;    ///< not in the data model, but added by an import
  int highest;       ///< of a table, the highest instance number it ever had; otherwise 0
};

/// A configuration tree in memory that follows the schema of the data model. Use it from one thread
/// at a time.
///
/// Object paths end in a dot, full names do not: "InternetGatewayDevice.WANDevice.1." and
/// "InternetGatewayDevice.WANDevice.1.WANCommonInterfaceConfig.WANAccessType".
class HOST_EXPORT Tree {
 public:
  Tree();  ///< the single objects of the data model with their defaults, every table empty
  static Tree factory();  ///< @return a tree in factory state

  /// Copies a tree and its refusals.
  /// @param other  may be a store's tree; writes to the copy do not reach the store
  Tree(const Tree& other);

  /// Takes over content and refusals.
  /// @param other  can only be assigned to or destroyed afterwards; never a store's tree
  Tree(Tree&& other) noexcept;

  /// Copies content and refusals. A store's tree takes the content as one write of its batch
  /// and keeps its own refusals; if it refuses the write it stays unchanged, and a new refusal of
  /// "replace" gives the reason.
  /// @param other  stays unchanged
  /// @return this tree
  Tree& operator=(const Tree& other);

  /// Likewise.
  /// @param other  can only be assigned to or destroyed afterwards; never a store's tree
  /// @return this tree
  Tree& operator=(Tree&& other) noexcept;
  ~Tree();

  /// Adds an instance with its defaults and with the single objects below it.
  ///
  /// @param table_path  a table of the data model
  /// @param instance    set to one more than the highest number that the table ever had; unchanged
  ///                    on refusal
  /// @return 0, or -1 if refused: no such table, a table outside the data model, no instance
  ///         number left, null `instance`, or a store that cannot take the write
  int add_object(const std::string& table_path, int* instance);

  /// Removes an instance, or an object outside the data model, with everything below it. A single
  /// object of the data model stays: it is reset to its defaults and loses all instances below it,
  /// whose numbers are not reused.
  ///
  /// @param object_path  neither the root nor a table of instances
  /// @return 0, or -1 if refused: no such object, the root, a table, or a store that cannot take
  ///         the write
  int delete_object(const std::string& object_path);

  /// Sets a parameter.
  ///
  /// @param name   full name of an existing parameter; none is created
  /// @param value  up to kLongestText bytes, stored unchanged whatever the parameter's type and
  ///               access
  /// @return 0, or -1 if refused: no such parameter, a computed count, a longer text, or a store
  ///         that cannot take the write
  int set_value(const std::string& name, const std::string& value);

  /// @param name  full name of a parameter
  /// @return its text, computed if it is a count; "" for an unknown name, which is not a refusal
  std::string value(const std::string& name) const;

  /// Lists the instances that a walk of MibAccess over the type visits.
  ///
  /// @param object_type  an ObjectType of common_util.h
  /// @return full names, or paths if the type is an object; instances in numeric order at every
  ///         level; empty for an unknown type
  std::vector<std::string> instances(int object_type) const;

  /// @param object_path  ends in a dot
  /// @return whether the root, a single object, a table or an instance has this path
  bool has_object(std::string_view object_path) const;

  /// @param name  full name
  /// @return whether there is such a parameter, even if its text is empty
  bool has_parameter(std::string_view name) const;

  /// @param name  full name of a parameter
  /// @return its description; none for an unknown name
  std::optional<ParameterInfo> describe(std::string_view name) const;

  /// Lists parameters with their values.
  ///
  /// @param prefix  beginning of their full names, of any length; "" for all
  /// @return an object's own in byte order of their names, then those of the objects below it,
  ///         instances in numeric order; empty if no name has this beginning
  std::vector<Parameter> parameters(std::string_view prefix = {}) const;

  /// @return every object, including those without parameters, in the order of `parameters`; the
  ///         root is first
  std::vector<Object> objects() const;

  /// @return the refused calls, oldest first. At least the newest 10,000 are kept; older ones are
  ///         dropped when the list reaches 20,000, so that a long-running process does not grow.
  ///         The reference shows later refusals too
  const std::vector<Refusal>& refusals() const;
  void clear_refusals();  ///< Empties the list, to separate later refusals from earlier ones.

 private:
  friend struct TreeAccess;
  struct Impl;
  std::unique_ptr<Impl> impl_;
};

/// The tree behind getContext(): that of the process's store (host_store.h), in its current state.
/// It can be assigned to. Writes become durable when committed through MibAccess or the store.
///
/// @return the tree; if the store cannot be opened, an empty tree that refuses every write; if the
///         platform is built without stores, a tree in memory that started in factory state. A kept
///         reference does not follow other processes or a later exchange: call this again
HOST_EXPORT Tree& active_tree();

/// Puts another tree behind getContext(). The MibAccess stays the same object.
///
/// @param tree  must outlive its use; null restores the tree of the process's store
/// @return the previously active tree, never null; it can be restored in the same way
HOST_EXPORT Tree* exchange_active_tree(Tree* tree);

/// Returns what the context of getContext() provides, for programs with a context of their own.
///
/// @return one object for the life of the process. Each call goes to the tree active at that time.
///         commit() returns 0 when the process's store has the batch on disk; for a tree in memory
///         it does nothing and returns 0
HOST_EXPORT MibAccess& mib_access();

/// Receives the lines of c_debug_out; off at start. The text is formatted and has no line end.
using DebugSink = std::function<void(const char* file, int line, const std::string& text)>;

/// Redirects the debug log of the whole process.
/// @param sink  may itself set another sink; an empty function turns the log off
HOST_EXPORT void set_debug_sink(DebugSink sink);
HOST_EXPORT void set_debug_sink_to_stderr();  ///< Writes "file:line: text" to standard error.

/// Appends "file:line: text" to a file, with one write per line, so that several processes can
/// share it. A line that cannot be written is lost.
///
/// @param path  created with mode 0600 if missing; its folder must exist. Opened once, immediately
/// @return false if it cannot be opened; the log then stays where it was
HOST_EXPORT bool set_debug_sink_to_file(const std::string& path);

/// Something that an import changed or skipped, or that is not in the data model.
struct ImportNote {
  /// What the note is about.
  enum class Kind {
    kBoolean,    ///< a value was normalised to true or false
    kCount,      ///< a count is computed, and the dump's was different
    kExtension,  ///< kept, although it is not in the data model
    kType,       ///< an extension's type is unknown and became string
    kForeign,    ///< rows skipped: not below InternetGatewayDevice; one note per root
  };
  Kind kind;         ///< determines what `name` is
  std::string name;  ///< full name, path of an object (it ends in a dot), or name of a root
  std::string what;  ///< what was done, for people: "TRUE became true"
  std::string why;   ///< the rule, for people
};

/// What an import did, or why it did nothing.
struct ImportResult {
  bool ok = false;                ///< if not, the tree is unchanged, and only `error` is set
  std::string error;              ///< "file:line: reason" if not ok, with the line where the record
                                  ///< starts, or no line if the file cannot be opened
  std::size_t objects = 0;        ///< instances created
  std::size_t parameters = 0;     ///< values imported into the data model
  std::size_t extensions = 0;     ///< values kept although they are not in the data model
  std::size_t foreign = 0;        ///< rows skipped: not below InternetGatewayDevice
  std::size_t booleans = 0;       ///< values normalised to true or false
  std::size_t counts = 0;         ///< counts recomputed instead of imported
  std::vector<ImportNote> notes;  ///< in the order of the dump, then counts, then foreign roots:
                                  ///< the first 20, and one note for all others
};

/// Replaces a tree by a parameter dump: RFC 4180 CSV with a header line that names at least
/// Parameter, Object, Writable, Value and "Value type", in any order. A malformed file, or one with
/// a name or value longer than kLongestText, is refused as a whole and the tree stays unchanged.
///
/// @param tree    loses its content. A store's tree takes the import as one write of its batch and
///                commits nothing; if the store refuses it, that is an error like a malformed file
/// @param input   read to its end, or to the first error
/// @param source  name of the input in errors
/// @return what was imported, changed, computed and skipped, or the first error
HOST_EXPORT ImportResult import_csv(Tree& tree, std::istream& input, const std::string& source);

/// The same from a file.
///
/// @param tree  as for import_csv
/// @param path  the file; errors begin with this text
/// @return as import_csv, or "path: cannot be opened: reason"
HOST_EXPORT ImportResult import_csv_file(Tree& tree, const std::string& path);

/// What an export did, or why it wrote nothing.
struct ExportResult {
  bool ok = false;             ///< all of it was written
  std::string error;           ///< one sentence if not ok
  std::size_t objects = 0;     ///< objects written: single ones, tables and instances
  std::size_t parameters = 0;  ///< parameters written, counts included
};

/// Writes a tree as a parameter dump from which import_csv makes an identical tree: values,
/// extensions with type and access, objects without parameters, and the numbers from which tables
/// go on counting. A value with a NUL byte, which CSV cannot represent, is in hexadecimal digits.
///
/// @param tree    its passwords are written in clear text
/// @param output  flushed at the end; contains part of the dump after a failure
/// @return how much was written, or that the output failed
HOST_EXPORT ExportResult export_csv(const Tree& tree, std::ostream& output);

/// Writes a tree as JSON, for programs: {"format": 1, "objects": [...], "parameters": [...]}. A
/// text that is not UTF-8 is in hexadecimal digits under another key: "value_hex" for "value".
///
/// @param tree    its passwords are written in clear text
/// @param output  flushed at the end; contains part of the text after a failure
/// @return how much was written, or that the output failed
HOST_EXPORT ExportResult export_json(const Tree& tree, std::ostream& output);

/// export_csv into a file with mode 0600, since a tree contains passwords. The file appears
/// completely or not at all: it is written under a temporary name, synced and then renamed.
///
/// @param tree  the tree to export
/// @param path  an existing file stays until the new one replaces it, and on failure. Only
///              a regular file is replaced; a symbolic link or a folder is refused
/// @return how much was written, or "path: reason" with all numbers 0
HOST_EXPORT ExportResult export_csv_file(const Tree& tree, const std::string& path);

/// export_json into a file, in the same way as export_csv_file.
///
/// @param tree  the tree to export
/// @param path  as for export_csv_file
/// @return as export_csv_file
HOST_EXPORT ExportResult export_json_file(const Tree& tree, const std::string& path);

}  // namespace host

#endif  // HOST_PLATFORM_H
