/// @file
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

/// Bytes of the longest text that a parameter takes, and of the longest label of a change: 16 MiB.
inline constexpr std::size_t kLongestText = std::size_t{16} << 20U;

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
  /// What an object is to the data model.
  enum class Kind {
    kSingle,   ///< is there once: the root, and what is neither table nor instance
    kTable,    ///< has instances; the data model gives it no parameters
    kInstance  ///< its path ends in its number
  };
  std::string path;  ///< ends in a dot
  Kind kind;         ///< an extension is kTable once it has, or had, an instance
  bool writable;     ///< whether a management server may add or delete instances
  bool extension;    ///< not in the data model: kept as an import brought it
  int highest;       ///< highest instance number that a table ever had, 0 for none; else 0
};

/// A configuration tree in memory, held to the schema of the data model. Not for several threads at
/// a time.
///
/// Object paths end in a dot, full names do not: "InternetGatewayDevice.WANDevice.1." and
/// "InternetGatewayDevice.WANDevice.1.WANCommonInterfaceConfig.WANAccessType".
class HOST_EXPORT Tree {
 public:
  Tree();  ///< the single objects of the data model with their defaults, every table empty
  static Tree factory();  ///< @return a tree as a gateway leaves the factory

  /// A tree of its own, with a copy of the refusals.
  /// @param other  a store's tree too; what is then written to the copy reaches no store
  Tree(const Tree& other);

  /// Takes content and refusals over.
  /// @param other  can only be assigned to or destroyed afterwards; never a store's tree
  Tree(Tree&& other) noexcept;

  /// Takes content and refusals over. A store's tree takes the content as one write of its batch
  /// and keeps its own refusals; when it refuses it stays as it was, and the new refusal, of
  /// "replace", tells why.
  /// @param other  stays as it is
  /// @return this tree
  Tree& operator=(const Tree& other);

  /// Likewise.
  /// @param other  can only be assigned to or destroyed afterwards; never a store's tree
  /// @return this tree
  Tree& operator=(Tree&& other) noexcept;
  ~Tree();

  /// Adds an instance with its defaults and with the objects that belong below it.
  ///
  /// @param table_path  a table of the data model
  /// @param instance    set to one more than the highest number that the table ever had; stays as
  ///                    it was on refusal
  /// @return 0, or -1 when refused: no such table, one that only an import brought, one
  ///         whose numbers are used up, null `instance`, or a store that cannot take the write
  int add_object(const std::string& table_path, int* instance);

  /// Removes an instance, or an object beyond the data model, with all below it. A single object of
  /// the data model stays: it gets its defaults back and loses all instances below it, whose
  /// numbers are not given again.
  ///
  /// @param object_path  neither the root nor a table of instances
  /// @return 0, or -1 when refused: no such object, the root, a table, or a store that cannot take
  ///         the write
  int delete_object(const std::string& object_path);

  /// Gives a parameter a text.
  ///
  /// @param name   full name of a parameter that is there; none is made
  /// @param value  up to kLongestText bytes, kept as they are whatever the type and access
  /// @return 0, or -1 when refused: no such parameter, a computed count, a longer text, or a store
  ///         that cannot take the write
  int set_value(const std::string& name, const std::string& value);

  /// @param name  full name of a parameter
  /// @return its text, a count computed; "" for an unknown name, which is no refusal
  std::string value(const std::string& name) const;

  /// What a walk of MibAccess over the type gives.
  ///
  /// @param object_type  an ObjectType of common_util.h
  /// @return full names, or paths where the type is an object; instances in numeric order at every
  ///         level; empty for an unknown type
  std::vector<std::string> instances(int object_type) const;

  /// @param object_path  with its dot at the end
  /// @return whether the root, a single object, a table or an instance has this path
  bool has_object(std::string_view object_path) const;

  /// @param name  full name
  /// @return whether value() would read a parameter, be its text empty or not
  bool has_parameter(std::string_view name) const;

  /// @param name  full name of a parameter
  /// @return what is known of it; none for an unknown name
  std::optional<ParameterInfo> describe(std::string_view name) const;

  /// Lists parameters with their values.
  ///
  /// @param prefix  what their full names begin with, cut anywhere; "" for all
  /// @return an object's own in byte order of their names, then those of the objects below it,
  ///         instances in numeric order; empty when no name begins so
  std::vector<Parameter> parameters(std::string_view prefix = {}) const;

  /// @return every object, also those without parameters, in the order of `parameters`; the root is
  ///         first
  std::vector<Object> objects() const;

  /// @return the refused calls, oldest first. The newest 10,000 are always kept; older ones go when
  ///         the list has grown to 20,000, so that a process that runs for long does not grow with
  ///         it. A later refusal changes the list that the reference shows
  const std::vector<Refusal>& refusals() const;
  void clear_refusals();  ///< Empties the list, so that what comes next can be told apart.

 private:
  friend struct TreeAccess;
  struct Impl;
  std::unique_ptr<Impl> impl_;
};

/// The tree behind getContext(): that of the process's store (host_store.h), as it is now. It can
/// be assigned to. What is written to it lasts when it is committed through MibAccess or the store.
///
/// @return when the store cannot be opened, an empty tree that refuses every write; where the
///         platform is built without stores, a tree in memory that began in factory state. A kept
///         reference does not follow other processes or a later exchange: ask again
HOST_EXPORT Tree& active_tree();

/// Puts another tree behind getContext(). The MibAccess stays the same object.
///
/// @param tree  the caller keeps it alive while it is active; null brings back the tree of the
///              process's store
/// @return the tree that was active, never null; it can be put back in the same way
HOST_EXPORT Tree* exchange_active_tree(Tree* tree);

/// What the context of getContext() hands out, for programs that supply a context of their own.
///
/// @return one object for as long as the process lives. Each call goes to the tree that is active
///         then. commit() gives 0 when the process's store has the batch on disk; a tree in
///         memory has nothing to do and gives 0 too
HOST_EXPORT MibAccess& mib_access();

/// Where c_debug_out goes; off at start. The text is formatted and has no line end.
using DebugSink = std::function<void(const char* file, int line, const std::string& text)>;

/// Sends the debug log elsewhere, for the whole process.
/// @param sink  may itself set another sink; an empty function turns the log off
HOST_EXPORT void set_debug_sink(DebugSink sink);
HOST_EXPORT void set_debug_sink_to_stderr();  ///< Writes "file:line: text" to standard error.

/// Appends "file:line: text" to a file, in one write a line, so that several processes can share
/// it. A line that the disk does not take is lost.
///
/// @param path  made with mode 0600 when it is not there; its folder must be. Opened now, once
/// @return false when it cannot be opened; the log then goes on where it went
HOST_EXPORT bool set_debug_sink_to_file(const std::string& path);

/// Something that an import did not take as the dump has it, or that the data model lacks.
struct ImportNote {
  /// What kind of thing is told.
  enum class Kind {
    kBoolean,    ///< a value was normalised to true or false
    kCount,      ///< a count is computed, and the dump's was another
    kExtension,  ///< kept, though the data model does not know it
    kType,       ///< an extension's type is unknown and became string
    kForeign,    ///< rows skipped: not below InternetGatewayDevice; one note for each root
  };
  Kind kind;         ///< tells what `name` is
  std::string name;  ///< full name, path of an object (it ends in a dot), or name of a root
  std::string what;  ///< what was done, for people: "TRUE became true"
  std::string why;   ///< the rule, for people
};

/// What an import did, or why it did nothing.
struct ImportResult {
  bool ok = false;                ///< else the tree is as it was, and nothing below `error` is set
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
/// Parameter, Object, Writable, Value and "Value type", in any order. A malformed file, or one with
/// a name or value longer than kLongestText, is refused whole and the tree stays as it was.
///
/// @param tree    loses all it had. A store's tree takes the import as one write of its batch and
///                commits nothing; what the store refuses is an error like a malformed file
/// @param input   read to its end, or to what is malformed
/// @param source  the name that errors give the input
/// @return what was taken, changed, computed and skipped, or the first error
HOST_EXPORT ImportResult import_csv(Tree& tree, std::istream& input, const std::string& source);

/// The same from a file.
///
/// @param tree  as for import_csv
/// @param path  the file; errors begin with this text as it is given
/// @return as import_csv, or "path: cannot be opened: reason"
HOST_EXPORT ImportResult import_csv_file(Tree& tree, const std::string& path);

/// What an export did, or why it wrote nothing.
struct ExportResult {
  bool ok = false;             ///< all of it was written
  std::string error;           ///< one sentence when not ok
  std::size_t objects = 0;     ///< objects written: single ones, tables and instances
  std::size_t parameters = 0;  ///< parameters written, counts included
};

/// Writes a tree as a parameter dump that import_csv makes an identical tree of: values,
/// extensions with type and access, objects without parameters, and the numbers that tables go on
/// counting from. A value with a NUL byte, which CSV cannot carry, stands in hexadecimal digits.
///
/// @param tree    passwords are written in clear
/// @param output  flushed at the end; has a part of the dump when it fails in between
/// @return how much was written, or that the output failed
HOST_EXPORT ExportResult export_csv(const Tree& tree, std::ostream& output);

/// Writes a tree as JSON, for programs: {"format": 1, "objects": [...], "parameters": [...]}. A
/// text that is no UTF-8 stands in hexadecimal digits under another key: "value_hex" for "value".
///
/// @param tree    passwords are written in clear
/// @param output  flushed at the end; has a part of the text when it fails in between
/// @return how much was written, or that the output failed
HOST_EXPORT ExportResult export_json(const Tree& tree, std::ostream& output);

/// export_csv into a file with mode 0600, since a tree holds passwords. The file appears whole or
/// not at all: it is written beside its place, synced and then renamed.
///
/// @param tree  what is exported
/// @param path  a file that is there stays until the new one takes its place, and on failure. Only
///              a regular file is replaced; a symbolic link or a folder is refused
/// @return how much was written, or "path: reason" with all numbers 0
HOST_EXPORT ExportResult export_csv_file(const Tree& tree, const std::string& path);

/// export_json into a file, in the way of export_csv_file.
///
/// @param tree  what is exported
/// @param path  as for export_csv_file
/// @return as export_csv_file
HOST_EXPORT ExportResult export_json_file(const Tree& tree, const std::string& path);

}  // namespace host

#endif  // HOST_PLATFORM_H
