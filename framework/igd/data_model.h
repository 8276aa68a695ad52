/// Access to the platform's configuration tree: obtained once, used by every operation.
#ifndef IGD_DATA_MODEL_H
#define IGD_DATA_MODEL_H

#include <string>

#include "common_util.h"
#include "igd_vocabulary.h"

/// Makes sure that context, tree and second service are obtained; asks again while there is no
/// context, never again once there is one.
void ensureContext();

/// Reads path + name; "" without a tree. The path must end in a dot.
std::string _get_value(const std::string& path, const char* name);

/// Writes path + name; nothing without a tree.
void _set_value(const std::string& path, const char* name, const std::string& value);
void _set_value(const std::string& path, const char* name, const char* value);

/// Switches a bridge port off, then deletes it: the platform must see it off before it goes.
void _delete_port(const std::string& path);

namespace igd {

inline constexpr int kInternalAccess = 255;
inline constexpr int kSetFlags = 0;
inline constexpr int kCommitMode = 1;

inline const char* bool_text(bool value) { return value ? kTrue : kFalse; }

/// The tree, after ensureContext; null when there is none.
MibAccess* tree();

/// Reads and writes by full parameter name, as an enumeration yields it.
std::string value_of(const std::string& parameter);
int number_of(const std::string& parameter);
bool has_value(const std::string& parameter, const std::string& text);
void store(const std::string& parameter, const std::string& value);

/// What the operations do with the value of path + name. A text that only one function sees takes
/// half the code of one that every caller has to let go of, also when an exception passes.
void read_into(const std::string& path, const char* name, std::string* field);
int number_at(const std::string& path, const char* name);
bool value_is(const std::string& path, const char* name, const char* text);
bool value_is(const std::string& path, const char* name, const std::string& text);

/// Deletes an object; the result is ignored, as everywhere but in clearing all routes.
void delete_object(const std::string& object_path);

struct NewInstance {
  bool added;
  std::string path;  ///< ends in the number that the platform gave, 0 when it gave none
};
/// Adds an instance to a table.
NewInstance add_instance(const std::string& table_path);

void commit();

/// Makes routes take effect: commit, then tell the services.
void commit_and_apply();

}  // namespace igd

#endif  // IGD_DATA_MODEL_H
