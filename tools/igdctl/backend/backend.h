/// The configuration tree that igdctl works on, and what surrounds it.
///
/// One build has the reference platform with its store, another runs on a gateway, whose platform
/// has only what common_util.h says. Each has a Backend of its own: with_store/ and on_gateway/.
#ifndef IGDCTL_BACKEND_H
#define IGDCTL_BACKEND_H

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "common_util.h"
#include "term/output.h"

namespace igdctl {

/// What is known about a parameter beside its value.
struct ParameterFacts {
  std::string type;  ///< "boolean", "unsignedInt", ...; "" when it is not known
  std::string initial;
  bool writable = true;  ///< whether a management server may set it
  bool derived = false;  ///< a count of instances, which the tree computes
  bool extension = false;
  std::size_t longest = SIZE_MAX;  ///< bytes of the longest value, where that is known
};

/// A word that completion offers.
struct Candidate {
  std::string word;
  std::string description;
};

/// What the writes of a change come to.
struct ChangeEffect {
  bool empty = false;                ///< they took each other back, or wrote what was there
  std::string text;                  ///< the writes and the difference, for people
  std::shared_ptr<const Json> json;  ///< {"plan": ..., "difference": ...}, for programs
};

/// The writes of one change, from begin_change() on.
class Transaction {
 public:
  Transaction() = default;
  Transaction(const Transaction&) = delete;
  Transaction& operator=(const Transaction&) = delete;
  /// With a store, discards what was not landed.
  virtual ~Transaction() = default;

  /// To be called after the last write. None where the backend cannot tell. Throws Failure
  /// (kPlatform) when writes were refused; bare names do not count, which the library writes for
  /// connection objects that are missing.
  ///
  /// @param all_writes  show also those that wrote what was there
  virtual std::optional<ChangeEffect> effect(bool show_secrets, bool all_writes) = 0;

  /// Puts the writes into effect.
  ///
  /// @param label    reason of the change in the store's history: "wan set Internet"
  /// @param confirm  seconds until it is reverted unless it is confirmed; 0 without confirmation
  /// Throws Failure: kStore, kPending or kPlatform.
  virtual void land(const std::string& label, int confirm) = 0;
};

class Backend {
 public:
  Backend() = default;
  Backend(const Backend&) = delete;
  Backend& operator=(const Backend&) = delete;
  virtual ~Backend() = default;

  /// Whether there are --store, --dry-run and --confirm. Without a store writes go to the tree at
  /// once, and nobody can tell whether they made a difference.
  virtual bool has_store() const = 0;

  /// Opens the tree of this process; called before anything below.
  ///
  /// @param store  file of the store, "" for the usual one
  /// Throws Failure (kStore) when there is none.
  virtual MibAccess& open_tree(const std::string& store) = 0;

  /// Whether open_tree() would find a tree, and not make one.
  virtual bool has_tree(const std::string& store) const = 0;

  /// Lets reads see what other processes commit from now on. Until then a run sees one state.
  virtual void end_read_hold() = 0;

  /// Begins a change. Throws Failure: kPending or kStore.
  virtual std::unique_ptr<Transaction> begin_change() = 0;

  /// None for a name that is no parameter. Where names are not known, each counts as a writable
  /// parameter of any type.
  virtual std::optional<ParameterFacts> facts_of(const std::string& name) const = 0;

  /// True for a path, with or without its last dot, of an object.
  virtual bool is_object_path(const std::string& path) const = 0;

  /// Names of parameters and paths of objects that an unknown name may have meant.
  virtual std::vector<std::string> names_near(const std::string& name) const = 0;

  /// What completion offers for a checkpoint, and for a parameter that begins with `prefix`.
  virtual std::vector<Candidate> checkpoint_words() const = 0;
  virtual std::vector<Candidate> parameter_words(const std::string& prefix) const = 0;
};

}  // namespace igdctl

#endif  // IGDCTL_BACKEND_H
