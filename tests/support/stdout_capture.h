// Redirects standard output into memory, so that printed lines can be read as they come.
#ifndef IGD_TESTS_STDOUT_CAPTURE_H
#define IGD_TESTS_STDOUT_CAPTURE_H

#include <string>

namespace support {

class StdoutCapture {
 public:
  StdoutCapture();
  ~StdoutCapture();  ///< gives standard output back; what was not drained is dropped
  StdoutCapture(const StdoutCapture&) = delete;
  StdoutCapture& operator=(const StdoutCapture&) = delete;

  /// What was printed since the last call.
  std::string drain();

 private:
  int saved_ = -1;
  int sink_ = -1;
};

/// What an action prints. Check outside the action: a failure's message would be captured too.
template <typename Action>
std::string printed_by(const Action& action) {
  StdoutCapture printed;
  action();
  return printed.drain();
}

}  // namespace support

#endif  // IGD_TESTS_STDOUT_CAPTURE_H
