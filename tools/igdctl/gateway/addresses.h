/// IPv4 and IPv6 addresses as text.
#ifndef IGDCTL_ADDRESSES_H
#define IGDCTL_ADDRESSES_H

#include <cstdint>
#include <string>

namespace igdctl {

/// Four decimal numbers with dots, nothing around them; false leaves `address` as it was.
bool parse_ipv4(const std::string& text, std::uint32_t* address);

bool is_ipv4(const std::string& text);
bool is_ipv6(const std::string& text);

/// Ones, then zeros: 255.255.255.0, also 0.0.0.0 and 255.255.255.255.
bool is_mask(std::uint32_t mask);

/// An address that a host can have: not 0.x, 127.x, multicast or reserved.
bool is_host_address(std::uint32_t address);

std::string text_of_ipv4(std::uint32_t address);

}  // namespace igdctl

#endif  // IGDCTL_ADDRESSES_H
