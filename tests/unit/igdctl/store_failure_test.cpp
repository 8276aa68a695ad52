#include "backend/with_store/store_failure.h"

#include <gtest/gtest.h>

namespace igdctl {
namespace {

using host::StoreError;

TEST(StoreFailure, EveryErrorHasItsExitCodeAndSaysWhatToDo) {
  for (int number = 1; *host::name_of(static_cast<StoreError>(number)) != '\0'; ++number) {
    const auto error = static_cast<StoreError>(number);
    const Failure failure = store_failure({error, "It failed."});
    ASSERT_EQ(failure.problems.size(), 1U);
    EXPECT_EQ(failure.problems[0].message, "It failed");
    EXPECT_FALSE(failure.problems[0].hint.empty()) << host::name_of(error);
    const bool misuse = error == StoreError::kBatchOpen || error == StoreError::kTrialOpen;
    EXPECT_EQ(failure.code == ExitCode::kFailed, misuse) << host::name_of(error);
  }
}

TEST(StoreFailure, TellsFileFromPendingFromName) {
  EXPECT_EQ(store_failure({StoreError::kCorrupt, "x"}).code, ExitCode::kStore);
  EXPECT_EQ(store_failure({StoreError::kLocked, "x"}).code, ExitCode::kStore);
  EXPECT_EQ(store_failure({StoreError::kFull, "x"}).code, ExitCode::kStore);
  EXPECT_EQ(store_failure({StoreError::kReadOnly, "x"}).code, ExitCode::kStore);
  EXPECT_EQ(store_failure({StoreError::kPending, "x"}).code, ExitCode::kPending);
  EXPECT_EQ(store_failure({StoreError::kNotPending, "x"}).code, ExitCode::kPending);
  EXPECT_EQ(store_failure({StoreError::kNoCheckpoint, "x"}).code, ExitCode::kNotFound);
  EXPECT_EQ(store_failure({StoreError::kNameTaken, "x"}).code, ExitCode::kBadInput);
  EXPECT_EQ(store_failure({StoreError::kTooLarge, "x"}).code, ExitCode::kBadInput);
  EXPECT_EQ(store_failure({StoreError::kUncertain, "x"}).code, ExitCode::kUncertain);
}

}  // namespace
}  // namespace igdctl
