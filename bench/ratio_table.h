#pragma once

#include <benchmark/benchmark.h>

#include <map>
#include <string>
#include <vector>

namespace kiv::bench {

// Prints no times but one line per case, with the ratios of every other contender's time to that of
// the contender named "module". Benchmarks are named "kernel/density/size/contender". Of several
// repetitions the fastest counts, which other work on the machine disturbed least.
class RatioTable : public benchmark::BenchmarkReporter {
 public:
  bool ReportContext(const Context& context) override;
  void ReportRuns(const std::vector<Run>& runs) override;
  void Finalize() override;

  // False when a benchmark reported an error; it stands on the error stream then.
  bool Succeeded() const { return succeeded_; }

 private:
  using Times = std::map<std::string, double>;  // processor time by contender

  std::vector<std::string> cases_;  // in the order in which they ran
  std::map<std::string, Times> times_;
  bool succeeded_ = true;
};

}  // namespace kiv::bench
