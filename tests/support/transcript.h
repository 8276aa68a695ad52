// Notes platform calls, log lines and printed lines in one text, as they come.
//
//   get NAME -> "VALUE"          add TABLE -> NUMBER        open TYPE
//   set NAME = "VALUE"           add TABLE failed           close
//   delete PATH                  commit 1                   apply ""
//   log FILE:LINE TEXT           | printed line, blanks and all
//
// A source line that may change from build to build stands as "#"; the fixed ones stay. An open
// that found nothing has no close.
#ifndef IGD_TESTS_TRANSCRIPT_H
#define IGD_TESTS_TRANSCRIPT_H

#include <string>

#include "stdout_capture.h"
#include "test_platform.h"

namespace support {

class Transcript final : public MibDecorator {
 public:
  Transcript();                          ///< in front of the host tree, until it is destroyed
  explicit Transcript(MibAccess& next);  ///< in front of another tree
  ~Transcript();
  Transcript(const Transcript&) = delete;
  Transcript& operator=(const Transcript&) = delete;

  /// Everything noted so far, floating source lines masked.
  std::string text();

  /// The writing calls (add, set, delete, commit, apply) alone.
  std::string writes();

  int addObject(const std::string& table_path, int* instance, int access_level) override;
  int deleteObject(const std::string& object_path) override;
  InstanceIterator* openInstanceIterator(int type) override;
  void closeInstanceIterator(InstanceIterator* iterator) override;
  std::string getValue(const std::string& name) override;
  int setValue(const std::string& name, const std::string& value, int flags) override;
  int commit(int mode) override;
  int applyChanges(const std::string& scope) override;

 private:
  void note(const std::string& line);
  void note_printed();

  std::string text_;
  StdoutCapture printed_;
};

/// The transcript of an action, and its writing calls alone. Check outside the action: a failure's
/// message would become part of the transcript.
template <typename Action>
std::string transcript_of(const Action& action) {
  Transcript transcript;
  action();
  return transcript.text();
}

template <typename Action>
std::string writes_of(const Action& action) {
  Transcript transcript;
  action();
  return transcript.writes();
}

}  // namespace support

#endif  // IGD_TESTS_TRANSCRIPT_H
