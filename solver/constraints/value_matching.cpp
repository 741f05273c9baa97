#include "solver/constraints/value_matching.h"

#include <algorithm>
#include <utility>

namespace kiv {

void ValueMatching::Start(unsigned labels) {
  last_value_.resize(labels);
  has_last_value_.resize(labels, 0);
  terms_.clear();
  edges_.clear();
}

void ValueMatching::AddTerm(unsigned label) { terms_.push_back({label, edges_.size()}); }

void ValueMatching::AddValue(std::int64_t value) { edges_.push_back({value, false}); }

// The place of a value in the universe, or kNone.
unsigned ValueMatching::PlaceOf(std::int64_t value) const {
  if (!place_of_.empty()) {
    const std::int64_t distance = value - universe_.front();
    const bool is_near = distance >= 0 && distance < static_cast<std::int64_t>(place_of_.size());
    return is_near ? place_of_[static_cast<std::size_t>(distance)] : kNone;
  }
  const auto place = std::ranges::lower_bound(universe_, value);
  return place != universe_.end() && *place == value
             ? static_cast<unsigned>(place - universe_.begin())
             : kNone;
}

bool ValueMatching::FindPlaces() {
  places_.resize(edges_.size());
  for (std::size_t e = 0; e < edges_.size(); ++e) {
    places_[e] = PlaceOf(edges_[e].value);
    if (places_[e] == kNone) return false;
  }
  return true;
}

void ValueMatching::IndexUniverse() {
  place_of_.clear();
  if (universe_.empty()) return;
  const auto width = static_cast<std::uint64_t>(universe_.back() - universe_.front()) + 1;
  if (width > 8 * std::uint64_t{universe_.size()}) return;
  place_of_.resize(width, kNone);
  for (unsigned place = 0; place < universe_.size(); ++place) {
    place_of_[static_cast<std::size_t>(universe_[place] - universe_.front())] = place;
  }
}

void ValueMatching::PlaceValues() {
  if (!FindPlaces()) {
    for (const Edge& edge : edges_) universe_.push_back(edge.value);
    std::ranges::sort(universe_);
    universe_.erase(std::unique(universe_.begin(), universe_.end()), universe_.end());
    IndexUniverse();
    FindPlaces();
  }
  values_.assign(universe_.size(), {kNone, kNone, 0});
  round_ = 0;
}

void ValueMatching::TakeLastMatching() {
  for (unsigned term = 0; term < terms_.size(); ++term) {
    if (has_last_value_[terms_[term].label] == 0) continue;
    const std::int64_t wanted = last_value_[terms_[term].label];
    const auto edges = Edges(term);
    const auto edge = std::ranges::lower_bound(edges, wanted, {}, &Edge::value);
    if (edge == edges.end() || edge->value != wanted) continue;
    const auto position = static_cast<std::size_t>(edge - edges.begin());
    const unsigned value = places_[terms_[term].first_edge + position];
    if (values_[value].owner != kNone) continue;
    values_[value].owner = term;
    terms_[term].value = value;
  }
}

bool ValueMatching::Match() {
  PlaceValues();
  TakeLastMatching();
  for (unsigned term = 0; term < terms_.size(); ++term) {
    if (terms_[term].value == kNone && !Augment(term)) return false;
    has_last_value_[terms_[term].label] = 1;
  }
  for (const Term& term : terms_) last_value_[term.label] = universe_[term.value];
  return true;
}

// Looks for a value for `root`: a free one, or one whose owner can have another. Nearest first.
bool ValueMatching::Augment(unsigned root) {
  ++round_;
  waiting_.assign(1, root);
  for (std::size_t next = 0; next < waiting_.size(); ++next) {
    const unsigned term = waiting_[next];
    for (std::size_t e = terms_[term].first_edge; e < EndOf(term); ++e) {
      Value& value = values_[places_[e]];
      if (value.round == round_) continue;
      value.round = round_;
      value.asked_by = term;
      if (value.owner == kNone) {
        PassOn(places_[e]);
        return true;
      }
      waiting_.push_back(value.owner);
    }
  }
  return false;
}

// Whoever asked for the free value gets it; the value it had is free for who asked for that.
void ValueMatching::PassOn(unsigned value) {
  while (value != kNone) {
    const unsigned term = values_[value].asked_by;
    values_[value].owner = term;
    std::swap(terms_[term].value, value);
  }
}

void ValueMatching::Classify() {
  FindComponents();
  always_taken_.clear();
  for (std::size_t v = 0; v < values_.size(); ++v) {
    const unsigned owner = values_[v].owner;
    if (owner != kNone && can_make_way_[terms_[owner].component] == 0) {
      always_taken_.push_back(universe_[v]);
    }
  }
  for (unsigned term = 0; term < terms_.size(); ++term) {
    for (std::size_t e = terms_[term].first_edge; e < EndOf(term); ++e) {
      const unsigned owner = values_[places_[e]].owner;
      edges_[e].possible = owner == kNone || terms_[owner].component == terms_[term].component ||
                           can_make_way_[terms_[owner].component] != 0;
    }
  }
}

// A term leads to the owners of its values. A component is closed after all those that it leads to,
// so that it is known then whether it can make way.
void ValueMatching::FindComponents() {
  can_make_way_.clear();
  open_.clear();
  found_ = 0;
  for (unsigned root = 0; root < terms_.size(); ++root) {
    if (terms_[root].found != 0) continue;
    Open(root);
    while (!path_.empty()) {
      auto& [term, edge] = path_.back();
      if (edge == EndOf(term)) {
        const unsigned done = term;
        path_.pop_back();
        Close(done);
        continue;
      }
      const unsigned owner = values_[places_[edge++]].owner;
      if (owner == kNone) continue;
      if (terms_[owner].found == 0) {
        Open(owner);
      } else if (terms_[owner].component == kNone) {
        terms_[term].earliest = std::min(terms_[term].earliest, terms_[owner].found);
      }
    }
  }
}

void ValueMatching::Open(unsigned term) {
  terms_[term].found = terms_[term].earliest = ++found_;
  open_.push_back(term);
  path_.push_back({term, terms_[term].first_edge});
}

void ValueMatching::Close(unsigned term) {
  if (!path_.empty()) {
    Term& parent = terms_[path_.back().term];
    parent.earliest = std::min(parent.earliest, terms_[term].earliest);
  }
  if (terms_[term].earliest != terms_[term].found) return;
  // Everything opened since is the component that `term` was found first of.
  const auto component = static_cast<unsigned>(can_make_way_.size());
  can_make_way_.push_back(0);
  auto first = open_.end();
  while (*--first != term) {
  }
  for (auto member = first; member != open_.end(); ++member) terms_[*member].component = component;
  for (auto member = first; member != open_.end() && can_make_way_[component] == 0; ++member) {
    for (std::size_t e = terms_[*member].first_edge; e < EndOf(*member); ++e) {
      const unsigned owner = values_[places_[e]].owner;
      if (owner != kNone && can_make_way_[terms_[owner].component] == 0) continue;
      can_make_way_[component] = 1;
      break;
    }
  }
  open_.erase(first, open_.end());
}

}  // namespace kiv
