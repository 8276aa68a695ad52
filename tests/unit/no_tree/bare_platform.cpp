#include "bare_platform.h"

#include <unistd.h>

#include <cstdarg>
#include <cstdio>

namespace bare {
namespace {

std::string log;

}  // namespace

PlatformContext* context = nullptr;
int context_calls = 0;
int context_calls_before_log = 0;
long printed_before_context = -1;

MibAccess* Context::mibAccess() {
  asked.emplace_back("tree");
  return mib;
}

void* Context::secondService() {
  asked.emplace_back("second service");
  return nullptr;
}

std::string take_log() {
  std::string taken;
  taken.swap(log);
  return taken;
}

}  // namespace bare

PlatformContext* getContext() {
  ++bare::context_calls;
  if (bare::printed_before_context < 0) {
    std::fflush(stdout);
    bare::printed_before_context = static_cast<long>(::lseek(STDOUT_FILENO, 0, SEEK_CUR));
  }
  return bare::context;
}

extern "C" void c_debug_out(const char*, int, const char* format, ...) {
  if (bare::log.empty()) bare::context_calls_before_log = bare::context_calls;
  char text[512];
  va_list arguments;
  va_start(arguments, format);
  (void)std::vsnprintf(text, sizeof text, format, arguments);
  va_end(arguments);
  bare::log += std::string(text) + '\n';
}
