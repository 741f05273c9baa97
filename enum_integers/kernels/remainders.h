#pragma once

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <functional>

#include "enum_integers/kernels/bit_window.h"
#include "enum_integers/kernels/candidate_table.h"
#include "enum_integers/kernels/collections.h"
#include "enum_integers/kernels/values.h"

// Remainders of the division truncated toward zero: the sign is that of the dividend. The modulus
// is never 0.
namespace kiv::kernels {

// The values that are not negative, or the magnitudes of those that are, as a window of bits.
inline BitWindow WindowOfMagnitudes(Values values) {
  if (values.front() >= 0) return BitWindow(values);
  BitWindow magnitudes(-std::int64_t{values.back()}, -std::int64_t{values.front()});
  for (const std::int32_t v : values) magnitudes.Add(-std::int64_t{v});
  return magnitudes;
}

// Whether to fold the window of `part` by a modulus is less work than to divide every value.
inline bool SuitsFolding(Values part) {
  constexpr std::uint64_t kWordsPerValue = 2;
  return part.empty() ||
         (BitWindow::Fits(part.front(), part.back()) &&
          BitWindow::CountWords(part.front(), part.back()) <= kWordsPerValue * (part.size() + 8));
}

// The remainders of the magnitudes of `part`, all of one sign and not empty, by all moduli; up to
// `greatest`. A modulus so small that it cuts the window into more parts than there are values
// divides these one by one.
inline BitWindow CollectMagnitudes(Values part, Values moduli, std::int64_t greatest) {
  const BitWindow magnitudes = WindowOfMagnitudes(part);
  BitWindow remainders(0, greatest);
  for (const std::int64_t modulus : moduli) {
    const auto m = static_cast<std::uint64_t>(std::abs(modulus));
    if (magnitudes.GetWidth() / m <= part.size()) {
      remainders.AddFolded(magnitudes, m);
    } else {
      for (const std::int64_t v : part) remainders.Add(std::abs(v % modulus));
    }
  }
  return remainders;
}

// The remainders x mod y; 0 is not among y. Hands the collection to `take` and returns what that
// returns. A remainder has the sign of the dividend and is less than the modulus and not above the
// dividend in magnitude, which makes a small window for either sign.
template <class Take>
auto CollectRemainders(Values x, Values y, std::uint32_t cap, Take take) {
  if (x.empty() || y.empty()) return take(NilCollection());
  const std::uint64_t candidates = std::uint64_t{x.size()} * y.size();
  const auto in_order = [&] { return CollectInOrder(x, y, cap, std::modulus(), take); };
  const auto middle = std::lower_bound(x.begin(), x.end(), 0);
  const Values negative(x.begin(), middle);
  const Values others(middle, x.end());
  const std::int64_t below =
      std::max(std::abs(std::int64_t{y.front()}), std::abs(std::int64_t{y.back()})) - 1;
  const std::int64_t lowest =
      negative.empty() ? 0 : std::max(std::int64_t{negative.front()}, -below);
  const std::int64_t highest = others.empty() ? 0 : std::min(std::int64_t{others.back()}, below);
  if (!BitWindow::Fits(lowest, highest) || !SuitsFolding(negative) || !SuitsFolding(others)) {
    return in_order();
  }
  BitWindow remainders(lowest, highest);
  if (!negative.empty()) remainders.AddMirrored(CollectMagnitudes(negative, y, -lowest));
  if (!others.empty()) remainders.AddMoved(CollectMagnitudes(others, y, highest), 0);
  return TakeUnlessFull(remainders, candidates, cap, take, in_order);
}

}  // namespace kiv::kernels
