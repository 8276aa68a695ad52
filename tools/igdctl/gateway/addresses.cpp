#include "gateway/addresses.h"

#include <arpa/inet.h>

namespace igdctl {

bool parse_ipv4(const std::string& text, std::uint32_t* address) {
  in_addr parsed{};
  // A zero byte would hide what follows it.
  if (text.find('\0') != std::string::npos) return false;
  if (inet_pton(AF_INET, text.c_str(), &parsed) != 1) return false;
  *address = ntohl(parsed.s_addr);
  return true;
}

bool is_ipv4(const std::string& text) {
  std::uint32_t address = 0;
  return parse_ipv4(text, &address);
}

bool is_ipv6(const std::string& text) {
  in6_addr parsed{};
  return text.find('\0') == std::string::npos && inet_pton(AF_INET6, text.c_str(), &parsed) == 1;
}

bool is_mask(std::uint32_t mask) {
  const std::uint32_t zeros = ~mask;
  return mask == 0 || (zeros & (zeros + 1)) == 0;
}

bool is_host_address(std::uint32_t address) {
  constexpr unsigned kNetworkBits = 24;
  constexpr std::uint32_t kLoopback = 127;
  constexpr std::uint32_t kFirstMulticast = 224;
  const std::uint32_t first = address >> kNetworkBits;
  return first != 0 && first != kLoopback && first < kFirstMulticast;
}

std::string text_of_ipv4(std::uint32_t address) {
  in_addr packed{};
  packed.s_addr = htonl(address);
  char text[INET_ADDRSTRLEN] = {};
  return inet_ntop(AF_INET, &packed, text, sizeof text);
}

}  // namespace igdctl
