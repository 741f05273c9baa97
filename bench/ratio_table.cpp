#include "bench/ratio_table.h"

#include <algorithm>
#include <iomanip>
#include <ostream>

namespace kiv::bench {

bool RatioTable::ReportContext(const Context&) { return true; }

void RatioTable::ReportRuns(const std::vector<Run>& runs) {
  for (const Run& run : runs) {
    const std::string& name = run.run_name.function_name;
    if (run.error_occurred) {
      GetErrorStream() << name << ": " << run.error_message << '\n';
      succeeded_ = false;
      continue;
    }
    if (run.run_type != Run::RT_Iteration) continue;
    const std::size_t slash = name.rfind('/');
    const double time = run.run_name.time_type == "manual_time" ? run.GetAdjustedRealTime()
                                                                : run.GetAdjustedCPUTime();
    const auto [entry, added] = times_[name.substr(0, slash)].emplace(name.substr(slash + 1), time);
    if (!added) entry->second = std::min(entry->second, time);
  }
}

void RatioTable::Finalize() {
  std::ostream& out = GetOutputStream();
  out << "How many times as long as " << base_ << " each other contender takes:\n"
      << std::fixed << std::setprecision(2);
  for (const Line& line : lines_) {
    const Times& times = times_[line.measured];
    const auto base_time = times.find(base_);
    if (base_time == times.end()) continue;
    out << std::left << std::setw(40) << line.measured << std::right;
    for (const auto& [contender, time] : times) {
      if (contender == base_time->first) continue;
      out << std::setw(12) << contender << std::setw(9) << time / base_time->second;
    }
    PrintGoal(line, times, base_time->second);
    out << '\n';
  }
}

void RatioTable::PrintGoal(const Line& line, const Times& times, double base_time) {
  const auto rival_time = times.find(line.rival);
  if (line.goal == 0 || rival_time == times.end()) return;
  GetOutputStream() << "  goal: " << line.rival << ' ' << line.goal
                    << (rival_time->second < line.goal * base_time ? " missed" : "");
}

}  // namespace kiv::bench
