#include "calls_report.h"

#include <numeric>

namespace operations {

std::string text_of(const Law& law) {
  std::string text;
  for (std::size_t i = 0; i < law.formulas.size(); ++i) {
    const char* const formula = law.formulas[i];
    if (formula == nullptr || std::string(formula) == "0") continue;
    text += std::string(text.empty() ? "" : ", ") + kCallNames[i] + ' ' + formula;
  }
  return text.empty() ? "none" : text;
}

long total_of(const Law& law, long connections) {
  const CallCounts counts = counts_of(law, {connections, kReportPorts, kReportRoutes});
  return std::accumulate(counts.begin(), counts.end(), 0L);
}

std::string row_of(const Law& law) {
  std::string row = std::string("| `") + law.operation;
  const std::size_t comma = row.find(',');
  row.insert(comma == std::string::npos ? row.size() : comma, "`");
  row += " | " + text_of(law) + " |";
  for (const long connections : kReportSizes) {
    row += ' ' + std::to_string(total_of(law, connections)) + " |";
  }
  return row;
}

}  // namespace operations
