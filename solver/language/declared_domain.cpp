#include "solver/language/declared_domain.h"

#include <algorithm>
#include <utility>

#include "framework/networks/network.h"

namespace kiv {
namespace {

// An interval of more values is built from its ends alone: a kind either holds the hull of what is
// inserted, or explicit values, of which it would not hold that many.
constexpr std::uint64_t kMostInserted = 1024;

}  // namespace

DeclaredDomain DeclaredDomain::FromInterval(std::int32_t lower, std::int32_t upper) {
  DeclaredDomain domain;
  domain.lower_ = lower;
  domain.upper_ = upper;
  return domain;
}

DeclaredDomain DeclaredDomain::FromValues(std::vector<std::int32_t> values) {
  DeclaredDomain domain;
  std::sort(values.begin(), values.end());
  values.erase(std::unique(values.begin(), values.end()), values.end());
  domain.lower_ = values.front();
  domain.upper_ = values.back();
  domain.values_ = std::move(values);
  return domain;
}

std::uint64_t DeclaredDomain::Count() const noexcept {
  if (!values_.empty()) return values_.size();
  return static_cast<std::uint64_t>(std::int64_t{upper_} - lower_) + 1;
}

void DeclaredDomain::BuildIn(KivOmbiInteger& target) const {
  target.SetNilValue();
  if (!values_.empty()) {
    for (const std::int32_t value : values_) target.InsertExactValue(value);
  } else if (Count() <= kMostInserted) {
    for (std::int32_t value = lower_; value <= upper_; ++value) target.InsertExactValue(value);
  } else {
    target.InsertExactValue(lower_);
    target.InsertExactValue(upper_);
  }
}

DeclaredDomain::Fit DeclaredDomain::Judge(const KivOmbiDomainSummary& built) const {
  if (built.state != KivOmbiDomainSummary::kValues) return Fit::kLost;
  if (built.lower != lower_ || built.upper != upper_ || built.cardinality < Count()) {
    return Fit::kLost;
  }
  return built.cardinality == Count() ? Fit::kExact : Fit::kWidened;
}

DeclaredDomain::Fit DeclaredDomain::JudgeKind(const KivOmbiObjectDescriptor& kind) const {
  KivOmbNetwork network;
  const KivOmbNetwork::VariableId variable = network.AddVariable(kind);
  network.Update(variable,
                 [&](KivOmbiAny& domain) { BuildIn(static_cast<KivOmbiInteger&>(domain)); });
  return Judge(network.GetSummary(variable));
}

std::string DeclaredDomain::Describe() const {
  constexpr std::size_t kMostShown = 8;
  if (values_.empty()) {
    return '[' + std::to_string(lower_) + ", " + std::to_string(upper_) + ']';
  }
  std::string text = "{ ";
  for (std::size_t i = 0; i < values_.size() && i < kMostShown; ++i) {
    if (i > 0) text += ", ";
    text += std::to_string(values_[i]);
  }
  return text + (values_.size() > kMostShown ? ", ... }" : " }");
}

}  // namespace kiv
