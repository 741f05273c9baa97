#include "solver/constraints/bit_matching.h"

#include <algorithm>
#include <bit>
#include <numeric>
#include <utility>

namespace kiv {

void BitMatching::Start(unsigned terms, std::size_t words) {
  words_ = words;
  rows_.resize(terms * words);
  place_of_.assign(terms, kNone);
  owner_.resize(words * kBitsPerWord);
  asked_by_.resize(words * kBitsPerWord);
  taken_.assign(words, 0);
}

// The first of the wanted values that the term has, or kNone.
unsigned BitMatching::FirstOf(unsigned term, std::span<const BitWord> wanted) const {
  const BitWord* const row = rows_.data() + term * words_;
  for (std::size_t w = 0; w < words_; ++w) {
    const BitWord both = row[w] & wanted[w];
    if (both != 0) return static_cast<unsigned>(w * kBitsPerWord) + std::countr_zero(both);
  }
  return kNone;
}

unsigned BitMatching::FirstFree(unsigned term) const {
  const BitWord* const row = rows_.data() + term * words_;
  for (std::size_t w = 0; w < words_; ++w) {
    const BitWord free = row[w] & ~taken_[w];
    if (free != 0) return static_cast<unsigned>(w * kBitsPerWord) + std::countr_zero(free);
  }
  return kNone;
}

void BitMatching::Take(unsigned term, unsigned place) {
  place_of_[term] = place;
  owner_[place] = term;
  taken_[place / kBitsPerWord] |= BitOf(place);
}

bool BitMatching::Match() {
  waiting_.clear();
  const auto terms = static_cast<unsigned>(place_of_.size());
  for (unsigned term = 0; term < terms; ++term) {
    const unsigned place = place_of_[term];
    if (place < owner_.size() && HasBit(Row(term), place) && !HasBit(taken_, place)) {
      Take(term, place);
    } else {
      place_of_[term] = kNone;
    }
  }
  for (unsigned term = 0; term < terms; ++term) {
    if (place_of_[term] == kNone && !Augment(term)) return false;
  }
  return true;
}

// Looks for a value for `root`: a free one, or one whose owner can have another. Nearest first.
bool BitMatching::Augment(unsigned root) {
  waiting_.assign(1, root);
  seen_.assign(words_, 0);
  for (std::size_t next = 0; next < waiting_.size(); ++next) {
    unsigned term = waiting_[next];
    unsigned place = FirstFree(term);
    if (place == kNone) {
      const auto row = Row(term);
      for (std::size_t w = 0; w < words_; ++w) {
        ForEachBit(row[w] & ~seen_[w], w * kBitsPerWord, [&](std::size_t asked) {
          asked_by_[asked] = term;
          waiting_.push_back(owner_[asked]);
        });
        seen_[w] |= row[w];
      }
      continue;
    }
    // Who asked for it gets it; the value that it had is free for who asked for that.
    while (place != kNone) {
      const unsigned left = place_of_[term];
      Take(term, place);
      place = left;
      if (place != kNone) term = asked_by_[place];
    }
    return true;
  }
  return false;
}

void BitMatching::Classify() {
  FindAlwaysTaken();
  for (unsigned term = 0; term < place_of_.size(); ++term) {
    if (!HasBit(can_be_free_, place_of_[term])) continue;
    const auto row = Row(term);
    for (std::size_t w = 0; w < words_; ++w) row[w] &= always_taken_[w];
  }
  FindComponents();
}

// A value can be free when nobody has it, or when its owner can have one that can be free. The
// owners of all others are left in waiting_.
void BitMatching::FindAlwaysTaken() {
  can_be_free_.assign(words_, 0);
  for (unsigned term = 0; term < place_of_.size(); ++term) {
    const auto row = Row(term);
    for (std::size_t w = 0; w < words_; ++w) can_be_free_[w] |= row[w];
  }
  for (std::size_t w = 0; w < words_; ++w) can_be_free_[w] &= ~taken_[w];

  waiting_.resize(place_of_.size());
  std::iota(waiting_.begin(), waiting_.end(), 0u);
  for (bool grows = true; grows;) {
    const auto stays = std::ranges::remove_if(waiting_, [&](unsigned term) {
      if (!Meet(Row(term), can_be_free_)) return false;
      can_be_free_[place_of_[term] / kBitsPerWord] |= BitOf(place_of_[term]);
      return true;
    });
    grows = !stays.empty();
    waiting_.erase(stays.begin(), stays.end());
  }
  always_taken_.resize(words_);
  for (std::size_t w = 0; w < words_; ++w) always_taken_[w] = taken_[w] & ~can_be_free_[w];
}

// A term leads to the owners of its values. Terms whose values are always taken lead to each other
// only.
void BitMatching::FindComponents() {
  unreached_ = always_taken_;
  open_.assign(words_, 0);
  path_.resize(place_of_.size());
  components_.resize(place_of_.size());
  component_values_.resize(place_of_.size() * words_);
  for (const unsigned root : waiting_) {
    if (!HasBit(unreached_, place_of_[root])) continue;
    Open(root);
    while (path_length_ > 0) {
      const unsigned term = path_[path_length_ - 1];
      const unsigned next = FirstOf(term, unreached_);
      if (next != kNone) {
        Open(owner_[next]);
        continue;
      }
      --path_length_;
      Join(term);
      if (components_[component_count_ - 1] == term) CloseComponent();
    }
  }
}

BitWord* BitMatching::LastComponent() {
  return component_values_.data() + (component_count_ - 1) * words_;
}

// Each term is a component of its own until it is found to lead back.
void BitMatching::Open(unsigned term) {
  const unsigned place = place_of_[term];
  unreached_[place / kBitsPerWord] &= ~BitOf(place);
  open_[place / kBitsPerWord] |= BitOf(place);
  path_[path_length_++] = term;
  components_[component_count_++] = term;
  BitWord* const values = LastComponent();
  for (std::size_t w = 0; w < words_; ++w) values[w] = 0;
  values[place / kBitsPerWord] = BitOf(place);
}

// The component of `term`, the last one, takes in those before it up to the first that the term
// leads to.
void BitMatching::Join(unsigned term) {
  const auto row = Row(term);
  const auto leads_out = [&] {
    const BitWord* const last = LastComponent();
    for (std::size_t w = 0; w < words_; ++w) {
      if ((row[w] & open_[w] & ~last[w]) != 0) return true;
    }
    return false;
  };
  while (leads_out()) {
    const BitWord* const last = LastComponent();
    --component_count_;
    BitWord* const before = LastComponent();
    for (std::size_t w = 0; w < words_; ++w) before[w] |= last[w];
  }
}

void BitMatching::CloseComponent() {
  const std::span<const BitWord> values(LastComponent(), words_);
  ForEachBit(values, [&](std::size_t place) {
    const auto row = Row(owner_[place]);
    for (std::size_t w = 0; w < words_; ++w) row[w] &= ~values[w];
  });
  for (std::size_t w = 0; w < words_; ++w) open_[w] &= ~values[w];
  --component_count_;
}

}  // namespace kiv
