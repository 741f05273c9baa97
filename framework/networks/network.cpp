#include "framework/networks/network.h"

#include <algorithm>
#include <array>
#include <cassert>
#include <stdexcept>
#include <utility>

#include "framework/abstract_types/boolean.h"
#include "framework/intervals/sub_int_base.h"
#include "framework/networks/entailment_check.h"

namespace {

// The largest alignment of the objects that descriptors construct: plain new's.
constexpr std::size_t kObjectAlignment = alignof(std::max_align_t);

// The events of a variable that a constraint is to hear of. What it asks for only where inner
// values may stay is its bounds, unless the domain can lose every value from now on: its kind holds
// gaps, it is known and without an open end, and stays so since no level can be taken back.
KivOmbiEvent WakingEvents(const KivOmbiConstraint& constraint, unsigned argument,
                          unsigned arguments, const KivOmbiVariable& variable,
                          bool is_outside_levels) {
  const KivOmbiEvent events = constraint.GetWakingEvents(argument, arguments);
  if ((events & kKivBoundsOfGapless) == 0) return events;
  const KivOmbiDomainSummary& summary = variable.summary;
  const bool is_closed = summary.lower > SubIntBase::kMin && summary.upper < SubIntBase::kMax;
  const bool loses_any_value = variable.kind->HoldsGaps() && is_closed && is_outside_levels;
  return loses_any_value ? events : events | kKivBounds;
}

}  // namespace

KivOmbNetwork::KivOmbNetwork() = default;

KivOmbNetwork::~KivOmbNetwork() {
  for (const Constraint& constraint : constraints_) {
    constraint.object->GetDescriptor()->DestroyObject(constraint.object);
  }
  for (const KivOmbiVariable& variable : variables_) variable.kind->DestroyObject(variable.domain);
  for (const Assertion& assertion : assertions_) DestroyCopy(assertion.value);
  for (const ScratchObjects& scratch : scratch_) {
    for (KivOmbiObject* object : scratch.objects) scratch.kind->DestroyObject(object);
  }
}

KivOmbiObject* KivOmbNetwork::Construct(const KivOmbiObjectDescriptor& kind) {
  const std::int64_t size = kind.GetObjectSize();
  if (size <= 0) throw std::invalid_argument("a kind without objects: " + kind.GetName());
  KivOmbiObject* object =
      kind.ConstructObject(memory_.Allocate(static_cast<std::size_t>(size), kObjectAlignment));
  if (object == nullptr) throw std::bad_alloc();
  return object;
}

KivOmbNetwork::VariableId KivOmbNetwork::AddVariable(const KivOmbiObjectDescriptor& kind) {
  KivOmbiObject* object = Construct(kind);
  auto* domain = KivCast<KivOmbiAny>(object);
  if (domain == nullptr) {
    kind.DestroyObject(object);
    throw std::invalid_argument("not a kind of domain: " + kind.GetName());
  }
  const auto id = static_cast<VariableId>(variables_.size());
  domain->SetOwner(this, id);
  const bool is_boolean = KivCast<KivOmbiBoolean>(object) != nullptr;
  variables_.push_back({domain, &kind, kind.Summarize(*domain), 0, is_boolean});
  subscriptions_.emplace_back();
  return id;
}

KivOmbNetwork::ConstraintId KivOmbNetwork::Post(const KivOmbiCompoundObjectDescriptor& row,
                                                VariableId left, VariableId right,
                                                VariableId result) {
  const KivOmbiConstraintDescriptor& kind = *row.GetConstraint();
  const KivOmbiArgumentOrder& order = row.GetOrder();
  std::array<VariableId, 3> arguments{kNone, kNone, kNone};
  arguments[order.left] = left;
  if (order.right != KivOmbiArgumentOrder::kNone) arguments[order.right] = right;
  arguments[order.result] = result;
  unsigned count = kind.GetNumberOfArguments();
  if (arguments[count - 1] == kNone && kind.GetOptionalArguments() > 0) --count;
  const auto used = std::span(arguments).first(count);
  if (std::ranges::any_of(used, [&](VariableId id) { return id >= variables_.size(); })) {
    throw std::invalid_argument("an operand of '" + row.GetSymbol() + "' is missing");
  }
  void* memory = memory_.Allocate(static_cast<std::size_t>(kind.GetObjectSize()), kObjectAlignment);
  return Adopt(static_cast<KivOmbiConstraint*>(kind.ConstructObjectFrom(memory, &row)), used,
               false);
}

KivOmbNetwork::ConstraintId KivOmbNetwork::Adopt(KivOmbiConstraint* object,
                                                 std::span<const VariableId> arguments,
                                                 bool decides_to_run) {
  const auto id = static_cast<ConstraintId>(constraints_.size());
  const auto count = static_cast<std::uint32_t>(arguments.size());
  object->SetNumber(id);
  constraints_.push_back({.object = object,
                          .first_argument = static_cast<std::uint32_t>(arguments_.size()),
                          .arguments = count,
                          .cost = static_cast<std::uint8_t>(object->GetCost()),
                          .decides_to_run = decides_to_run});
  arguments_.insert(arguments_.end(), arguments.begin(), arguments.end());
  for (std::uint32_t i = 0; i < count; ++i) {
    subscriptions_[arguments[i]].Add(
        {id, i}, WakingEvents(*object, i, count, variables_[arguments[i]], GetLevel() == 0));
  }
  if (GetLevel() > 0) late_posts_.push_back({id, GetLevel()});
  object->Activate(this);
  return id;
}

std::span<const KivOmbNetwork::VariableId> KivOmbNetwork::GetArguments(ConstraintId id) const {
  const Constraint& constraint = constraints_[id];
  return std::span(arguments_).subspan(constraint.first_argument, constraint.arguments);
}

KivOmbiObjectEnvironment KivOmbNetwork::EnvironmentOf(const Constraint& constraint) {
  return {*this, variables_.data(), arguments_.data() + constraint.first_argument,
          constraint.arguments};
}

KivOmbNetwork::Outcome KivOmbNetwork::Propagate() {
  while (outcome_ == Outcome::kFixpoint) {
    // Asked even when nothing has to run, or a search without constraints could not be stopped.
    if (IsToStop()) return Outcome::kStopped;
    if (queue_.IsEmpty()) break;
    observer_ == nullptr ? Run(queue_.Pop()) : RunObserved(queue_.Pop());
  }
  // An overflow is only told when nothing contradicts: what is contradictory needs no value.
  if (outcome_ == Outcome::kFixpoint && overflow_) Fail(Outcome::kOverflow, overflow_);
  if (outcome_ != Outcome::kFixpoint) ClearQueue();
  return outcome_;
}

void KivOmbNetwork::RunObserved(ConstraintId id) {
  observer_->BeforeStep(*this, id, GetArguments(id));
  Run(id);
  observer_->AfterStep(*this, id, GetArguments(id));
}

// Reading the clock costs as much as a cheap run, so it is read once in a while.
bool KivOmbNetwork::IsToStop() {
  constexpr std::uint64_t kRunsPerReading = 256;
  if (stop_ != nullptr && stop_->load(std::memory_order_relaxed)) return true;
  return deadline_ && statistics_.runs % kRunsPerReading == 0 && Clock::now() >= *deadline_;
}

void KivOmbNetwork::Run(ConstraintId id) {
  Constraint& constraint = constraints_[id];
  const std::int64_t events = constraint.events;
  constraint.queued = false;
  constraint.events = 0;
  ++statistics_.runs;

  running_ = id;
  own_events_ = 0;
  const KivOmbiFilterResult result = constraint.object->Filter(EnvironmentOf(constraint), events);
  running_ = kNobody;

  if ((result & kKivContradiction) != 0 || outcome_ == Outcome::kContradiction) {
    Fail(Outcome::kContradiction, id);
    return;
  }
  assert((result & kKivAtFixpoint) == 0 || ClaimHolds(id));
  assert((result & kKivEntailed) == 0 ||
         EntailmentHolds(*constraint.object, variables_, GetArguments(id)));
  if ((result & kKivOverflow) != 0) {
    overflow_ = id;
    overflow_level_ = GetLevel();
  }
  if ((result & kKivEntailed) != 0) {
    constraint.entailed = true;
    trail_.SaveEntailment(id);
  } else if ((result & kKivAtFixpoint) == 0 && own_events_ != 0) {
    Enqueue(id, own_events_);
  }
}

// Runs a constraint that says it is at its fixpoint once more: nothing may change.
bool KivOmbNetwork::ClaimHolds(ConstraintId id) {
  Constraint& constraint = constraints_[id];
  const std::int64_t events = std::exchange(own_events_, 0);
  running_ = id;
  const KivOmbiFilterResult again =
      constraint.object->Filter(EnvironmentOf(constraint), kKivAnyEvent);
  running_ = kNobody;
  const bool unchanged = std::exchange(own_events_, events) == 0;
  return unchanged && (again & kKivContradiction) == 0 && outcome_ == Outcome::kFixpoint;
}

void KivOmbNetwork::Fail(Outcome outcome, std::optional<ConstraintId> culprit) {
  outcome_ = outcome;
  outcome_level_ = GetLevel();
  culprit_ = culprit;
}

void KivOmbNetwork::ClearQueue() {
  while (!queue_.IsEmpty()) {
    Constraint& constraint = constraints_[queue_.Pop()];
    constraint.queued = false;
    constraint.events = 0;
  }
}

std::optional<KivOmbNetwork::ConstraintId> KivOmbNetwork::FindViolated() const {
  std::vector<std::int64_t> values;
  for (ConstraintId id = 0; id < constraints_.size(); ++id) {
    values.clear();
    for (const VariableId argument : GetArguments(id)) {
      const KivOmbiDomainSummary& summary = variables_[argument].summary;
      if (!summary.IsFixed()) break;
      values.push_back(summary.lower);
    }
    const bool all_fixed = values.size() == constraints_[id].arguments;
    if (all_fixed && !constraints_[id].object->Holds(values)) return id;
  }
  return std::nullopt;
}

void KivOmbNetwork::PushLevel() {
  assert(queue_.IsEmpty() || outcome_ != Outcome::kFixpoint);
  trail_.PushLevel();
}

void KivOmbNetwork::PopLevel() {
  ClearQueue();
  trail_.PopLevel(variables_, [&](ConstraintId id) { constraints_[id].entailed = false; });
  // A level opened on top of a contradiction goes without ending it.
  if (outcome_level_ > GetLevel()) {
    outcome_ = Outcome::kFixpoint;
    culprit_.reset();
  }
  if (overflow_level_ > GetLevel()) overflow_.reset();
  // What a constraint posted at the level concluded is gone with the level; the constraint is not.
  for (LatePost& late : late_posts_) {
    if (late.level <= GetLevel()) continue;
    late.level = GetLevel();
    constraints_[late.constraint].object->Activate(this);
  }
  std::erase_if(late_posts_, [](const LatePost& late) { return late.level == 0; });
}

KivOmbNetwork::AssertionId KivOmbNetwork::Assert(VariableId variable, const KivOmbiAny& value) {
  if (value.GetDescriptor() != variables_[variable].kind) {
    throw std::invalid_argument("a value of another kind than the variable's");
  }
  const AssertionId id = next_assertion_++;
  assertions_.push_back({id, variable, Copy(value)});
  Apply(assertions_.back());
  return id;
}

void KivOmbNetwork::Retract(AssertionId assertion) {
  const auto found = std::ranges::find(assertions_, assertion, &Assertion::id);
  if (found == assertions_.end()) throw std::invalid_argument("no such assertion");
  for (auto i = found; i != assertions_.end(); ++i) PopLevel();
  DestroyCopy(found->value);
  for (auto i = assertions_.erase(found); i != assertions_.end(); ++i) Apply(*i);
  Propagate();
}

// An assertion behind a contradictory one opens its level all the same, so that levels and
// assertions go together; it is told to the network again when it matters.
void KivOmbNetwork::Apply(const Assertion& assertion) {
  Propagate();
  const Outcome before = outcome_;
  PushLevel();
  if (before != Outcome::kFixpoint) return;
  Update(assertion.variable, [&](KivOmbiAny& domain) { domain.Intersect(*assertion.value); });
  Propagate();
}

KivOmbiAny* KivOmbNetwork::Copy(const KivOmbiAny& value) {
  const KivOmbiObjectDescriptor& kind = *value.GetDescriptor();
  const auto memory = ::operator new(static_cast<std::size_t>(kind.GetObjectSize()));
  auto* copy = static_cast<KivOmbiAny*>(kind.ConstructObject(memory));
  copy->Assign(value);
  return copy;
}

void KivOmbNetwork::DestroyCopy(KivOmbiAny* copy) {
  copy->GetDescriptor()->DestroyObject(copy);
  ::operator delete(copy);
}

void KivOmbNetwork::Enqueue(std::uint32_t constraint, std::int64_t events) {
  Constraint& waiting = constraints_[constraint];
  if (!waiting.entailed) Wake(constraint, waiting, events);
}

// For a constraint that is not entailed.
void KivOmbNetwork::Wake(ConstraintId id, Constraint& constraint, KivOmbiEvent events) {
  if (running_ == id) {
    own_events_ |= events;
    return;
  }
  constraint.events |= static_cast<std::uint8_t>(events);
  if (constraint.queued) return;
  constraint.queued = true;
  queue_.Push(constraint.cost, id);
}

void KivOmbNetwork::WillChange(std::uint32_t number) {
  KivOmbiVariable& variable = variables_[number];
  if (variable.saved_at == trail_.GetStamp()) return;
  ++statistics_.saves;
  statistics_.saved_bytes += trail_.SaveDomain(number, variable);
}

void KivOmbNetwork::WillLose(std::uint32_t number, std::span<const std::int32_t> values) {
  KivOmbiVariable& variable = variables_[number];
  if (variable.saved_at == trail_.GetStamp()) return;
  ++statistics_.saves;
  statistics_.saved_bytes += trail_.SaveLoss(number, variable, values);
}

void KivOmbNetwork::Refresh(std::uint32_t number) {
  KivOmbiVariable& variable = variables_[number];
  const KivOmbiDomainSummary before = variable.summary;
  variable.summary = variable.kind->Summarize(*variable.domain);
  const KivOmbiEvent events = KivOmbiEvents(before, variable.summary);
  if (events == 0) return;
  if ((events & kKivEmptied) != 0) {
    Fail(Outcome::kContradiction, running_ != kNobody ? std::optional(running_) : std::nullopt);
    return;
  }
  for (const auto [id, argument] : subscriptions_[number].Concerned(events)) {
    Constraint& constraint = constraints_[id];
    if (constraint.entailed) continue;
    if (constraint.decides_to_run) {
      constraint.object->ActivateByArgument(argument, events, this);
    } else {
      Wake(id, constraint, events);
    }
  }
}

KivOmbiObject& KivOmbNetwork::Scratch(const KivOmbiObjectDescriptor& kind, unsigned index) {
  auto found = std::ranges::find(scratch_, &kind, &ScratchObjects::kind);
  if (found == scratch_.end()) {
    ScratchObjects scratch{&kind, {}};
    for (KivOmbiObject*& object : scratch.objects) object = Construct(kind);
    found = scratch_.insert(scratch_.end(), scratch);
  }
  return *found->objects[index];
}
