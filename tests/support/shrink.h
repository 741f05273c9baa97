#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <utility>

namespace kiv::test {

// The smallest failing case that was found, and what fails in it.
template <class Case>
struct Shrunk {
  Case smallest;
  std::string failure;
};

// Makes a failing case smaller while it still fails: goes over to the first of `smaller(case)` in
// which `find_failure(case, seed)` finds anything, and on from there. A smaller case takes other
// random choices, so that each is tried with several seeds from `seed` on; of the failures of the
// last, the one told shortest is kept. Ends after a limited number of trials.
template <class Case, class Smaller, class FindFailure>
Shrunk<Case> Shrink(Case failing, std::string failure, std::uint64_t seed, Smaller&& smaller,
                    FindFailure&& find_failure) {
  constexpr std::uint64_t kSeeds = 4;
  constexpr std::uint64_t kLastSeeds = 50;
  constexpr int kMostTrials = 1500;
  int trials = 0;
  const auto step = [&]() -> bool {
    for (Case& candidate : smaller(failing)) {
      for (std::uint64_t i = 0; i < kSeeds; ++i) {
        if (++trials > kMostTrials) return false;
        if (auto found = find_failure(candidate, seed + i)) {
          failing = std::move(candidate);
          failure = std::move(*found);
          return true;
        }
      }
    }
    return false;
  };
  while (step()) {
  }
  for (std::uint64_t i = 0; i < kLastSeeds; ++i) {
    auto found = find_failure(failing, seed + i);
    if (found && found->size() < failure.size()) failure = std::move(*found);
  }
  return {std::move(failing), std::move(failure)};
}

}  // namespace kiv::test
