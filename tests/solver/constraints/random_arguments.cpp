#include "tests/solver/constraints/random_arguments.h"

#include <algorithm>
#include <utility>

#include "tests/support/kind_shape.h"

namespace kiv::test {

void RandomArguments::Add(const Values& pool, int most, int repeated) {
  if (repeated > 0 && !arguments.empty() && OneIn(random, repeated)) {
    arguments.push_back(PickOf(random, arguments));
    repeats = true;
    return;
  }
  arguments.push_back(static_cast<KivOmbNetwork::VariableId>(variables.size()));
  // More often a kind that can have holes.
  const auto& kinds = IntegerKinds();
  const KivOmbiObjectDescriptor* kind = PickOf(random, kinds);
  if (OneIn(random, 2)) {
    kind = *std::ranges::find_if(
        kinds, [](const auto* candidate) { return ShapeOf(*candidate) == KindShape::kSet; });
  }
  variables.push_back({.kind = kind,
                       .values = RandomValues(random, *kind, pool, static_cast<std::size_t>(most)),
                       .unknown = OneIn(random, 12)});
}

bool RandomArguments::AreSets() const {
  return std::ranges::all_of(variables, [](const Declared& variable) {
    const bool is_set = ShapeOf(*variable.kind) == KindShape::kSet || variable.values.size() == 1;
    return is_set && !variable.unknown;
  });
}

ConstraintCase RandomArguments::Case(
    std::string name,
    std::function<void(KivOmbNetwork&, std::span<const KivOmbNetwork::VariableId>)> post,
    std::function<bool(const Assignment&)> holds, Strength strength) const {
  return {.name = std::move(name),
          .variables = variables,
          .arguments = arguments,
          .post = std::move(post),
          .holds = std::move(holds),
          .strength = strength};
}

}  // namespace kiv::test
