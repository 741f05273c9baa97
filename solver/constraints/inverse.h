#pragma once

#include <cstdint>
#include <vector>

#include "framework/abstract_types/constraint.h"
#include "framework/networks/network.h"

namespace kiv {

// Two sequences of integers, f before g among the arguments, are each other's inverse: f[i] = j if
// and only if g[j] = i. Each counts its places from an index of its own. Sequences of different
// length are a contradiction.
//
// What one side loses the other does, as far as its kinds can lose it; only arguments that changed
// are looked at. With all-different on one side both are domain consistent.
class KIV_EXPORT Inverse final : public KivOmbiConstraint {
 public:
  // The first `f_places` arguments are f.
  Inverse(unsigned f_places, std::int32_t f_index, std::int32_t g_index);

  void Activate(KivOmbiNetwork* network) override;
  void ActivateByArgument(unsigned index, std::int64_t events, KivOmbiNetwork* network) override;
  std::int64_t Filter(const KivOmbiObjectEnvironment& environment, std::int64_t events) override;
  Cost GetCost() const override;
  std::int64_t GetWakingEvents(unsigned index, unsigned arguments) const override;
  bool Holds(std::span<const std::int64_t> values) const override;

 private:
  void Await(unsigned argument);
  KivOmbiFilterResult Channel(const KivOmbiObjectEnvironment& environment, unsigned argument);

  std::int32_t places_;
  std::int32_t f_index_;
  std::int32_t g_index_;
  bool all_changed_ = true;
  std::vector<char> is_changed_;  // by argument
  std::vector<unsigned> changed_;
};

// Posts that f and g are inverse, and that the f are all different, as strongly as suits as many
// values as places; both sides profit by it.
// Returns the constraints posted.
KIV_EXPORT std::vector<KivOmbNetwork::ConstraintId> PostInverse(
    KivOmbNetwork& network, std::span<const KivOmbNetwork::VariableId> f,
    std::span<const KivOmbNetwork::VariableId> g, std::int32_t f_index, std::int32_t g_index);

}  // namespace kiv
