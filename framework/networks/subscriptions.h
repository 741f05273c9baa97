#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "framework/base/export.h"
#include "framework/calculator/domain_summary.h"

// The constraints that are to hear of the changes of one variable, arranged by what they are to
// hear of. A fixed domain had a bound moved, and any change loses values, so that those concerned
// by a change are the first of a row: every change, then moved bounds, then fixed domains.
class KIV_EXPORT KivOmbiSubscriptions {
 public:
  struct Subscription {
    std::uint32_t constraint;
    std::uint32_t argument;
  };

  // Lets a constraint hear of changes that come with any of `events`; of none, when all that is
  // asked for is an emptied domain. Takes constant time.
  void Add(const Subscription& subscription, KivOmbiEvent events);

  // Those that are to hear of a change with `events`.
  std::span<const Subscription> Concerned(KivOmbiEvent events) const noexcept {
    const std::size_t count = (events & kKivFixed) != 0    ? subscriptions_.size()
                              : (events & kKivBounds) != 0 ? first_of_fixed_
                                                           : first_of_bounds_;
    return std::span(subscriptions_).first(count);
  }

 private:
  std::vector<Subscription> subscriptions_;
  std::uint32_t first_of_bounds_ = 0;
  std::uint32_t first_of_fixed_ = 0;
};
