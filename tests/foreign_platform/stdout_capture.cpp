#include "stdout_capture.h"

#include <unistd.h>

#include <cstdio>
#include <cstdlib>

namespace foreign {
namespace {

// One file serves every capture of the process; a child that was forked off gets its own.
struct CaptureFile {
  std::FILE* file = nullptr;
  pid_t owner = -1;
  off_t read = 0;
  int terminal = -1;
};

CaptureFile& capture_file() {
  static CaptureFile capture;
  if (capture.owner != getpid()) {
    capture.file = std::tmpfile();
    capture.owner = getpid();
    capture.read = 0;
  }
  if (capture.file == nullptr) std::abort();
  return capture;
}

}  // namespace

StdoutCapture::StdoutCapture() {
  std::fflush(stdout);
  CaptureFile& capture = capture_file();
  capture.terminal = dup(STDOUT_FILENO);
  if (capture.terminal < 0 || dup2(fileno(capture.file), STDOUT_FILENO) < 0) std::abort();
}

StdoutCapture::~StdoutCapture() {
  drain();
  CaptureFile& capture = capture_file();
  dup2(capture.terminal, STDOUT_FILENO);
  close(capture.terminal);
}

std::string StdoutCapture::drain() {
  std::fflush(stdout);
  CaptureFile& capture = capture_file();
  std::string text;
  char piece[4096];
  for (;;) {
    const ssize_t count = pread(fileno(capture.file), piece, sizeof piece, capture.read);
    if (count <= 0) return text;
    text.append(piece, static_cast<std::size_t>(count));
    capture.read += count;
  }
}

}  // namespace foreign
