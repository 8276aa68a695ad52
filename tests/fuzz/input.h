// Draws what a harness needs from the bytes of its input. Where they end, everything drawn is zero,
// empty or the first of its kind, so that each input is good for something.
#ifndef IGD_TESTS_FUZZ_INPUT_H
#define IGD_TESTS_FUZZ_INPUT_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace fuzz {

class Input {
 public:
  Input(const std::uint8_t* data, std::size_t size)
      : left_(reinterpret_cast<const char*>(data), size) {}

  bool done() const { return left_.empty(); }
  unsigned byte();
  bool coin() { return byte() % 2 != 0; }
  int below(int end) { return static_cast<int>(byte() % static_cast<unsigned>(end)); }
  std::string bytes(std::size_t size);  ///< as many as are left
  std::string rest() { return bytes(left_.size()); }

  /// Small ones, those at the ends of int, and any other.
  int number();

  /// What gateways, crashes and attackers leave in a tree: words of the data model, and texts that
  /// are long, full of dots or zeros, numbers beyond int, or paths without their last dot.
  std::string text();
  std::vector<std::string> texts(int most);

  /// A text without zero bytes, for operations that take plain C texts.
  std::string plain_text();

  /// A path in the form of the pattern, a number in the place of each "#".
  std::string path(std::string_view pattern);

 private:
  std::string word();
  std::string digits();
  std::string number_text();

  std::string_view left_;
};

/// "InternetGatewayDevice.WANDevice.#.WANConnectionDevice.#."
inline constexpr char kWanPattern[] = "InternetGatewayDevice.WANDevice.#.WANConnectionDevice.#.";

}  // namespace fuzz

#endif  // IGD_TESTS_FUZZ_INPUT_H
