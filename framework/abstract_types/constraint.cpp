#include "framework/abstract_types/constraint.h"

#include <array>
#include <vector>

KivOmbiConstraint::~KivOmbiConstraint() = default;

// The address of a descriptor's name is as unique as its class.
const char* KivOmbiConstraint::CastableID() const { return descriptor_->GetName().c_str(); }

int KivOmbiConstraint::IsDerivedFrom(const char* ident) const {
  return ident == CastableID() ? 1 : KivOmbiObject::IsDerivedFrom(ident);
}

void KivOmbiConstraint::PrintOn(Kivostrstream& out) const { out << descriptor_->GetName(); }

void KivOmbiConstraint::Activate(KivOmbiNetwork* network) {
  network->Enqueue(number_, kKivAnyEvent);
}

void KivOmbiConstraint::ActivateByArgument(unsigned, std::int64_t events, KivOmbiNetwork* network) {
  network->Enqueue(number_, events);
}

std::int64_t KivOmbiConstraint::Filter(const KivOmbiObjectEnvironment& environment, std::int64_t) {
  return Settle(environment) | kKivAtFixpoint;
}

KivOmbiFilterResult KivOmbiConstraint::Settle(const KivOmbiObjectEnvironment& environment) const {
  if (!environment.AllFixed()) return 0;
  // Most constraints have few arguments; those need no memory.
  std::array<std::int64_t, 4> few;
  std::vector<std::int64_t> many;
  const unsigned count = environment.Count();
  if (count > few.size()) many.resize(count);
  const std::span<std::int64_t> values =
      count > few.size() ? std::span(many) : std::span(few).first(count);
  for (unsigned i = 0; i < count; ++i) values[i] = environment.Summary(i).lower;
  return Holds(values) ? kKivEntailed : kKivContradiction;
}

KivOmbiConstraint::Cost KivOmbiConstraint::GetCost() const { return kTernary; }

std::int64_t KivOmbiConstraint::GetWakingEvents(unsigned, unsigned) const { return kKivAnyEvent; }
