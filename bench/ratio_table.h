/// Prints the medians of a run as a table of ratios to the map.
#ifndef BENCH_RATIO_TABLE_H
#define BENCH_RATIO_TABLE_H

#include <benchmark/benchmark.h>

#include <map>
#include <string>
#include <tuple>
#include <vector>

namespace bench {

class RatioTable : public benchmark::BenchmarkReporter {
 public:
  bool ReportContext(const Context& context) override;
  void ReportRuns(const std::vector<Run>& runs) override;
  void Finalize() override;

 private:
  using Place = std::tuple<std::string, int, std::string>;  // work, connections, subject

  void print_row(const std::string& work, const std::string& label, int connections) const;
  void print_commits() const;
  void print_commit(int connections, const std::string& subject) const;
  double figure(const std::string& work, int connections, const std::string& subject) const;

  std::map<Place, double> figures_;  // nanoseconds, or bytes a parameter
};

}  // namespace bench

#endif  // BENCH_RATIO_TABLE_H
