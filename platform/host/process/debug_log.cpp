// c_debug_out and the place where its lines go.
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdarg>
#include <cstddef>
#include <cstdio>
#include <memory>
#include <string>
#include <utility>

#include "host_platform.h"

namespace host {
namespace {

// Made at first use and never destroyed: lines may still be written while the process ends.
DebugSink& current_sink() {
  static auto* const sink = new DebugSink;
  return *sink;
}

constexpr mode_t kOwnerOnly = S_IRUSR | S_IWUSR;

std::string log_line(const char* file, int line, const std::string& text) {
  return std::string(file) + ":" + std::to_string(line) + ": " + text + "\n";
}

// An open file that is closed with its last user.
class LogFile {
 public:
  explicit LogFile(const std::string& path)
      : descriptor_(open(path.c_str(), O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC, kOwnerOnly)) {}
  LogFile(const LogFile&) = delete;
  LogFile(LogFile&&) = delete;
  LogFile& operator=(const LogFile&) = delete;
  LogFile& operator=(LogFile&&) = delete;
  ~LogFile() {
    if (is_open()) close(descriptor_);
  }

  bool is_open() const { return descriptor_ >= 0; }

  // One write for one line, so that lines of several processes do not mix. A line that the disk
  // does not take is lost: the log never disturbs its caller.
  void append(const std::string& line) const {
    const ssize_t written = write(descriptor_, line.data(), line.size());
    (void)written;
  }

 private:
  int descriptor_;
};

}  // namespace

void set_debug_sink(DebugSink sink) { current_sink() = std::move(sink); }

void set_debug_sink_to_stderr() {
  set_debug_sink([](const char* file, int line, const std::string& text) {
    std::fputs(log_line(file, line, text).c_str(), stderr);
  });
}

bool set_debug_sink_to_file(const std::string& path) {
  auto log_file = std::make_shared<const LogFile>(path);
  if (!log_file->is_open()) return false;
  set_debug_sink([log_file](const char* file, int line, const std::string& text) {
    log_file->append(log_line(file, line, text));
  });
  return true;
}

}  // namespace host

HOST_EXPORT void c_debug_out(const char* file, int line, const char* format, ...) {
  if (!host::current_sink()) return;
  const host::DebugSink sink = host::current_sink();  // it may be replaced while it runs
  std::va_list arguments;
  va_start(arguments, format);
  const int size = std::vsnprintf(nullptr, 0, format, arguments);
  va_end(arguments);
  if (size < 0) return;
  std::string text(static_cast<std::size_t>(size), '\0');
  va_start(arguments, format);
  (void)std::vsnprintf(text.data(), text.size() + 1, format, arguments);
  va_end(arguments);
  sink(file, line, text);
}
