#include "solver/constraints/hall_intervals.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace kiv {

namespace {

// Both trees are forests of steps over the places. Steps that lead up lead to a root, whose own
// step leads down.
unsigned FollowUp(const std::vector<unsigned>& steps, unsigned place) {
  while (place < steps[place]) place = steps[place];
  return place;
}

// Lets the places on the way from `from` to `to`, which is left as it is, step to `target` at once.
void Shorten(std::vector<unsigned>& steps, unsigned from, unsigned to, unsigned target) {
  while (from != to) from = std::exchange(steps[from], target);
}

}  // namespace

void HallIntervals::Resize(unsigned count) {
  intervals_.resize(count);
  by_upper_.resize(count);
  std::iota(by_upper_.begin(), by_upper_.end(), 0u);
  ends_.reserve(2 * std::size_t{count} + 2);
  places_.resize(count);
  room_.reserve(2 * std::size_t{count} + 2);
  left_.reserve(2 * std::size_t{count} + 2);
  hall_.reserve(2 * std::size_t{count} + 2);
}

bool HallIntervals::Narrow() {
  if (intervals_.empty()) return true;
  if (!RaiseLowerEnds()) return false;
  Mirror();
  const bool possible = RaiseLowerEnds();
  Mirror();
  return possible;
}

bool HallIntervals::AreDisjoint() const {
  // The order of the last pass is by lower ends, from above.
  const auto meet = [&](unsigned above, unsigned below) {
    return intervals_[below].upper >= intervals_[above].lower;
  };
  return std::ranges::adjacent_find(by_upper_, meet) == by_upper_.end();
}

void HallIntervals::Mirror() {
  for (Interval& interval : intervals_) interval = {-interval.upper, -interval.lower};
}

void HallIntervals::PlaceEnds() {
  ends_.clear();
  for (const Interval& interval : intervals_) {
    ends_.push_back(interval.lower);
    ends_.push_back(interval.upper + 1);
  }
  std::ranges::sort(ends_);
  ends_.erase(std::unique(ends_.begin(), ends_.end()), ends_.end());
  ends_.insert(ends_.begin(), ends_.front() - 2);
  ends_.push_back(ends_.back() + 2);
  const auto place = [&](std::int64_t end) {
    return static_cast<unsigned>(std::ranges::lower_bound(ends_, end) - ends_.begin());
  };
  for (std::size_t i = 0; i < intervals_.size(); ++i) {
    places_[i] = {place(intervals_[i].lower), place(intervals_[i].upper + 1)};
  }
}

// Intervals take an integer each in the order of their upper ends, as low as is left. Where the
// integers up to an upper end are used up, a Hall interval ends.
bool HallIntervals::RaiseLowerEnds() {
  std::ranges::sort(by_upper_, {}, [&](unsigned i) { return std::pair(intervals_[i].upper, i); });
  PlaceEnds();
  const auto places = static_cast<unsigned>(ends_.size());
  room_.resize(places);
  left_.resize(places);
  hall_.resize(places);
  for (unsigned p = 1; p < places; ++p) {
    room_[p] = hall_[p] = p - 1;
    left_[p] = ends_[p] - ends_[p - 1];
  }
  room_[0] = hall_[0] = 0;

  for (const unsigned i : by_upper_) {
    const auto [begin, end] = places_[i];
    unsigned room = FollowUp(room_, begin + 1);
    const unsigned below = room_[room];
    if (--left_[room] == 0) {
      room_[room] = room + 1;
      room = FollowUp(room_, room + 1);
      room_[room] = below;
    }
    Shorten(room_, begin + 1, room, room);
    if (left_[room] < ends_[room] - ends_[end]) return false;
    if (hall_[begin] > begin) {
      const unsigned out = FollowUp(hall_, hall_[begin]);
      intervals_[i].lower = ends_[out];
      Shorten(hall_, begin, out, out);
    }
    if (left_[room] == ends_[room] - ends_[end]) {
      Shorten(hall_, hall_[end], below - 1, end);
      hall_[end] = below - 1;
    }
  }
  return true;
}

}  // namespace kiv
