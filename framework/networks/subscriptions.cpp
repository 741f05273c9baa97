#include "framework/networks/subscriptions.h"

#include <utility>

// The new one goes to the end, and from there to the front of each part that stands behind its own:
// what it meets there makes room by going to the end.
void KivOmbiSubscriptions::Add(const Subscription& subscription, KivOmbiEvent events) {
  if ((events & (kKivFixed | kKivBounds | kKivValues)) == 0) return;
  std::size_t place = subscriptions_.size();
  subscriptions_.push_back(subscription);
  if ((events & (kKivBounds | kKivValues)) == 0) return;
  std::swap(subscriptions_[place], subscriptions_[first_of_fixed_]);
  place = first_of_fixed_++;
  if ((events & kKivValues) == 0) return;
  std::swap(subscriptions_[place], subscriptions_[first_of_bounds_]);
  ++first_of_bounds_;
}
