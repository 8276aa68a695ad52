#include "gateway/subnet.h"

#include <bitset>
#include <cstdint>

#include "gateway/addresses.h"
#include "term/text.h"

namespace igdctl {

namespace {

constexpr int kAddressBits = 32;

std::uint32_t mask_of_prefix(long length) {
  return static_cast<std::uint32_t>(std::uint64_t{UINT32_MAX} << (kAddressBits - length));
}

bool read_mask(const std::string& mask, Subnet* subnet, std::vector<Problem>* problems) {
  if (!parse_ipv4(mask, &subnet->mask)) {
    problems->push_back(
        {in_quotes(mask) + " is not a subnet mask", "give one such as 255.255.255.0"});
    return false;
  }
  if (is_mask(subnet->mask)) return true;
  problems->push_back({"the mask " + mask + " has a gap between its ones",
                       "give ones followed by zeros, such as 255.255.255.0"});
  return false;
}

bool read_prefix(const std::string& length, Subnet* subnet, std::vector<Problem>* problems) {
  long bits = 0;
  const bool valid = parse_number(length, 0, kAddressBits, &bits);
  if (valid) subnet->mask = mask_of_prefix(bits);
  if (!valid) {
    problems->push_back(
        {in_quotes(length) + " is not a prefix length", "give a number from 0 to 32"});
  }
  return valid;
}

}  // namespace

bool parse_subnet(const std::string& address, const std::string& mask, Subnet* subnet) {
  Subnet parsed;
  const bool valid = parse_ipv4(address, &parsed.address) && parse_ipv4(mask, &parsed.mask) &&
                     is_mask(parsed.mask);
  if (valid) *subnet = parsed;
  return valid;
}

bool read_subnet(const std::string& destination, const std::string& mask, Subnet* subnet,
                 std::vector<Problem>* problems) {
  const std::size_t slash = destination.find('/');
  const std::string address = destination.substr(0, slash);
  bool valid = parse_ipv4(address, &subnet->address);
  if (!valid) {
    problems->push_back({in_quotes(address) + " is not an IPv4 address",
                         "give an address and a prefix length, such as 198.51.100.0/24"});
  }
  if (slash != std::string::npos) {
    if (!mask.empty()) {
      problems->push_back(
          {"the destination has both a prefix length and a mask", "leave out one of them"});
      valid = false;
    }
    return read_prefix(destination.substr(slash + 1), subnet, problems) && valid;
  }
  if (mask.empty()) {
    problems->push_back({"the destination has no mask",
                         "give it as 198.51.100.0/24 or 198.51.100.0 255.255.255.0"});
    return false;
  }
  return read_mask(mask, subnet, problems) && valid;
}

std::string text_of(const Subnet& subnet) {
  return text_of_ipv4(subnet.address) + '/' + std::to_string(prefix_length(subnet.mask));
}

int prefix_length(std::uint32_t mask) {
  return static_cast<int>(std::bitset<kAddressBits>(mask).count());
}

}  // namespace igdctl
