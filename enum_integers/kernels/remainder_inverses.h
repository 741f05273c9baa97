#pragma once

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <limits>

#include "enum_integers/kernels/candidate_table.h"
#include "enum_integers/kernels/collections.h"
#include "enum_integers/kernels/membership.h"
#include "enum_integers/kernels/progressions.h"
#include "enum_integers/kernels/scratch.h"
#include "enum_integers/kernels/search.h"
#include "enum_integers/kernels/values.h"

// The dividends and the moduli that go with some results of z = x mod y. An inverse offers a value
// of its target again for every pair that it fits, so a target of less values than the cap never
// makes too many candidates, and each of its values is settled by the first pair that fits. A
// larger target is collected literally.
//
// The pairs of one modulus are looked at in the way that is less work: every dividend is divided,
// or the integers that leave a result are looked up among the dividends.
namespace kiv::kernels {

// Values listed in ascending order; one that is listed before is not repeated.
class ListedValues {
 public:
  explicit ListedValues(std::size_t most) : values_(most) {}

  bool HasRoom() const { return values_.Get() != nullptr; }
  void Add(std::int32_t v) {
    if (count_ == 0 || values_.Get()[count_ - 1] != v) values_.Get()[count_++] = v;
  }
  Values View() const { return {values_.Get(), count_}; }

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

// Hands those of `target`, less than the cap, that `fits` accepts to `take`.
template <class Fits, class Take>
auto CollectFitting(Values target, Fits fits, Take take) {
  ListedValues fitting(target.size());
  if (!fitting.HasRoom()) return take(AnyCollection());
  for (const std::int32_t v : target) {
    if (fits(v)) fitting.Add(v);
  }
  return fitting.Count() == 0 ? take(NilCollection()) : take(fitting);
}

// Of so few divisions none is worth a branch to avoid it.
constexpr std::size_t kFewDivisions = 8;

// Whether `leaves_result` accepts one of a few values.
template <class LeavesResult>
bool AnyOfFew(Values few, LeavesResult leaves_result) {
  bool any = false;
  for (const std::int32_t v : few) any |= leaves_result(v);
  return any;
}

// What is known of a value of the target before anything is divided.
enum Verdict : std::int32_t { kOpen, kFits, kFitsNot };

// Of less dividends none is looked up.
constexpr std::size_t kFewDividends = 16;

// Whether to look the dividends of `results` by `m` up among those of `x` is less work than to
// divide them.
inline bool SuitsLookup(const Progressions& results, std::int32_t m, Values x) {
  return x.size() >= kFewDividends && m != 0 && results.CountAtMost(std::abs(m)) < x.size();
}

// The literal collection of a target that may hold too many candidates: offers target(x, m) for
// every pair that fits.
template <class Fits, class Target, class Take>
auto CollectFittingInOrder(Values x, Values y, std::uint32_t cap, Fits fits, Target target,
                           Take take) {
  CandidateTable table(std::uint64_t{x.size()} * y.size(), cap);
  for (const std::int32_t dividend : x) {
    for (const std::int32_t m : y) {
      if (fits(dividend, m)) table.Insert(target(dividend, m));
    }
  }
  return TakeTable(table, take);
}

// Tells those of `x` to fit that leave a result by one of `moduli`.
inline void LookDividendsUp(const Progressions& results, Values x, Values moduli,
                            std::int32_t* verdicts) {
  WithMembership(x, [&](const auto& is_dividend) {
    for (const std::int32_t m : moduli) {
      results.AnyOf(std::abs(m), [&](std::int32_t v) {
        if (is_dividend(v)) verdicts[CountBelow(x, v)] = kFits;
        return false;
      });
    }
  });
}

// The dividends of `x` with a remainder in `z` by some modulus of `y`, which does not hold 0. Hands
// the collection to `take` and returns what that returns.
template <class Take>
auto CollectDividends(Values z, Values x, Values y, std::uint32_t cap, Take take) {
  if (z.empty() || x.empty() || y.empty()) return take(NilCollection());
  if (x.size() < std::min<std::size_t>(kFewDividends, cap) && y.size() <= kFewDivisions) {
    return WithMembership(z, [&](const auto& is_result) {
      const auto fits = [&](std::int32_t dividend) {
        return AnyOfFew(y, [&](std::int32_t m) { return is_result(dividend % m); });
      };
      return CollectFitting(x, fits, take);
    });
  }
  ListedValues looked_up(y.size());
  ListedValues divided_by(y.size());
  const Scratch verdicts(x.size());
  if (!looked_up.HasRoom() || !divided_by.HasRoom() || verdicts.Get() == nullptr) {
    return take(AnyCollection());
  }
  const Progressions results(z, x.front(), x.back());
  for (const std::int32_t m : y) (SuitsLookup(results, m, x) ? looked_up : divided_by).Add(m);
  std::fill_n(verdicts.Get(), x.size(), kOpen);
  if (looked_up.Count() > 0) LookDividendsUp(results, x, looked_up.View(), verdicts.Get());
  return WithMembership(z, [&](const auto& is_result) {
    if (x.size() >= cap) {
      return CollectFittingInOrder(
          x, y, cap, [&](std::int32_t dividend, std::int32_t m) { return is_result(dividend % m); },
          [](std::int32_t dividend, std::int32_t) { return dividend; }, take);
    }
    const std::int32_t greatest = std::max(std::abs(y.front()), std::abs(y.back()));
    const Values moduli = divided_by.View();
    const auto fits = [&, verdict = verdicts.Get()](std::int32_t dividend) mutable {
      if (*verdict++ == kFits) return true;
      const auto leaves_result = [&](std::int32_t m) { return is_result(dividend % m); };
      if (moduli.size() <= kFewDivisions) return AnyOfFew(moduli, leaves_result);
      const std::int32_t magnitude = std::abs(dividend);
      // A modulus of greater magnitude leaves the dividend as it is.
      if (magnitude < greatest && is_result(dividend)) return true;
      const unsigned first = CountBelow(moduli, -magnitude);
      const Values dividing = moduli.subspan(first, CountUpTo(moduli, magnitude) - first);
      return std::any_of(dividing.begin(), dividing.end(), leaves_result);
    };
    return CollectFitting(x, fits, take);
  });
}

// Settles those of `y` for which looking dividends up is less work.
inline void LookModuliUp(const Progressions& results, Values x, Values y, std::int32_t* verdicts) {
  WithMembership(x, [&](const auto& is_dividend) {
    for (const std::int32_t m : y) {
      const bool settles = SuitsLookup(results, m, x);
      *verdicts++ = !settles ? kOpen : results.AnyOf(std::abs(m), is_dividend) ? kFits : kFitsNot;
    }
  });
}

// The moduli of `y` with a remainder of some dividend of `x` in `z`; 0 goes with every dividend.
template <class Take>
auto CollectModuli(Values z, Values x, Values y, std::uint32_t cap, Take take) {
  if (x.empty() || y.empty()) return take(NilCollection());
  if (x.size() <= kFewDivisions && y.size() < cap) {
    return WithMembership(z, [&](const auto& is_result) {
      const auto fits = [&](std::int32_t m) {
        return m == 0 ||
               AnyOfFew(x, [&](std::int32_t dividend) { return is_result(dividend % m); });
      };
      return CollectFitting(y, fits, take);
    });
  }
  const Scratch verdicts(y.size());
  if (verdicts.Get() == nullptr) return take(AnyCollection());
  std::fill_n(verdicts.Get(), y.size(), kOpen);
  const Progressions results(z, x.front(), x.back());
  if (std::any_of(y.begin(), y.end(), [&](std::int32_t m) { return SuitsLookup(results, m, x); })) {
    LookModuliUp(results, x, y, verdicts.Get());
  }
  return WithMembership(z, [&](const auto& is_result) {
    if (y.size() >= cap) {
      return CollectFittingInOrder(
          x, y, cap,
          [&](std::int32_t dividend, std::int32_t m) { return m == 0 || is_result(dividend % m); },
          [](std::int32_t, std::int32_t m) { return m; }, take);
    }
    // A dividend of less magnitude than the modulus is its own remainder.
    std::int64_t least_own_result = std::numeric_limits<std::int64_t>::max();
    for (const std::int32_t dividend : x) {
      if (is_result(dividend))
        least_own_result = std::min<std::int64_t>(least_own_result, std::abs(dividend));
    }
    const auto fits = [&, verdict = verdicts.Get()](std::int32_t m) mutable {
      if (const std::int32_t known = *verdict++; known != kOpen) return known == kFits;
      if (m == 0) return true;
      const auto leaves_result = [&](std::int32_t dividend) { return is_result(dividend % m); };
      const std::int32_t magnitude = std::abs(m);
      if (magnitude > least_own_result) return true;
      const auto negative_end = x.begin() + CountUpTo(x, -magnitude);
      return std::any_of(x.begin(), negative_end, leaves_result) ||
             std::any_of(x.begin() + CountBelow(x, magnitude), x.end(), leaves_result);
    };
    return CollectFitting(y, fits, take);
  });
}

}  // namespace kiv::kernels
