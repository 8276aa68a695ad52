#include "stdout_capture.h"

#include <sys/mman.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <stdexcept>

namespace support {

StdoutCapture::StdoutCapture() {
  std::fflush(stdout);
  saved_ = ::dup(STDOUT_FILENO);
  sink_ = ::memfd_create("stdout", MFD_CLOEXEC);
  if (saved_ < 0 || sink_ < 0 || ::dup2(sink_, STDOUT_FILENO) < 0) {
    throw std::runtime_error("cannot redirect standard output");
  }
}

StdoutCapture::~StdoutCapture() {
  std::fflush(stdout);
  ::dup2(saved_, STDOUT_FILENO);
  ::close(saved_);
  ::close(sink_);
}

std::string StdoutCapture::drain() {
  std::fflush(stdout);
  const off_t end = ::lseek(sink_, 0, SEEK_CUR);
  std::string text(static_cast<std::size_t>(end), '\0');
  const ssize_t got = ::pread(sink_, text.data(), text.size(), 0);
  if (got != end || ::ftruncate(sink_, 0) != 0 || ::lseek(sink_, 0, SEEK_SET) != 0) {
    throw std::runtime_error("cannot read redirected standard output");
  }
  return text;
}

}  // namespace support
