// Arguments of calls as the head of a transcript shows them.
#ifndef IGD_TESTS_ARGUMENT_TEXT_H
#define IGD_TESTS_ARGUMENT_TEXT_H

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <type_traits>
#include <vector>

#include "igd_types.h"

namespace transcripts {

/// Texts in quotation marks, long ones of one letter as "256 times "n"".
std::string shown(const std::string& text);
std::string shown(const char* text);
template <typename Number, typename = std::enable_if_t<std::is_integral_v<Number>>>
std::string shown(Number number) {
  return std::to_string(number);
}
std::string shown(const std::vector<std::string>& texts);
std::string shown(const std::map<std::string, std::string>& texts);
std::string shown(const api_route_info& route);
std::string shown(const api_mng_server_info* server);

/// What the call fills in, by what it is.
inline std::string shown(std::nullptr_t) { return "null"; }
inline std::string shown(const std::string*) { return "text"; }
inline std::string shown(const std::vector<api_route_info>&) { return "routes"; }
inline std::string shown(const api_wan_status*) { return "status"; }
inline std::string shown(char*) { return "buffer"; }

/// The arguments of a call: "igd_wan_set_params("wan(1.1).", the same)".
std::string call_text(const std::string& operation, const std::vector<std::string>& arguments);

/// Shows descriptions of connections by how they differ from the nearest that the reader knows: a
/// ready one of the fixture, an empty one, or "the same" as the one that was shown last.
class DescriptionText {
 public:
  std::string shown(const api_wan_info& info);

 private:
  std::optional<api_wan_info> last_;
};

}  // namespace transcripts

#endif  // IGD_TESTS_ARGUMENT_TEXT_H
