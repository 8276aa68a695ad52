/// What a user asks of a connection: the fields that are named, and no others.
#ifndef IGDCTL_WAN_PATCH_H
#define IGDCTL_WAN_PATCH_H

#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "term/failure.h"
#include "term/output.h"
#include "wan/fields.h"

namespace igdctl {

/// A value for each field that is named; the others stay as they are in the tree.
class WanPatch {
 public:
  /// The value of a field, which is named from now on.
  Value& operator[](std::string_view key) { return values_[&field_of(key)]; }

  /// Null when the field is not named.
  const Value* find(const WanField& field) const;

  /// "" when the text is not named.
  std::string text(std::string_view key) const;

  /// The keys that are named with a wrong value.
  const std::set<std::string>& unreadable() const { return unreadable_; }
  void note_unreadable(const std::string& key) { unreadable_.insert(key); }

 private:
  std::map<const WanField*, Value> values_;
  std::set<std::string> unreadable_;
};

/// Reads a description. Null stands for a field that is not named, except where its row calls the
/// lowest number by a name. Keys that `wan show --json` adds are passed over, so that its data can
/// be read again.
///
/// @param json    anything
/// @param problems  gets one for each unknown key, wrong type, and value that is wrong by itself
WanPatch read_patch(const Json& json, std::vector<Problem>* problems);

inline constexpr std::size_t kMostServers = 2;
inline constexpr std::size_t kMostElements = 64;  ///< of a list or an object

/// Keys that are only shown, besides "password_set" and the like of each secret.
inline constexpr const char* kShownKeys[] = {"path", "id", "bridge"};

/// "password_set": whether a secret has a text is shown, when the secret is not.
std::string key_of_presence(const WanField& secret);

}  // namespace igdctl

#endif  // IGDCTL_WAN_PATCH_H
