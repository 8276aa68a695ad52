#include "store/store_error.h"

#include <cerrno>

#include "common_util.h"

namespace host {

StoreError error_of_system(int number) {
  if (number == EROFS) return StoreError::kReadOnly;
  if (number == ENOSPC || number == EDQUOT || number == EFBIG) return StoreError::kFull;
  return StoreError::kNotOpened;
}

void report(const std::string& text) { c_debug_out("host_store", __LINE__, "%s", text.c_str()); }

const char* name_of(StoreError error) {
  switch (error) {
    case StoreError::kNone:
      return "kNone";
    case StoreError::kNotOpened:
      return "kNotOpened";
    case StoreError::kNotPrivate:
      return "kNotPrivate";
    case StoreError::kReadOnly:
      return "kReadOnly";
    case StoreError::kFull:
      return "kFull";
    case StoreError::kTooLarge:
      return "kTooLarge";
    case StoreError::kIo:
      return "kIo";
    case StoreError::kUncertain:
      return "kUncertain";
    case StoreError::kCorrupt:
      return "kCorrupt";
    case StoreError::kForeign:
      return "kForeign";
    case StoreError::kUnknownFormat:
      return "kUnknownFormat";
    case StoreError::kLocked:
      return "kLocked";
    case StoreError::kMovedOn:
      return "kMovedOn";
    case StoreError::kReplaced:
      return "kReplaced";
    case StoreError::kBatchOpen:
      return "kBatchOpen";
    case StoreError::kTrialOpen:
      return "kTrialOpen";
    case StoreError::kNoTrial:
      return "kNoTrial";
    case StoreError::kPending:
      return "kPending";
    case StoreError::kNotPending:
      return "kNotPending";
    case StoreError::kBadDeadline:
      return "kBadDeadline";
    case StoreError::kBadName:
      return "kBadName";
    case StoreError::kNameTaken:
      return "kNameTaken";
    case StoreError::kNoCheckpoint:
      return "kNoCheckpoint";
  }
  return "";
}

}  // namespace host
