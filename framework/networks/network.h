#pragma once

#include <atomic>
#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <utility>
#include <vector>

#include "framework/abstract_types/constraint.h"
#include "framework/abstract_types/environment.h"
#include "framework/calculator/network.h"
#include "framework/networks/network_memory.h"
#include "framework/networks/observer.h"
#include "framework/networks/propagation_queue.h"
#include "framework/networks/subscriptions.h"
#include "framework/networks/trail.h"

// Variables and constraints in memory of their own, propagated to the common fixpoint of all
// constraints, with levels to which everything can be taken back. Networks share nothing.
//
// Variables and constraints have numbers from 0 in order of creation. Domains must be built from
// Nil by insertion, so that losing the last value is a contradiction.
class KIV_EXPORT KivOmbNetwork final : public KivOmbiNetwork {
 public:
  using VariableId = std::uint32_t;
  using ConstraintId = std::uint32_t;
  using AssertionId = std::uint32_t;

  enum class Outcome {
    kFixpoint,       // no constraint can narrow anything
    kContradiction,  // some domain is empty
    kOverflow,       // an unknown variable could only be beyond the range; see GetCulprit()
    kStopped,        // by the stop flag or the deadline; Propagate() may be called again
  };

  struct Statistics {
    std::uint64_t runs = 0;         // of constraints
    std::uint64_t saves = 0;        // of domains, or of values lost, to the trail
    std::uint64_t saved_bytes = 0;  // of their states and values
  };

  KivOmbNetwork();
  ~KivOmbNetwork() override;

  // A new variable of this kind, Any. The kind must describe a domain.
  VariableId AddVariable(const KivOmbiObjectDescriptor& kind);
  std::size_t CountVariables() const noexcept { return variables_.size(); }
  const KivOmbiAny& GetDomain(VariableId variable) const { return *variables_[variable].domain; }
  const KivOmbiObjectDescriptor& GetKind(VariableId variable) const {
    return *variables_[variable].kind;
  }
  bool IsBoolean(VariableId variable) const { return variables_[variable].is_boolean; }
  const KivOmbiDomainSummary& GetSummary(VariableId variable) const {
    return variables_[variable].summary;
  }
  // Lets `edit(domain)` change the domain, to build it or to narrow it from outside, and wakes the
  // constraints concerned. Widening is only for a variable that nothing was concluded from yet.
  template <class Edit>
  void Update(VariableId variable, Edit&& edit) {
    if (observer_ != nullptr) observer_->BeforeStep(*this, std::nullopt, {&variable, 1});
    edit(*variables_[variable].domain);
    Refresh(variable);
    if (observer_ != nullptr) observer_->AfterStep(*this, std::nullopt, {&variable, 1});
  }

  // Posts the relation of an operator between its operands, as written, and its result, which may
  // be left out (kNone) where the relation does not need it. Posted at a level, it stays when the
  // level is taken back.
  static constexpr VariableId kNone = ~VariableId{0};
  ConstraintId Post(const KivOmbiCompoundObjectDescriptor& row, VariableId left, VariableId right,
                    VariableId result);
  // Posts a constraint of class T, constructed from `parameters`, over `arguments`.
  template <class T, class... Parameters>
  ConstraintId Emplace(std::span<const VariableId> arguments, Parameters&&... parameters) {
    void* memory = memory_.Allocate(sizeof(T), alignof(T));
    return Adopt(new (memory) T(std::forward<Parameters>(parameters)...), arguments,
                 kKivDecidesToRun<T>);
  }
  std::size_t CountConstraints() const noexcept { return constraints_.size(); }
  const KivOmbiConstraint& GetConstraint(ConstraintId id) const { return *constraints_[id].object; }
  std::span<const VariableId> GetArguments(ConstraintId id) const;

  // Runs constraints, cheapest first, until none can narrow anything. After a contradiction or an
  // overflow the network answers the same until a level is taken back.
  Outcome Propagate();
  // The constraint that ran into the last contradiction or overflow; none when a domain was emptied
  // from outside.
  std::optional<ConstraintId> GetCulprit() const noexcept { return culprit_; }
  // While `*stop` is true Propagate returns kStopped; null for never.
  void SetStopFlag(const std::atomic<bool>* stop) noexcept { stop_ = stop; }
  // So it does from `deadline` on, as soon as some runs of constraints have passed; none for never.
  using Clock = std::chrono::steady_clock;
  void SetDeadline(std::optional<Clock::time_point> deadline) noexcept { deadline_ = deadline; }
  // From now on `observer` is told of every step; null for nobody, which costs next to nothing.
  void SetObserver(KivOmbiNetworkObserver* observer) noexcept { observer_ = observer; }

  // A constraint whose arguments are all fixed and which they do not satisfy, by its ground truth.
  std::optional<ConstraintId> FindViolated() const;

  // Opens a level; Propagate() must have reached a fixpoint.
  void PushLevel();
  // Takes back everything that happened since the level was opened.
  void PopLevel();
  std::size_t GetLevel() const noexcept { return trail_.GetLevel(); }
  // Calls `visit(variable)` once for each variable whose domain was written since the current level
  // was opened; outside all levels for none. Costs what changed.
  template <class Visit>
  void VisitChanged(Visit&& visit) const {
    trail_.VisitSavedDomains(visit);
  }

  // Sets a variable to (a part of) `value`, a domain of the variable's kind, and propagates.
  // Retract unsets it: what was concluded from it is recomputed from the assertions that remain,
  // whether or not they were contradictory before. Assertions must not be mixed with levels opened
  // by hand: each opens one, and Retract needs to find them on top.
  AssertionId Assert(VariableId variable, const KivOmbiAny& value);
  void Retract(AssertionId assertion);
  std::size_t CountAssertions() const noexcept { return assertions_.size(); }

  const Statistics& GetStatistics() const noexcept { return statistics_; }

  // KivOmbiNetwork, for the network's objects.
  void Enqueue(std::uint32_t constraint, std::int64_t events) override;
  void WillChange(std::uint32_t variable) override;
  void WillLose(std::uint32_t variable, std::span<const std::int32_t> values) override;
  void Refresh(std::uint32_t variable) override;
  void SaveWord(std::uint64_t& word) override { trail_.SaveWord(word); }
  KivOmbiObject& Scratch(const KivOmbiObjectDescriptor& kind, unsigned index) override;

 private:
  struct Constraint {
    KivOmbiConstraint* object = nullptr;
    std::uint32_t first_argument = 0;
    std::uint32_t arguments = 0;
    std::uint8_t events = 0;  // not told yet
    std::uint8_t cost = KivOmbiConstraint::kUnary;
    bool queued = false;
    bool entailed = false;
    bool decides_to_run = false;  // by an ActivateByArgument of its own
  };
  struct LatePost {
    ConstraintId constraint;
    std::size_t level;  // at which it ran last
  };
  struct Assertion {
    AssertionId id;
    VariableId variable;
    KivOmbiAny* value;  // a copy
  };
  struct ScratchObjects {
    const KivOmbiObjectDescriptor* kind;
    KivOmbiObject* objects[kScratchObjects];
  };

  ConstraintId Adopt(KivOmbiConstraint* object, std::span<const VariableId> arguments,
                     bool decides_to_run);
  KivOmbiObjectEnvironment EnvironmentOf(const Constraint& constraint);
  KivOmbiObject* Construct(const KivOmbiObjectDescriptor& kind);
  void RunObserved(ConstraintId id);
  void Run(ConstraintId id);
  bool IsToStop();
  bool ClaimHolds(ConstraintId id);
  void Wake(ConstraintId id, Constraint& constraint, KivOmbiEvent events);
  void Fail(Outcome outcome, std::optional<ConstraintId> culprit);
  void ClearQueue();
  void Apply(const Assertion& assertion);
  static KivOmbiAny* Copy(const KivOmbiAny& value);
  static void DestroyCopy(KivOmbiAny* copy);

  KivOmbiNetworkMemory memory_;
  std::vector<KivOmbiVariable> variables_;
  std::vector<KivOmbiSubscriptions> subscriptions_;  // by variable
  std::vector<Constraint> constraints_;
  std::vector<VariableId> arguments_;  // of all constraints, one after the other
  std::vector<LatePost> late_posts_;
  std::vector<Assertion> assertions_;
  std::vector<ScratchObjects> scratch_;
  KivOmbiPropagationQueue queue_{KivOmbiConstraint::kCostLevels};
  KivOmbiTrail trail_;
  Outcome outcome_ = Outcome::kFixpoint;
  std::size_t outcome_level_ = 0;  // where outcome_ became what it is
  std::optional<ConstraintId> culprit_;
  // A constraint that found only values beyond the range for an unknown variable, and where.
  std::optional<ConstraintId> overflow_;
  std::size_t overflow_level_ = 0;
  static constexpr ConstraintId kNobody = ~ConstraintId{0};
  ConstraintId running_ = kNobody;
  std::int64_t own_events_ = 0;  // that the running constraint caused itself
  const std::atomic<bool>* stop_ = nullptr;
  std::optional<Clock::time_point> deadline_;
  KivOmbiNetworkObserver* observer_ = nullptr;
  AssertionId next_assertion_ = 0;
  Statistics statistics_;
};
