#include "solver/constraints/resource_profile.h"

#include <algorithm>

namespace kiv {

ResourceProfile::ResourceProfile(std::size_t uses) {
  changes_.reserve(2 * uses);
  segments_.reserve(2 * uses);
}

void ResourceProfile::Clear() {
  changes_.clear();
  segments_.clear();
  peak_ = 0;
}

void ResourceProfile::Add(const Use& use) {
  if (use.IsEmpty()) return;
  changes_.push_back({use.begin, use.amount});
  changes_.push_back({use.end, -use.amount});
}

void ResourceProfile::Build() {
  std::ranges::sort(changes_, {}, &Change::time);
  std::int64_t amount = 0;
  for (std::size_t i = 0; i < changes_.size(); ++i) {
    const bool has_passed = i > 0 && changes_[i - 1].time < changes_[i].time;
    if (has_passed && amount > 0) {
      segments_.push_back({changes_[i - 1].time, changes_[i].time, amount});
      peak_ = std::max(peak_, amount);
    }
    amount += changes_[i].amount;
  }
}

}  // namespace kiv
