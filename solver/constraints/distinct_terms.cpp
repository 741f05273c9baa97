#include "solver/constraints/distinct_terms.h"

#include <algorithm>
#include <functional>
#include <utility>

namespace kiv {

bool AreDistinct(std::span<const std::int64_t> values, const TermOffsets& offsets) {
  std::vector<std::int64_t> terms;
  for (unsigned i = 0; i < values.size(); ++i) terms.push_back(values[i] + OffsetOf(offsets, i));
  std::ranges::sort(terms);
  return std::ranges::adjacent_find(terms) == terms.end();
}

// A variable is told by its domain, of which it has one only.
Repetition FindRepetition(const KivOmbiObjectEnvironment& environment, const TermOffsets& offsets) {
  std::vector<std::pair<const KivOmbiAny*, std::int64_t>> terms;
  for (unsigned i = 0; i < environment.Count(); ++i) {
    terms.emplace_back(&environment.Domain(i), OffsetOf(offsets, i));
  }
  std::ranges::sort(terms, [](const auto& a, const auto& b) {
    return a.first != b.first ? std::less<>()(a.first, b.first) : a.second < b.second;
  });
  const auto same_variable = [](const auto& a, const auto& b) { return a.first == b.first; };
  return {std::ranges::adjacent_find(terms, same_variable) != terms.end(),
          std::ranges::adjacent_find(terms) != terms.end()};
}

}  // namespace kiv
