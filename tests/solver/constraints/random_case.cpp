#include "tests/solver/constraints/random_case.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "tests/support/kind_shape.h"

namespace kiv::test {

void RandomCase::Add(Declared declared) {
  case_.arguments.push_back(static_cast<KivOmbNetwork::VariableId>(case_.variables.size()));
  case_.variables.push_back(std::move(declared));
}

void RandomCase::AddInteger(const Values& pool, std::size_t most, int repeat_one_in) {
  if (AddRepeated(false, repeat_one_in)) return;
  const auto* kind = PickOf(random_, IntegerKinds());
  Add({kind, RandomValues(random_, *kind, pool, most)});
}

void RandomCase::AddTerm(const Values& pool, std::size_t most, int repeat_one_in) {
  if (AddRepeated(false, repeat_one_in)) return;
  const auto& kinds = IntegerKinds();
  const KivOmbiObjectDescriptor* kind = PickOf(random_, kinds);
  if (OneIn(random_, 2)) {
    kind = *std::ranges::find_if(
        kinds, [](const auto* candidate) { return ShapeOf(*candidate) == KindShape::kSet; });
  }
  Add({.kind = kind,
       .values = RandomValues(random_, *kind, pool, most),
       .unknown = OneIn(random_, 12)});
}

void RandomCase::AddUnknown(const Values& pool) {
  Add({PickOf(random_, IntegerKinds()), pool, true});
}

void RandomCase::AddBoolean(int repeat_one_in) {
  if (AddRepeated(true, repeat_one_in)) return;
  const auto* kind = OpenModules().FindKind("bool");
  Add({kind, RandomValues(random_, *kind, Flavour::kSmall)});
}

// Of an integer it must be known that it has no other values.
void RandomCase::AddTruth() {
  if (OneIn(random_, 2)) return AddBoolean();
  const auto* kind = PickOf(random_, IntegerKinds());
  Add({.kind = kind, .values = RandomValues(random_, *kind, {0, 1}, 2), .is_truth = true});
  case_.propagates_unknown = false;
}

bool RandomCase::AreSets() const {
  return std::ranges::all_of(case_.variables, [](const Declared& variable) {
    const bool is_set = ShapeOf(*variable.kind) == KindShape::kSet || variable.values.size() == 1;
    return is_set && !variable.unknown;
  });
}

ConstraintCase RandomCase::Finish(
    std::string name, Strength strength,
    std::function<void(KivOmbNetwork&, std::span<const KivOmbNetwork::VariableId>)> post,
    std::function<bool(const Assignment&)> holds) {
  case_.name = std::move(name);
  case_.strength = strength;
  case_.post = std::move(post);
  case_.holds = std::move(holds);
  return std::move(case_);
}

bool RandomCase::AddRepeated(bool boolean, int one_in) {
  if (one_in == 0 || !OneIn(random_, one_in)) return false;
  std::vector<KivOmbNetwork::VariableId> earlier;
  for (KivOmbNetwork::VariableId id = 0; id < case_.variables.size(); ++id) {
    const bool is_boolean = case_.variables[id].kind->GetName() == "bool";
    if (is_boolean == boolean) earlier.push_back(id);
  }
  if (earlier.empty()) return false;
  case_.arguments.push_back(PickOf(random_, earlier));
  return true;
}

}  // namespace kiv::test
