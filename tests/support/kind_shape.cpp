#include "tests/support/kind_shape.h"

#include <map>

#include "framework/abstract_types/boolean.h"
#include "tests/support/enumeration.h"

namespace kiv::test {

namespace {

KindShape TryShape(const KivOmbiObjectDescriptor& kind) {
  KivOmbNetwork network;
  const auto variable = Declare(network, {&kind, {0, 2}});
  if (KivCast<KivOmbiBoolean>(&network.GetDomain(variable)) != nullptr) return KindShape::kTruth;
  switch (network.GetSummary(variable).cardinality) {
    case 2:
      return KindShape::kSet;
    case 3:
      return KindShape::kInterval;
    default:
      return KindShape::kOneValue;
  }
}

}  // namespace

KindShape ShapeOf(const KivOmbiObjectDescriptor& kind) {
  static std::map<const KivOmbiObjectDescriptor*, KindShape> known;
  const auto found = known.find(&kind);
  return found != known.end() ? found->second : known.emplace(&kind, TryShape(kind)).first->second;
}

}  // namespace kiv::test
