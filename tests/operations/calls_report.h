// The table of calls and instructions.
#ifndef IGD_TESTS_CALLS_REPORT_H
#define IGD_TESTS_CALLS_REPORT_H

#include <array>
#include <string>

#include "law.h"

namespace operations {

/// Connections of the gateways of the report; each has kReportPorts and kReportRoutes.
inline constexpr std::array<long, 4> kReportSizes = {1, 8, 64, 512};
inline constexpr long kReportPorts = 2;
inline constexpr long kReportRoutes = 4;

/// "open 8, name 12n + 2, get n + 9"; "none" for an operation that asks nothing.
std::string text_of(const Law& law);

/// All calls that a law gives for a gateway of the report.
long total_of(const Law& law, long connections);

/// What a row says about the calls: "| `_get_cache` | open 8, ... | 32 | ... |".
std::string row_of(const Law& law);

}  // namespace operations

#endif  // IGD_TESTS_CALLS_REPORT_H
