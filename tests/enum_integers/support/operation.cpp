#include "tests/enum_integers/support/operation.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "enum_integers/storage/slot_memory.h"
#include "framework/numbers/single_boolean.h"
#include "tests/enum_integers/support/kernel_paths.h"
#include "tests/reference/arithmetic.h"

namespace kiv::test {

namespace {

std::unique_ptr<KivOmbiAny> MadeBoolean(reference::Boolean value) {
  using enum reference::Boolean;
  if (value == kFalse || value == kTrue) {
    return std::make_unique<KivOmbSingleBoolean>(value == kTrue);
  }
  auto boolean = std::make_unique<KivOmbSingleBoolean>();
  if (value == kNil) boolean->Nil();
  return boolean;
}

reference::Boolean ReadBoolean(const KivOmbSingleBoolean& boolean) {
  using enum reference::Boolean;
  if (boolean.CheckNil()) return kNil;
  if (boolean.CheckAny()) return kAny;
  return boolean.CanBe(true) ? kTrue : kFalse;
}

// Which argument's object each argument has: mostly its own. An argument takes the object, and the
// value, of another of its kind.
std::vector<std::size_t> ShareObjects(Random& random, Operands& values) {
  std::vector<std::size_t> owner(values.size());
  for (std::size_t i = 0; i < values.size(); ++i) {
    owner[i] = i;
    if (i == 0 || !random.OneIn(6)) continue;
    const auto other =
        owner[static_cast<std::size_t>(random.Between(0, static_cast<std::int64_t>(i) - 1))];
    if (values[other].index() != values[i].index()) continue;
    owner[i] = other;
    values[i] = values[other];
  }
  return owner;
}

struct Arguments {
  std::vector<std::unique_ptr<KivOmbiAny>> owned;
  Objects objects;
};

Arguments MadeArguments(const Operands& values, const std::vector<std::size_t>& owner) {
  Arguments arguments;
  for (std::size_t i = 0; i < values.size(); ++i) {
    arguments.owned.push_back(owner[i] == i ? Made(values[i]) : nullptr);
    arguments.objects.push_back(arguments.owned[owner[i]].get());
  }
  return arguments;
}

// Whether no value is in `after` that was not in `before`.
bool IsPartOf(const Operand& after, const Operand& before) {
  using namespace reference;
  if (IsAny(before) || IsNil(after)) return true;
  if (const auto* d = std::get_if<EnumSet>(&before)) {
    const auto& values = std::get<EnumSet>(after).values;
    return std::includes(d->values.begin(), d->values.end(), values.begin(), values.end());
  }
  if (const auto* i = std::get_if<Interval>(&before)) {
    const auto& interval = std::get<Interval>(after);
    return i->lower <= interval.lower && interval.upper <= i->upper;
  }
  return after == before;
}

}  // namespace

std::unique_ptr<KivOmbiAny> Made(const Operand& value) {
  using namespace reference;
  if (const auto* d = std::get_if<EnumSet>(&value)) {
    return std::make_unique<KivOmbEnumInteger>(Made(*d));
  }
  if (const auto* s = std::get_if<Single>(&value)) {
    return std::make_unique<KivOmbSingleInteger>(Made(*s));
  }
  if (const auto* i = std::get_if<Interval>(&value)) {
    return std::make_unique<KivOmbIntervalInteger>(Made(*i));
  }
  return MadeBoolean(std::get<Boolean>(value));
}

Operand Read(const KivOmbiAny& domain) {
  if (const auto* d = KivOmbEnumInteger::DynamicCast(&domain)) return Read(*d);
  if (const auto* s = KivOmbSingleInteger::DynamicCast(&domain)) return Read(*s);
  if (const auto* i = KivOmbIntervalInteger::DynamicCast(&domain)) return Read(*i);
  return ReadBoolean(*KivOmbSingleBoolean::DynamicCast(&domain));
}

void Compare(const Operation& operation, Random& random, int cases) {
  for (int n = 0; n < cases; ++n) {
    Operands before = operation.arguments(random);
    const std::vector<std::size_t> owner = ShareObjects(random, before);
    SCOPED_TRACE(operation.name + " of " + testing::PrintToString(before) + ", objects " +
                 testing::PrintToString(owner));

    Operands expected = before;
    reference::arithmetic_error = false;
    const int code = operation.literal(expected);
    ForEachKernelPath([&] {
      const Arguments arguments = MadeArguments(before, owner);
      const Objects& objects = arguments.objects;
      SDClearError();
      ASSERT_EQ(operation.module(objects), code);
      for (std::size_t i = 0; i < before.size(); ++i) {
        const bool is_target = owner[i] == owner[operation.target];
        ASSERT_EQ(Read(*objects[i]), is_target ? expected[operation.target] : before[i])
            << "argument " << i;
      }
      ASSERT_EQ(SDCheckError() != 0, reference::arithmetic_error);
    });
    if (testing::Test::HasFatalFailure()) return;
  }
  SDClearError();
}

void RunWithoutMemory(const Operation& operation, Random& random, int cases) {
  for (int n = 0; n < cases; ++n) {
    Operands before = operation.arguments(random);
    const std::vector<std::size_t> owner = ShareObjects(random, before);
    const auto arrays = static_cast<std::uint32_t>(random.Between(0, 8));
    SCOPED_TRACE(operation.name + " of " + testing::PrintToString(before) + " with " +
                 std::to_string(arrays) + " arrays");
    const Arguments arguments = MadeArguments(before, owner);
    const int code = [&] {
      const SlotMemoryLimit limit(arrays);
      return operation.module(arguments.objects);
    }();
    ASSERT_TRUE(code == 0 || code == 1) << code;
    for (std::size_t i = 0; i < before.size(); ++i) {
      const Operand after = Read(*arguments.objects[i]);
      if (owner[i] == owner[operation.target]) {
        ASSERT_TRUE(IsPartOf(after, before[i])) << testing::PrintToString(after);
      } else {
        ASSERT_EQ(after, before[i]) << "argument " << i;
      }
    }
  }
  SDClearError();
}

}  // namespace kiv::test

namespace kiv::reference {

void PrintTo(const Operand& operand, std::ostream* out) {
  if (const auto* boolean = std::get_if<Boolean>(&operand)) {
    *out << "boolean " << static_cast<int>(*boolean);
  } else {
    std::visit(
        [out](const auto& value) {
          if constexpr (!std::is_same_v<std::decay_t<decltype(value)>, Boolean>) {
            PrintTo(value, out);
          }
        },
        operand);
  }
}

}  // namespace kiv::reference
