#pragma once

#include <benchmark/benchmark.h>

#include <map>
#include <string>
#include <utility>
#include <vector>

namespace kiv::bench {

// Prints no times but one line per case, with the ratios of every other contender's time to that of
// the contender named `base`. Benchmarks are named by their case, "/" and the contender. Of
// several repetitions the fastest counts, which other work on the machine disturbed least.
class RatioTable : public benchmark::BenchmarkReporter {
 public:
  // `cases` in the order of the lines; one of which nothing was measured has no line.
  RatioTable(std::vector<std::string> cases, std::string base)
      : cases_(std::move(cases)), base_(std::move(base)) {}

  bool ReportContext(const Context& context) override;
  void ReportRuns(const std::vector<Run>& runs) override;
  void Finalize() override;

  // False when a benchmark reported an error; it stands on the error stream then.
  bool Succeeded() const { return succeeded_; }

 private:
  using Times = std::map<std::string, double>;  // processor time by contender

  std::vector<std::string> cases_;
  std::string base_;
  std::map<std::string, Times> times_;
  bool succeeded_ = true;
};

}  // namespace kiv::bench
