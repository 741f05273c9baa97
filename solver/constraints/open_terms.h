#pragma once

#include <cstdint>
#include <span>
#include <utility>
#include <vector>

#include "framework/abstract_types/environment.h"

namespace kiv {

// The terms of a sum whose arguments were not fixed when last looked at, and what the others come
// to. Fixed terms are put behind the open ones, the latest first, so that all that has to be
// remembered for a level that is taken back is how many were open.
class OpenTerms {
 public:
  struct Term {
    std::int64_t coefficient;
    unsigned argument;
  };

  explicit OpenTerms(std::span<const std::int64_t> coefficients) : open_(coefficients.size()) {
    for (unsigned i = 0; i < open_; ++i) terms_.push_back({coefficients[i], i});
    sums_.resize(open_ + 1, 0);
  }

  std::span<const Term> Get() const { return std::span(terms_).first(open_); }

  // Calls `visit(term, summary)` for each open term, which is not fixed, and returns the sum of the
  // fixed ones. No sum may leave 64 bits.
  template <class Visit>
  std::int64_t ForEach(const KivOmbiObjectEnvironment& environment, Visit&& visit) {
    std::uint64_t open = open_;
    for (std::uint64_t k = 0; k < open;) {
      const KivOmbiDomainSummary& summary = environment.Summary(terms_[k].argument);
      if (summary.lower != summary.upper) {
        visit(terms_[k++], summary);
        continue;
      }
      --open;
      sums_[open] = sums_[open + 1] + terms_[k].coefficient * summary.lower;
      std::swap(terms_[k], terms_[open]);
    }
    environment.SetWord(open_, open);
    return sums_[open];
  }

 private:
  std::vector<Term> terms_;
  std::vector<std::int64_t> sums_;  // of the terms from a place on, as far as they are fixed
  std::uint64_t open_;
};

}  // namespace kiv
