#include "solver/language/near_name.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace kiv {
namespace {

// Longer names are not compared: the time grows with the product of the lengths.
constexpr std::size_t kLongest = 64;

std::size_t EditDistance(std::string_view a, std::string_view b) {
  // Row i of the table of distances between prefixes, and the two rows above it.
  std::vector<std::size_t> before_last(b.size() + 1), last(b.size() + 1), row(b.size() + 1);
  for (std::size_t j = 0; j <= b.size(); ++j) last[j] = j;
  for (std::size_t i = 1; i <= a.size(); ++i) {
    row[0] = i;
    for (std::size_t j = 1; j <= b.size(); ++j) {
      const std::size_t replaced = last[j - 1] + (a[i - 1] == b[j - 1] ? 0 : 1);
      row[j] = std::min({last[j] + 1, row[j - 1] + 1, replaced});
      if (i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1]) {
        row[j] = std::min(row[j], before_last[j - 2] + 1);
      }
    }
    std::swap(before_last, last);
    std::swap(last, row);
  }
  return last[b.size()];
}

}  // namespace

std::optional<std::string> FindNearName(std::string_view name,
                                        const std::vector<std::string>& candidates) {
  if (name.size() > kLongest) return std::nullopt;
  // One mistake in three letters is a misspelling, more is another word.
  std::size_t best_distance = (name.size() + 1) / 3 + 1;
  std::optional<std::string> best;
  for (const std::string& candidate : candidates) {
    if (candidate.size() > kLongest) continue;
    const std::size_t distance = EditDistance(name, candidate);
    if (distance < best_distance && distance < std::max(name.size(), candidate.size())) {
      best_distance = distance;
      best = candidate;
    }
  }
  return best;
}

std::string SuggestNearName(std::string_view name, const std::vector<std::string>& candidates) {
  const std::optional<std::string> near = FindNearName(name, candidates);
  return near ? "; did you mean '" + *near + "'?" : std::string();
}

std::string ListNames(const std::vector<std::string>& names) {
  std::string list;
  for (const std::string& name : names) list += (list.empty() ? "'" : ", '") + name + '\'';
  return list.empty() ? "none" : list;
}

}  // namespace kiv
