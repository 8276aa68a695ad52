/// @file
/// Descriptions of what was written to a tree, for people and programs that decide whether to keep
/// it.
#ifndef HOST_CHANGES_H
#define HOST_CHANGES_H

#include <string>
#include <vector>

namespace host {

/// One write, as it was made.
struct WriteStep {
  /// What a write did.
  enum class Kind {
    kAdd,     ///< an instance was created
    kDelete,  ///< an object was removed with everything below it, or a single object emptied
    kSet,     ///< a parameter was set, possibly to the text it had before
    kReplace  ///< the whole tree was replaced, by an import or an assignment
  };
  Kind kind;           ///< determines which of the texts below are set
  std::string name;    ///< path of the object, full name of the parameter, or the root's path
  std::string before;  ///< kSet: the old text of the parameter; otherwise ""
  std::string after;   ///< kSet: its new text; otherwise ""
};

/// A parameter whose text differs between two states.
struct ValueChange {
  std::string name;    ///< its full name
  std::string before;  ///< its default if the object is new
  std::string after;   ///< its default if an extension was removed
};

/// The net difference between two states, regardless of the steps between them. Each list is in
/// byte order.
struct Difference {
  std::vector<std::string> added;    ///< paths of objects that only the later state has
  std::vector<std::string> deleted;  ///< paths of objects that only the earlier state has
  std::vector<ValueChange> values;   ///< in objects that the later state has

  /// @return whether there is no difference: writes that cancelled each other out leave none, and
  ///         nor does a change only to the number from which a table goes on counting
  bool empty() const { return added.empty() && deleted.empty() && values.empty(); }
};

}  // namespace host

#endif  // HOST_CHANGES_H
