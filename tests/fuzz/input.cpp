#include "input.h"

#include <algorithm>
#include <climits>
#include <iterator>

namespace fuzz {
namespace {

constexpr std::size_t kLong = 65536;
constexpr std::size_t kCut = 200;  // with a word and a byte: around what a buffer of 256 holds

constexpr const char* kWords[] = {"true",
                                  "false",
                                  "0",
                                  "1",
                                  "2",
                                  "100",
                                  "1000",
                                  "4094",
                                  "4095",
                                  "yes",
                                  "LAN0",
                                  "LAN1",
                                  "LAN2",
                                  "LAN3",
                                  "LAN4",
                                  "LAN5",
                                  "LAN_DEFAULT1",
                                  "WLAN1",
                                  "WLAN2",
                                  "WLAN4",
                                  "WIFIW0",
                                  "3G0",
                                  "REP0",
                                  "WDS1",
                                  "STA1",
                                  "internet",
                                  "802.1Q",
                                  "802.1D",
                                  "br_1_1",
                                  "br_1_2",
                                  "br_2_1",
                                  "Static",
                                  "DHCP",
                                  "IP_Routed",
                                  "IP_Bridged",
                                  "PPPoE_Bridged",
                                  "IP_BridgeRouted",
                                  "INTERNET",
                                  "TR069",
                                  "MME",
                                  "INTERNET,VOIP",
                                  "Ethernet",
                                  "3G",
                                  "Repeator",
                                  "wan1",
                                  "wan2",
                                  "eth0",
                                  "eth1.100",
                                  "ath0",
                                  "192.0.2.1",
                                  "255.255.255.0",
                                  "0.0.0.0",
                                  "198.51.100.1,198.51.100.2",
                                  ",",
                                  ",,",
                                  "InternetGatewayDevice.WANDevice.1.WANConnectionDevice.1.",
                                  "InternetGatewayDevice.WANDevice.1.WANConnectionDevice.2.",
                                  "InternetGatewayDevice.WANDevice.2.WANConnectionDevice.1.",
                                  "InternetGatewayDevice.Layer2Bridging.Bridge.1.",
                                  "InternetGatewayDevice.Layer2Bridging.Bridge.1.X_ZYN_WANName",
                                  "InternetGatewayDevice.LANDevice.1.",
                                  ".WANConnectionDevice.",
                                  "InternetGatewayDevice.WANDevice.",
                                  "%s%n",
                                  "\xff\xfe",
                                  "\r\n"};

enum TextKind {
  kRaw,
  kWord,
  kTwoWords,
  kDots,
  kDigits,
  kLongText,
  kZero,
  kCutWord,
  kWanPath,
  kBlanks,
  kEmpty,
  kTextKinds
};

}  // namespace

unsigned Input::byte() {
  if (left_.empty()) return 0;
  const auto byte = static_cast<unsigned char>(left_.front());
  left_.remove_prefix(1);
  return byte;
}

std::string Input::bytes(std::size_t size) {
  const std::string taken(left_.substr(0, size));
  left_.remove_prefix(taken.size());
  return taken;
}

int Input::number() {
  constexpr int kNumbers[] = {0,     1,       2,           3,       8,           100,
                              1000,  1001,    4059,        4060,    4094,        4095,
                              65536, INT_MAX, INT_MAX - 1, INT_MIN, INT_MIN + 1, -1};
  constexpr unsigned kCount = std::size(kNumbers);
  const unsigned chosen = byte() % (kCount + 1);
  if (chosen < kCount) return kNumbers[chosen];
  std::uint32_t any = 0;
  for (int i = 0; i < 4; ++i) any = any << 8U | byte();
  return static_cast<int>(any);
}

std::string Input::word() { return kWords[byte() % std::size(kWords)]; }

std::string Input::digits() {
  const std::string sign(1, "+-0 "[byte() % 4]);
  const std::string digit(1, static_cast<char>('0' + byte() % 10));
  std::string number = sign;
  for (unsigned count = byte() % 40; count > 0; --count) number += digit;
  return number + bytes(byte() % 3);
}

std::string Input::text() {
  switch (byte() % kTextKinds) {
    case kRaw:
      return bytes(byte() % 32);
    case kWord:
      return word();
    case kTwoWords:
      return word() + word();
    case kDots:
      return word() + std::string(byte(), '.') + word();
    case kDigits:
      return digits();
    case kLongText:
      return word() + std::string((coin() ? kLong : kCut) + byte(), static_cast<char>(byte()));
    case kZero:
      return word() + '\0' + word();
    case kCutWord: {
      std::string cut = word();
      cut.pop_back();
      return cut;
    }
    case kWanPath:
      return path(kWanPattern);
    case kBlanks:
      return bytes(byte() % 3) + " \t" + word() + "\r\n ";
    default:
      return {};
  }
}

std::vector<std::string> Input::texts(int most) {
  std::vector<std::string> texts;
  for (int count = below(most + 1); count > 0; --count) texts.push_back(text());
  return texts;
}

std::string Input::plain_text() {
  std::string plain = text();
  plain.erase(std::remove(plain.begin(), plain.end(), '\0'), plain.end());
  return plain;
}

std::string Input::number_text() {
  const unsigned chosen = byte();
  return chosen < 240 ? std::to_string(1 + chosen % 3) : text();
}

std::string Input::path(std::string_view pattern) {
  std::string path;
  for (const char letter : pattern) {
    if (letter == '#') {
      path += number_text();
    } else {
      path += letter;
    }
  }
  return path;
}

}  // namespace fuzz
