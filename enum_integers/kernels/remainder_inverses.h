#pragma once

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <limits>

#include "enum_integers/kernels/bit_window.h"
#include "enum_integers/kernels/candidate_table.h"
#include "enum_integers/kernels/collections.h"
#include "enum_integers/kernels/scratch.h"
#include "enum_integers/kernels/search.h"
#include "enum_integers/kernels/values.h"

// The dividends and the moduli that go with some results of z = x mod y. An inverse offers a value
// of its target again for every pair that it fits, so a target of less values than the cap never
// makes too many candidates, and each of its values is settled by the first pair that fits. A
// larger target is collected literally.
namespace kiv::kernels {

// Values listed in ascending order; one that is listed before is not repeated.
class ListedValues {
 public:
  explicit ListedValues(std::size_t most) : values_(most) {}

  bool HasRoom() const { return values_.Get() != nullptr; }
  void Add(std::int32_t v) {
    if (count_ == 0 || values_.Get()[count_ - 1] != v) values_.Get()[count_++] = v;
  }

  unsigned Count() const { return count_; }
  void List(std::int32_t* out) const { std::copy_n(values_.Get(), count_, out); }
  auto Membership() const {
    return [next = values_.Get(), end = values_.Get() + count_](std::int32_t v) mutable {
      while (next != end && *next < v) ++next;
      return next != end && *next == v;
    };
  }

 private:
  Scratch values_;
  unsigned count_ = 0;
};

// Calls `use` with a function that tells quickly whether a value is among `values`.
template <class Use>
auto WithMembership(Values values, Use use) {
  constexpr std::uint64_t kWordsPerValue = 2;
  if (values.empty()) return use([](std::int32_t) { return false; });
  if (BitWindow::Fits(values.front(), values.back()) &&
      BitWindow::CountWords(values.front(), values.back()) <= kWordsPerValue * values.size()) {
    const BitWindow window(values);
    return use(window.Membership());
  }
  // A table of more would need memory.
  constexpr std::size_t kMostTabled = 1024;
  if (values.size() > kMostTabled) {
    return use([values](std::int32_t v) { return Contains(values, v); });
  }
  CandidateTable table(values.size(), static_cast<std::uint32_t>(values.size()));
  for (const std::int32_t v : values) table.Insert(v);
  return use(table.Membership());
}

// Collects those of `target` that `fits` accepts. `offer_all` offers, in order and as often as the
// literal collection does, each value that fits to the function it gets.
template <class Fits, class OfferAll, class Take>
auto CollectFitting(Values target, std::uint64_t pairs, std::uint32_t cap, Fits fits,
                    OfferAll offer_all, Take take) {
  if (target.size() < cap) {
    ListedValues fitting(target.size());
    if (!fitting.HasRoom()) return take(AnyCollection());
    for (const std::int32_t v : target) {
      if (fits(v)) fitting.Add(v);
    }
    return fitting.Count() == 0 ? take(NilCollection()) : take(fitting);
  }
  CandidateTable table(pairs, cap);
  offer_all([&table](std::int32_t v) { table.Insert(v); });
  return TakeTable(table, take);
}

// The dividends of `x` with a remainder in `z` by some modulus of `y`, which does not hold 0. Hands
// the collection to `take` and returns what that returns.
template <class Take>
auto CollectDividends(Values z, Values x, Values y, std::uint32_t cap, Take take) {
  return WithMembership(z, [&](const auto& is_result) {
    const auto fits = [&](std::int32_t dividend) {
      // A modulus of greater magnitude leaves the dividend as it is.
      const std::int32_t magnitude = std::abs(dividend);
      const unsigned first = CountBelow(y, -magnitude);
      const Values dividing = y.subspan(first, CountUpTo(y, magnitude) - first);
      return (dividing.size() < y.size() && is_result(dividend)) ||
             std::any_of(dividing.begin(), dividing.end(),
                         [&](std::int32_t m) { return is_result(dividend % m); });
    };
    const auto offer_all = [&](auto offer) {
      for (const std::int32_t dividend : x) {
        for (const std::int32_t m : y) {
          if (is_result(dividend % m)) offer(dividend);
        }
      }
    };
    return CollectFitting(x, std::uint64_t{x.size()} * y.size(), cap, fits, offer_all, take);
  });
}

// The moduli of `y` with a remainder of some dividend of `x` in `z`; 0 goes with every dividend.
template <class Take>
auto CollectModuli(Values z, Values x, Values y, std::uint32_t cap, Take take) {
  return WithMembership(z, [&](const auto& is_result) {
    const auto fits_pair = [&](std::int32_t dividend, std::int32_t m) {
      return m == 0 || is_result(dividend % m);
    };
    // A dividend of less magnitude than the modulus is its own remainder.
    std::int64_t least_own_result = std::numeric_limits<std::int64_t>::max();
    for (const std::int32_t dividend : x) {
      if (is_result(dividend))
        least_own_result = std::min<std::int64_t>(least_own_result, std::abs(dividend));
    }
    const auto fits = [&](std::int32_t m) {
      const std::int32_t magnitude = std::abs(m);
      if (m == 0) return !x.empty();
      if (magnitude > least_own_result) return true;
      const auto leaves_result = [&](std::int32_t dividend) { return is_result(dividend % m); };
      const auto negative_end = x.begin() + CountUpTo(x, -magnitude);
      return std::any_of(x.begin(), negative_end, leaves_result) ||
             std::any_of(x.begin() + CountBelow(x, magnitude), x.end(), leaves_result);
    };
    const auto offer_all = [&](auto offer) {
      for (const std::int32_t dividend : x) {
        for (const std::int32_t m : y) {
          if (fits_pair(dividend, m)) offer(m);
        }
      }
    };
    return CollectFitting(y, std::uint64_t{x.size()} * y.size(), cap, fits, offer_all, take);
  });
}

}  // namespace kiv::kernels
