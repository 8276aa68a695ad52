/// @file
/// What was written to a tree, for people and programs that decide whether it may stay.
#ifndef HOST_CHANGES_H
#define HOST_CHANGES_H

#include <string>
#include <vector>

namespace host {

/// One write, as it was made.
struct WriteStep {
  /// What a write did.
  enum class Kind {
    kAdd,     ///< an instance was made
    kDelete,  ///< an object went with all below it, or a single object was emptied
    kSet,     ///< a parameter got a text, also when it had it before
    kReplace  ///< the whole tree was exchanged, by an import or an assignment
  };
  Kind kind;           ///< tells which of the texts below are given
  std::string name;    ///< path of the object, full name of the parameter, or the root's path
  std::string before;  ///< kSet: the text that the parameter had; else ""
  std::string after;   ///< kSet: the text that it got; else ""
};

/// A parameter with different texts on two sides.
struct ValueChange {
  std::string name;    ///< its full name
  std::string before;  ///< its default where the object is new
  std::string after;   ///< its default where an extension went
};

/// What is different between two states, whatever led from one to the other. Each list is in byte
/// order.
struct Difference {
  std::vector<std::string> added;    ///< paths of objects that only the later state has
  std::vector<std::string> deleted;  ///< paths of objects that only the earlier state has
  std::vector<ValueChange> values;   ///< in objects that the later state has

  /// @return whether nothing is different: writes that took each other back leave nothing. What
  ///         only moved the number that a table counts on from is no difference
  bool empty() const { return added.empty() && deleted.empty() && values.empty(); }
};

}  // namespace host

#endif  // HOST_CHANGES_H
