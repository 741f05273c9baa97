#pragma once

#include <benchmark/benchmark.h>

#include <map>
#include <string>
#include <utility>
#include <vector>

namespace kiv::bench {

// Prints no times but one line per case, with the ratios of every other contender's time to that of
// the contender named `base`. Benchmarks are named by their case, "/" and the contender. Of
// several repetitions the fastest counts, which other work on the machine disturbed least. A case
// may have a goal for the ratio of one contender, its rival: that stands at the end of the line,
// with the word "missed" when the ratio is less.
class RatioTable : public benchmark::BenchmarkReporter {
 public:
  struct Line {
    std::string measured;
    std::string rival = {};
    double goal = 0;  // 0 for none
  };

  // In the order of the lines; a case of which nothing was measured has none.
  RatioTable(std::vector<Line> lines, std::string base)
      : lines_(std::move(lines)), base_(std::move(base)) {}

  bool ReportContext(const Context& context) override;
  void ReportRuns(const std::vector<Run>& runs) override;
  void Finalize() override;

  // False when a benchmark reported an error; it stands on the error stream then.
  bool Succeeded() const { return succeeded_; }

 private:
  using Times = std::map<std::string, double>;  // by contender

  void PrintGoal(const Line& line, const Times& times, double base_time);

  std::vector<Line> lines_;
  std::string base_;
  std::map<std::string, Times> times_;
  bool succeeded_ = true;
};

}  // namespace kiv::bench
