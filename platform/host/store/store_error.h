/// How a store fails: by an exception inside it, by a result to its callers, by a line in the log.
#ifndef PLATFORM_HOST_STORE_ERROR_H
#define PLATFORM_HOST_STORE_ERROR_H

#include <exception>
#include <string>
#include <utility>

#include "host_store.h"

namespace host {

/// Why a step of the store cannot go on.
class StoreFailure final : public std::exception {
 public:
  StoreFailure(StoreError error, std::string text) : result_{error, std::move(text)} {}
  explicit StoreFailure(StoreResult result) : result_(std::move(result)) {}
  const StoreResult& result() const { return result_; }
  const char* what() const noexcept override { return result_.text.c_str(); }

 private:
  StoreResult result_;
};

/// Takes a step and tells what came of it.
template <typename Step>
StoreResult result_of(const Step& step) {
  try {
    step();
  } catch (const StoreFailure& failure) {
    return failure.result();
  }
  return {};
}

/// What the system's error number says of making, opening or lengthening a file.
StoreError error_of_system(int number);

/// A line to the debug sink.
void report(const std::string& text);

}  // namespace host

#endif  // PLATFORM_HOST_STORE_ERROR_H
