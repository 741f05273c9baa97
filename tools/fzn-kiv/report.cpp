#include "tools/fzn-kiv/report.h"

#include <cstdio>
#include <iostream>
#include <string_view>

#include "tools/kiv/output.h"

namespace kiv::fzn {
namespace {

constexpr std::string_view kSolutionEnd = "----------\n";

class StatisticsText {
 public:
  void Add(std::string_view name, std::int64_t value) { AddText(name, std::to_string(value)); }
  void Add(std::string_view name, std::uint64_t value) { AddText(name, std::to_string(value)); }
  void Add(std::string_view name, std::chrono::nanoseconds time) {
    char seconds[32];
    std::snprintf(seconds, sizeof seconds, "%.3f", std::chrono::duration<double>(time).count());
    AddText(name, seconds);
  }
  std::string Finish() && { return std::move(text_) + "%%%mzn-stat-end\n"; }

 private:
  void AddText(std::string_view name, std::string_view value) {
    text_.append("%%%mzn-stat: ").append(name).append("=").append(value).append("\n");
  }

  std::string text_;
};

void Write(std::string_view text) {
  std::cout << text;
  FlushOutput();
}

}  // namespace

void Report::BeginSearch(const ModelSize& size) {
  const std::lock_guard lock(mutex_);
  size_ = size;
  search_start_ = Clock::now();
}

void Report::Tell(const std::string& solution, std::optional<std::int32_t> objective) {
  const std::lock_guard lock(mutex_);
  if (concluded_) return;
  ++solutions_;
  objective_ = objective;
  if (settings_.last_solution) {
    kept_ = solution;
  } else {
    std::cout << solution;
    Write(kSolutionEnd);
  }
}

void Report::Note(const SearchStatistics& search) {
  const std::lock_guard lock(mutex_);
  search_ = search;
}

void Report::Conclude(Verdict verdict) {
  const std::lock_guard lock(mutex_);
  WriteEnd(verdict);
}

void Report::Abandon() {
  const std::unique_lock lock(mutex_, std::chrono::milliseconds(200));
  if (lock.owns_lock()) WriteEnd(Verdict::kOpen);
}

void Report::WriteEnd(Verdict verdict) {
  if (concluded_) return;
  concluded_ = true;
  if (settings_.last_solution && solutions_ > 0) std::cout << kept_ << kSolutionEnd;
  std::cout << DescribeEnd(verdict);
  if (settings_.statistics) std::cout << DescribeStatistics();
  FlushOutput();
}

std::string Report::DescribeEnd(Verdict verdict) const {
  switch (verdict) {
    case Verdict::kOpen:
      return solutions_ > 0 ? "" : "=====UNKNOWN=====\n";
    case Verdict::kComplete:
      return solutions_ > 0 ? "==========\n" : "=====UNSATISFIABLE=====\n";
    case Verdict::kUnbounded:
      break;
  }
  return "=====UNBOUNDED=====\n";
}

std::string Report::DescribeStatistics() const {
  const Clock::time_point now = Clock::now();
  StatisticsText text;
  text.Add("solutions", solutions_);
  if (objective_) text.Add("objective", std::int64_t{*objective_});
  text.Add("variables", size_.variables);
  text.Add("intVariables", size_.variables - size_.booleans);
  text.Add("boolVariables", size_.booleans);
  text.Add("propagators", size_.constraints);
  text.Add("propagations", search_.propagations);
  text.Add("nodes", search_.nodes);
  text.Add("failures", search_.failures);
  text.Add("restarts", search_.restarts);
  text.Add("nogoods", search_.nogoods);
  text.Add("peakDepth", search_.peak_depth);
  text.Add("initTime", search_start_.value_or(now) - settings_.start);
  text.Add("solveTime", search_start_ ? now - *search_start_ : Clock::duration::zero());
  return std::move(text).Finish();
}

}  // namespace kiv::fzn
