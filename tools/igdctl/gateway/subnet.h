/// Destinations of routes: an address and a mask, or "198.51.100.0/24".
#ifndef IGDCTL_SUBNET_H
#define IGDCTL_SUBNET_H

#include <cstdint>
#include <string>
#include <vector>

#include "term/failure.h"

namespace igdctl {

struct Subnet {
  std::uint32_t address = 0;
  std::uint32_t mask = 0;

  std::uint32_t network() const { return address & mask; }
  bool has_host_bits() const { return network() != address; }
};

/// The subnet that the tree's two texts mean; false when one is not an address, or the mask has
/// gaps.
bool parse_subnet(const std::string& address, const std::string& mask, Subnet* subnet);

/// Reads what people write: "198.51.100.0/24", or an address and a mask ("" for none). Problems are
/// appended, and false returned; host bits are no problem.
bool read_subnet(const std::string& destination, const std::string& mask, Subnet* subnet,
                 std::vector<Problem>* problems);

/// "198.51.100.0/24" with the address as it is, host bits and all.
std::string text_of(const Subnet& subnet);

/// "24" of 255.255.255.0.
int prefix_length(std::uint32_t mask);

}  // namespace igdctl

#endif  // IGDCTL_SUBNET_H
