#include "term/times.h"

#include <ctime>

namespace igdctl {

namespace {

std::string formatted(const std::tm& parts, const char* format) {
  constexpr std::size_t kSize = 32;
  char text[kSize] = "";
  (void)std::strftime(text, sizeof(text), format, &parts);
  return text;
}

}  // namespace

std::string local_time_text(std::int64_t seconds) {
  const auto time = static_cast<std::time_t>(seconds);
  std::tm parts{};
  (void)localtime_r(&time, &parts);
  return formatted(parts, "%Y-%m-%d %H:%M:%S");
}

std::string utc_time_text(std::int64_t seconds) {
  const auto time = static_cast<std::time_t>(seconds);
  std::tm parts{};
  (void)gmtime_r(&time, &parts);
  return formatted(parts, "%Y-%m-%dT%H:%M:%SZ");
}

}  // namespace igdctl
