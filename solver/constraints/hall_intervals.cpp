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

// Sorts what is mostly sorted already.
template <class KeyOf>
void SortAgain(std::vector<unsigned>& order, KeyOf&& key_of) {
  std::size_t moves_left = 8 * order.size();
  for (std::size_t k = 1; k < order.size(); ++k) {
    const unsigned moving = order[k];
    const std::int64_t key = key_of(moving);
    std::size_t place = k;
    for (; place > 0 && key_of(order[place - 1]) > key; --place) {
      if (moves_left-- == 0) {
        order[place] = moving;
        std::ranges::sort(order, {}, key_of);
        return;
      }
      order[place] = order[place - 1];
    }
    order[place] = moving;
  }
}

}  // namespace

void HallIntervals::Resize(unsigned count) {
  intervals_.resize(count);
  by_lower_.resize(count);
  std::iota(by_lower_.begin(), by_lower_.end(), 0u);
  by_upper_ = by_lower_;
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
  // The last pass, over the mirrored intervals, had these in order and moved upper ends only.
  const auto meet = [&](unsigned below, unsigned above) {
    return intervals_[below].upper >= intervals_[above].lower;
  };
  return std::ranges::adjacent_find(by_lower_, meet) == by_lower_.end();
}

void HallIntervals::Mirror() {
  for (Interval& interval : intervals_) interval = {-interval.upper, -interval.lower};
  std::swap(by_lower_, by_upper_);
  std::ranges::reverse(by_lower_);
  std::ranges::reverse(by_upper_);
}

void HallIntervals::SortEnds() {
  SortAgain(by_lower_, [&](unsigned i) { return intervals_[i].lower; });
  SortAgain(by_upper_, [&](unsigned i) { return intervals_[i].upper; });
}

void HallIntervals::PlaceEnds() {
  ends_.clear();
  ends_.push_back(intervals_[by_lower_.front()].lower - 2);
  const auto place = [&](std::int64_t end) {
    if (ends_.back() != end) ends_.push_back(end);
    return static_cast<unsigned>(ends_.size() - 1);
  };
  // No interval is empty, so that all begin before the last one ends.
  auto beginning = by_lower_.begin();
  for (const unsigned i : by_upper_) {
    const std::int64_t end = intervals_[i].upper + 1;
    for (; beginning != by_lower_.end() && intervals_[*beginning].lower <= end; ++beginning) {
      places_[*beginning].begin = place(intervals_[*beginning].lower);
    }
    places_[i].end = place(end);
  }
  ends_.push_back(ends_.back() + 2);
}

// Intervals take an integer each in the order of their upper ends, as low as is left. Where the
// integers up to an upper end are used up, a Hall interval ends.
bool HallIntervals::RaiseLowerEnds() {
  SortEnds();
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
