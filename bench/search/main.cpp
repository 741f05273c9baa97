// fzn-kiv against fzn-gecode on FlatZinc with the same search: whole processes, from the start to
// the end, in turns. What both found is compared before their times are.

#include <unistd.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iomanip>
#include <iostream>
#include <sstream>
#include <string>
#include <vector>

#include "bench/search/cases.h"
#include "bench/search/process.h"

namespace kiv::bench {
namespace {

namespace fs = std::filesystem;

struct Settings {
  int runs = 5;
  int limit = 60;  // seconds of the processor for one run
  std::string filter;
  std::string kiv = KIV_FZN_KIV;
  std::string kiv_library = KIV_MZN_LIBRARY;
  std::string gecode = "fzn-gecode";
  std::string gecode_library = "-Ggecode";
};

// What a solver says at the end of a run.
struct Findings {
  std::size_t solutions = 0;
  bool is_complete = false;
  double nodes = 0;
  double failures = 0;
};

// The number behind "%%%mzn-stat: name=", 0 without one.
double Statistic(const std::string& output, const std::string& name) {
  const std::string key = "%%%mzn-stat: " + name + '=';
  const std::size_t place = output.rfind(key);
  return place == std::string::npos ? 0 : std::stod(output.substr(place + key.size()));
}

Findings Read(const std::string& output) {
  Findings findings;
  std::istringstream lines(output);
  for (std::string line; std::getline(lines, line);) {
    if (line == "----------") ++findings.solutions;
    if (line == "==========" || line == "=====UNSATISFIABLE=====") findings.is_complete = true;
  }
  findings.nodes = Statistic(output, "nodes");
  findings.failures = Statistic(output, "failures");
  return findings;
}

double Median(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  return values[values.size() / 2];
}

// One solver on one case.
struct Contender {
  std::vector<std::string> command;
  std::vector<double> seconds;
  double megabytes = 0;
  Findings findings;
  bool succeeded = true;

  void RunOnce(const Settings& settings) {
    const Run run = RunProgram(command, std::chrono::seconds(settings.limit));
    succeeded &= run.succeeded;
    seconds.push_back(run.seconds);
    megabytes = std::max(megabytes, run.megabytes);
    findings = Read(run.output);
  }
  double NodesPerSecond() const { return findings.nodes / std::max(Median(seconds), 1e-6); }
};

fs::path Compile(const SearchCase& measured, const std::string& library, const fs::path& folder) {
  const fs::path configuration = folder / "bench.msc";
  std::ofstream(configuration) << R"({"id": "bench.search", "version": "1", "name": "bench", )"
                               << R"("executable": "/bin/false", "mznlib": ")" << library
                               << R"(", "stdFlags": ["-a"], "supportsFzn": true})";
  const fs::path flat = folder / (measured.name + ".fzn");
  std::vector<std::string> command = {"minizinc", "-c", "--no-output-ozn", "--solver",
                                      configuration.string()};
  if (!measured.definition.empty()) {
    command.insert(command.end(), {"-D", measured.definition});
  }
  command.insert(command.end(), {"-o", flat.string(),
                                 std::string(KIV_SEARCH_MODELS) + '/' + measured.model + ".mzn"});
  fs::remove(flat);
  RunProgram(command, std::chrono::seconds(600));
  if (!fs::exists(flat)) throw std::runtime_error("minizinc does not compile " + measured.name);
  return flat;
}

std::vector<std::string> CommandFor(const std::string& solver, const SearchCase& measured,
                                    const fs::path& flat) {
  std::vector<std::string> command = {solver, "-s"};
  if (measured.wanted == SearchCase::Wanted::kAll) command.push_back("-a");
  command.push_back(flat.string());
  return command;
}

bool FoundTheSame(const SearchCase& measured, const Findings& a, const Findings& b) {
  if (a.is_complete != b.is_complete) return false;
  // On the way to an optimum each may see other solutions.
  return measured.wanted == SearchCase::Wanted::kOptimum ? (a.solutions > 0) == (b.solutions > 0)
                                                         : a.solutions == b.solutions;
}

class Table {
 public:
  Table() {
    std::cout << std::left << std::setw(32) << "case" << std::right << std::setw(9) << "failures"
              << std::setw(10) << "(gecode)" << std::setw(9) << "kiv s" << std::setw(10)
              << "gecode s" << std::setw(8) << "ratio" << std::setw(11) << "knodes/s"
              << std::setw(10) << "(gecode)" << std::setw(8) << "MB" << std::setw(10) << "(gecode)"
              << std::setw(8) << "ratio" << '\n';
  }

  void Add(const SearchCase& measured, const Contender& kiv, const Contender& gecode) {
    const double ratio = Median(kiv.seconds) / Median(gecode.seconds);
    std::cout << std::left << std::setw(32) << measured.name << std::right << std::fixed
              << std::setprecision(0) << std::setw(9) << kiv.findings.failures << std::setw(10)
              << gecode.findings.failures << std::setprecision(3) << std::setw(9)
              << Median(kiv.seconds) << std::setw(10) << Median(gecode.seconds)
              << std::setprecision(2) << std::setw(8) << ratio << std::setprecision(0)
              << std::setw(11) << kiv.NodesPerSecond() / 1000 << std::setw(10)
              << gecode.NodesPerSecond() / 1000 << std::setprecision(1) << std::setw(8)
              << kiv.megabytes << std::setw(10) << gecode.megabytes << std::setprecision(2)
              << std::setw(8) << kiv.megabytes / gecode.megabytes << std::endl;
    ratios_.push_back(ratio);
  }

  void Finish() const {
    if (ratios_.empty()) return;
    const auto count = [&](double most) {
      return std::count_if(ratios_.begin(), ratios_.end(), [&](double r) { return r <= most; });
    };
    std::cout << ratios_.size() << " cases: " << count(0.5) << " at most half of Gecode's time, "
              << count(1.0) << " at most its time, " << count(2.0)
              << " at most twice; median ratio " << std::setprecision(2) << Median(ratios_) << '\n';
  }

 private:
  std::vector<double> ratios_;
};

// Whether both found the same.
bool Measure(const SearchCase& measured, const Settings& settings, const fs::path& folder,
             Table& table) {
  const bool is_own = measured.library == SearchCase::Library::kOwn;
  Contender gecode;
  gecode.command =
      CommandFor(settings.gecode, measured,
                 Compile(measured, is_own ? settings.gecode_library : "-Gstd", folder / "gecode"));
  Contender kiv;
  kiv.command =
      CommandFor(settings.kiv, measured,
                 Compile(measured, is_own ? settings.kiv_library : "-Gstd", folder / "kiv"));
  for (int i = 0; i < settings.runs; ++i) {
    kiv.RunOnce(settings);
    gecode.RunOnce(settings);
  }
  if (!kiv.succeeded || !gecode.succeeded) {
    std::cout << measured.name << ": " << (kiv.succeeded ? "fzn-gecode" : "fzn-kiv")
              << " did not end in time" << std::endl;
    return false;
  }
  if (!FoundTheSame(measured, kiv.findings, gecode.findings)) {
    std::cout << measured.name << ": fzn-kiv found " << kiv.findings.solutions
              << " solutions, fzn-gecode " << gecode.findings.solutions << std::endl;
    return false;
  }
  table.Add(measured, kiv, gecode);
  return true;
}

int Main(int argc, char** argv) {
  Settings settings;
  CLI::App app("fzn-kiv against fzn-gecode, in turns, on the same searches");
  app.add_option("--runs", settings.runs, "Runs of each solver on each case")
      ->capture_default_str();
  app.add_option("--limit", settings.limit, "Seconds for one run")->capture_default_str();
  app.add_option("--filter", settings.filter, "Only the cases with this in their names");
  app.add_option("--kiv", settings.kiv, "The command fzn-kiv")->capture_default_str();
  app.add_option("--gecode", settings.gecode, "The command fzn-gecode")->capture_default_str();
  app.add_option("--gecode-library", settings.gecode_library,
                 "Gecode's own MiniZinc library, for the cases *_own")
      ->capture_default_str();
  CLI11_PARSE(app, argc, argv);
  settings.runs = std::max(settings.runs, 1);

  const fs::path folder =
      fs::temp_directory_path() / ("kiv_bench_search_" + std::to_string(getpid()));
  fs::create_directories(folder / "kiv");
  fs::create_directories(folder / "gecode");
  Table table;
  bool all_equal = true;
  for (const SearchCase& measured : SearchCases()) {
    if (measured.name.find(settings.filter) == std::string::npos) continue;
    all_equal &= Measure(measured, settings, folder, table);
  }
  table.Finish();
  fs::remove_all(folder);
  return all_equal ? 0 : 1;
}

}  // namespace
}  // namespace kiv::bench

int main(int argc, char** argv) {
  try {
    return kiv::bench::Main(argc, argv);
  } catch (const std::exception& error) {
    std::cerr << "bench_search: " << error.what() << '\n';
    return 1;
  }
}
