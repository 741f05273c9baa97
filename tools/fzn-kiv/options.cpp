#include "tools/fzn-kiv/options.h"

#include <CLI/Validators.hpp>
#include <cstdint>
#include <limits>

namespace kiv::fzn {
namespace {

constexpr std::int64_t kMost = std::numeric_limits<std::int64_t>::max();
const CLI::Range kPositive(std::int64_t{1}, kMost);
const CLI::Range kNotNegative(std::int64_t{0}, kMost);

}  // namespace

void Options::AddTo(CLI::App& app) {
  app.add_option("FILE", file, "The file with the FlatZinc text, or - for standard input")
      ->required()
      ->type_name("");
  app.add_flag("-a,--all-solutions", all,
               "Prints all solutions; of an optimisation, each that is better than those before");
  app.add_option("-n,--num-solutions", wanted,
                 "Stops after N solutions; those of an optimisation get better one by one")
      ->type_name("N")
      ->check(kPositive);
  app.add_flag("-i,--intermediate", intermediate,
               "Prints each better solution of an optimisation, not the last one alone");
  app.add_flag("-f,--free-search", free,
               "Follows annotations of the search only as far as they seem to help");
  app.add_flag("-s,--statistics", statistics, "Prints statistics at the end");
  app.add_flag("-v,--verbose", verbose, "Tells on standard error what happens");
  app.add_option("-p,--parallel", threads, "Accepted; there is always one thread")
      ->type_name("N")
      ->check(kPositive);
  app.add_option("-r,--random-seed", seed, "Decides what is chosen at random")->type_name("SEED");
  app.add_option("-t,--time-limit", time_limit,
                 "Ends after so many milliseconds, reading included, with what was found")
      ->type_name("MS")
      ->check(kNotNegative);
}

}  // namespace kiv::fzn
