#include "short_names.h"

#include <cctype>
#include <cstring>

namespace transcripts {
namespace {

// Behind what a name may stand, and what stands behind it.
enum class Place { kAnywhere, kConnection, kObject, kBridge };

struct Name {
  Place behind;
  const char* full;  // each "#" is a number
  const char* brief;
  Place then;
};

// The first that matches counts: longer ones stand first.
constexpr Name kNames[] = {
    {Place::kAnywhere, "InternetGatewayDevice.WANDevice.#.WANConnectionDevice.#.", "wan(#.#).",
     Place::kConnection},
    {Place::kAnywhere, "InternetGatewayDevice.WANDevice.#.", "wan(#).", Place::kAnywhere},
    {Place::kAnywhere, "InternetGatewayDevice.Layer2Bridging.Bridge.#.", "bridge(#).",
     Place::kBridge},
    {Place::kAnywhere, "InternetGatewayDevice.Layer3Forwarding.Forwarding.#.", "route(#).",
     Place::kAnywhere},
    {Place::kAnywhere, "InternetGatewayDevice.", "igd.", Place::kAnywhere},
    {Place::kConnection, "WANIPConnection.#.", "ip(#).", Place::kObject},
    {Place::kConnection, "WANPPPConnection.1.", "ppp.", Place::kObject},
    {Place::kConnection, "WANPPPConnection.#.", "ppp(#).", Place::kObject},
    {Place::kObject, "PortMapping.#.", "mapping(#).", Place::kAnywhere},
    {Place::kBridge, "Port.#.", "port(#).", Place::kAnywhere},
};

using Form = const char* Name::*;

constexpr char kEscape = '\\';

bool is_digit(char letter) { return std::isdigit(static_cast<unsigned char>(letter)) != 0; }

// Where a pattern that begins at `at` ends; npos when it is not there.
std::size_t end_of(const char* pattern, const std::string& text, std::size_t at) {
  for (; *pattern != '\0'; ++pattern) {
    if (at == text.size()) return std::string::npos;
    if (*pattern != '#') {
      if (text[at++] != *pattern) return std::string::npos;
      continue;
    }
    if (!is_digit(text[at])) return std::string::npos;
    while (at < text.size() && is_digit(text[at])) ++at;
  }
  return at;
}

const Name* name_at(const std::string& text, std::size_t at, Place place, Form form) {
  for (const Name& name : kNames) {
    const bool may_stand = name.behind == Place::kAnywhere || name.behind == place;
    if (may_stand && end_of(name.*form, text, at) != std::string::npos) return &name;
  }
  return nullptr;
}

// The other form of a name, with the numbers that the text has from `at` on.
std::string rewritten(const Name& name, Form to, Form from, const std::string& text,
                      std::size_t at) {
  std::string result;
  const char* source = name.*from;
  for (const char* letter = name.*to; *letter != '\0'; ++letter) {
    if (*letter != '#') {
      result += *letter;
      continue;
    }
    const char* number = std::strchr(source, '#');
    at += static_cast<std::size_t>(number - source);
    while (is_digit(text[at])) result += text[at++];
    source = number + 1;
  }
  return result;
}

}  // namespace

std::string shorten(const std::string& text) {
  std::string result;
  Place place = Place::kAnywhere;
  for (std::size_t at = 0; at < text.size();) {
    const Name* name = name_at(text, at, place, &Name::full);
    if (name != nullptr) {
      result += rewritten(*name, &Name::brief, &Name::full, text, at);
      at = end_of(name->full, text, at);
      place = name->then;
      continue;
    }
    const bool misleading =
        text[at] == kEscape || name_at(text, at, place, &Name::brief) != nullptr;
    if (misleading) result += kEscape;
    result += text[at++];
    place = Place::kAnywhere;
  }
  return result;
}

std::string expand(const std::string& short_text) {
  std::string result;
  Place place = Place::kAnywhere;
  for (std::size_t at = 0; at < short_text.size();) {
    const Name* name = name_at(short_text, at, place, &Name::brief);
    if (name != nullptr) {
      result += rewritten(*name, &Name::full, &Name::brief, short_text, at);
      at = end_of(name->brief, short_text, at);
      place = name->then;
      continue;
    }
    if (short_text[at] == kEscape && at + 1 < short_text.size()) ++at;
    result += short_text[at++];
    place = Place::kAnywhere;
  }
  return result;
}

}  // namespace transcripts
