#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <ostream>
#include <set>
#include <string>
#include <vector>

#include "framework/abstract_types/integer.h"
#include "tests/solver/flatzinc/posted_text.h"
#include "tests/solver/flatzinc/solve_text.h"
#include "tests/support/random.h"
#include "tests/support/seed.h"

namespace kiv::test {
namespace {

// A constraint over x, y and z, or over x and z, whose z is what `result` tells of x and y.
struct Function {
  const char* name;
  const char* call;
  // Whether there is a result, and which.
  bool (*compute)(std::int64_t x, std::int64_t y, std::int64_t& z);
};

constexpr Function kFunctions[] = {
    {"plus", "int_plus(x,y,z)", [](auto x, auto y, auto& z) { return z = x + y, true; }},
    {"minus", "int_minus(x,y,z)", [](auto x, auto y, auto& z) { return z = x - y, true; }},
    {"sum", "int_lin_eq([1,1,-1],[x,y,z],2)",
     [](auto x, auto y, auto& z) { return z = x + y - 2, true; }},
    {"weighted_sum", "int_lin_eq([2,-3,1],[x,y,z],4)",
     [](auto x, auto y, auto& z) { return z = 4 - 2 * x + 3 * y, true; }},
    {"times", "int_times(x,y,z)", [](auto x, auto y, auto& z) { return z = x * y, true; }},
    {"square", "int_times(x,x,z)", [](auto x, auto, auto& z) { return z = x * x, true; }},
    {"div", "int_div(x,y,z)", [](auto x, auto y, auto& z) { return y != 0 && (z = x / y, true); }},
    {"mod", "int_mod(x,y,z)", [](auto x, auto y, auto& z) { return y != 0 && (z = x % y, true); }},
    {"min", "int_min(x,y,z)", [](auto x, auto y, auto& z) { return z = std::min(x, y), true; }},
    {"max", "int_max(x,y,z)", [](auto x, auto y, auto& z) { return z = std::max(x, y), true; }},
    {"abs", "int_abs(x,z)", [](auto x, auto, auto& z) { return z = x < 0 ? -x : x, true; }},
    {"cube", "int_pow(x,3,z)", [](auto x, auto, auto& z) { return z = x * x * x, true; }},
    {"power", "int_pow(x,y,z)",
     [](auto x, auto y, auto& z) {
       if (y < 0 && x == 0) return false;
       std::int64_t power = 1;
       for (std::int64_t i = 0; i < (y < 0 ? -y : y) && power < 100000; ++i) power *= x;
       z = y < 0 ? 1 / power : power;
       return true;
     }},
};

bool TakesY(const Function& function) {
  return std::string_view(function.call).find('y') != std::string_view::npos;
}

std::ostream& operator<<(std::ostream& out, const Function& function) {
  return out << function.name;
}

using Set = std::set<std::int32_t>;
using Sets = std::array<Set, 3>;

std::string WriteSet(const Set& set) {
  std::string text = "{";
  for (const std::int32_t value : set) {
    if (text.size() > 1) text += ',';
    text += std::to_string(value);
  }
  return text + '}';
}

// Over x, y and z with these domains.
std::string WriteText(const Function& function, const std::array<std::string, 3>& domains,
                      const std::string& annotation) {
  std::string text;
  for (std::size_t i = 0; i < 3; ++i) text += "var " + domains[i] + ": " + "xyz"[i] + ";\n";
  return text + "constraint " + function.call + annotation + ";\nsolve satisfy;\n";
}

// The values of x, y and z that are part of a solution with a z that `is_possible`.
template <class IsPossible>
Sets Supported(const Function& function, const Set& xs, const Set& ys, IsPossible&& is_possible) {
  Sets supported;
  for (const std::int32_t x : xs) {
    for (const std::int32_t y : ys) {
      std::int64_t z = 0;
      if (!function.compute(x, y, z) || !is_possible(z)) continue;
      supported[0].insert(x);
      supported[1].insert(y);
      supported[2].insert(static_cast<std::int32_t>(z));
    }
  }
  return supported;
}

// Propagates a text; false when it finds a contradiction.
bool IsPossible(PostedText& posted) {
  return posted.network.Propagate() != KivOmbNetwork::Outcome::kContradiction;
}

Set ValuesOf(const PostedText& posted, const char* name) {
  const auto variable = posted.Find(name);
  const auto& domain = static_cast<const KivOmbiInteger&>(posted.network.GetDomain(variable));
  const KivOmbiDomainSummary& summary = posted.network.GetSummary(variable);
  Set values;
  for (std::int32_t value = summary.lower; value < summary.upper;
       value = domain.GetNextExactValue(value)) {
    values.insert(value);
  }
  values.insert(summary.upper);
  return values;
}

Set RandomSet(Generator& random, int reach, int most) {
  const int lower = OneIn(random, 2) ? 1 : -reach;
  Set set;
  for (int count = Pick(random, 1, most); count > 0; --count) {
    set.insert(Pick(random, lower, reach));
  }
  return set;
}

// Sets of which something is left in most cases: z takes results, and others that are none. Few
// values or many, close together or far apart.
Sets RandomSets(Generator& random, const Function& function) {
  // Quotients and remainders are looked at one by one while there are few pairs of operands.
  const std::string_view name = function.name;
  const bool has_many = OneIn(random, 10) && name != "div" && name != "mod";
  const int most = has_many ? 120 : 10;
  const bool is_steep = std::string_view(function.call).starts_with("int_pow");
  const int reach = is_steep ? 6 : OneIn(random, 3) ? 5000 : Pick(random, 6, 3 * most);
  Sets sets = {RandomSet(random, reach, most), RandomSet(random, reach, most), {}};
  for (const std::int32_t x : sets[0]) {
    for (const std::int32_t y : sets[1]) {
      std::int64_t z = 0;
      if (!OneIn(random, most / 3 + 1) || !function.compute(x, y, z)) continue;
      sets[2].insert(static_cast<std::int32_t>(z) + (OneIn(random, 3) ? 1 : 0));
      if (sets[2].size() > 300) return sets;
    }
  }
  sets[2].insert(Pick(random, -reach, reach));
  return sets;
}

class AnnotatedArithmetic : public testing::TestWithParam<Function> {};

TEST_P(AnnotatedArithmetic, LeavesValuesOfSolutionsAloneByDomain) {
  const std::uint64_t first = Seed(1);
  for (std::uint64_t seed = first; seed < first + Times(300); ++seed) {
    Generator random(seed);
    const Sets sets = RandomSets(random, GetParam());
    const std::string text = WriteText(
        GetParam(), {WriteSet(sets[0]), WriteSet(sets[1]), WriteSet(sets[2])}, " :: domain");
    SCOPED_TRACE(text + Replay(seed));
    const Sets supported = Supported(GetParam(), sets[0], sets[1], [&](std::int64_t z) {
      return std::ranges::count(sets[2], z) > 0;
    });
    PostedText posted(text);
    ASSERT_EQ(IsPossible(posted), !supported[0].empty());
    if (supported[0].empty()) continue;
    ASSERT_EQ(WriteSet(ValuesOf(posted, "x")), WriteSet(supported[0]));
    if (TakesY(GetParam())) {
      ASSERT_EQ(WriteSet(ValuesOf(posted, "y")), WriteSet(supported[1]));
    }
    ASSERT_EQ(WriteSet(ValuesOf(posted, "z")), WriteSet(supported[2]));
  }
}

INSTANTIATE_TEST_SUITE_P(Functions, AnnotatedArithmetic, testing::ValuesIn(kFunctions),
                         [](const auto& name) { return std::string(name.param.name); });

// A result with too many values to list has its bounds narrowed, and tells the operands as much as
// those do.
TEST(AnnotatedProduct, OfWideResultLeavesTheFactorsOfSolutions) {
  const Function times = *std::ranges::find(kFunctions, std::string_view("times"), &Function::name);
  const std::uint64_t first = Seed(1);
  for (std::uint64_t seed = first; seed < first + Times(300); ++seed) {
    Generator random(seed);
    const Set xs = RandomSet(random, 90, 12);
    const Set ys = RandomSet(random, 90, 12);
    const int lower = Pick(random, -5000, 5000);
    const int upper = lower + Pick(random, 1024, 3000);
    const std::string text = WriteText(
        times, {WriteSet(xs), WriteSet(ys), std::to_string(lower) + ".." + std::to_string(upper)},
        " :: domain");
    SCOPED_TRACE(text + Replay(seed));
    const Sets supported =
        Supported(times, xs, ys, [&](std::int64_t z) { return lower <= z && z <= upper; });
    PostedText posted(text);
    ASSERT_EQ(IsPossible(posted), !supported[0].empty());
    if (supported[0].empty()) continue;
    ASSERT_EQ(WriteSet(ValuesOf(posted, "x")), WriteSet(supported[0]));
    ASSERT_EQ(WriteSet(ValuesOf(posted, "y")), WriteSet(supported[1]));
    const auto& z = posted.network.GetSummary(posted.Find("z"));
    ASSERT_EQ(z.lower, *supported[2].begin());
    ASSERT_EQ(z.upper, *supported[2].rbegin());
  }
}

// How many values z keeps where bounds tell nothing, but some values of it are no results.
TEST(AnnotatedBounds, LeaveInnerValuesAlone) {
  const auto count_left = [](const std::string& call, const std::string& annotation) {
    PostedText posted("var {1,5}: x; var {0,4}: y; var {-4,0,1,2,3,4,5,9,20}: z; constraint " +
                      call + annotation + "; solve satisfy;");
    EXPECT_TRUE(IsPossible(posted));
    return ValuesOf(posted, "z").size();
  };
  EXPECT_EQ(count_left("int_plus(x,y,z)", " :: domain"), 3u);
  EXPECT_EQ(count_left("int_plus(x,y,z)", ""), 3u);
  EXPECT_EQ(count_left("int_plus(x,y,z)", " :: bounds"), 6u);
  EXPECT_EQ(count_left("int_times(x,y,z)", " :: domain"), 3u);
  EXPECT_EQ(count_left("int_times(x,y,z)", ""), 3u);
  EXPECT_EQ(count_left("int_times(x,y,z)", " :: bounds"), 8u);
  EXPECT_EQ(count_left("int_max(x,y,z)", " :: domain"), 3u);
  EXPECT_EQ(count_left("int_max(x,y,z)", " :: bounds"), 5u);
  EXPECT_EQ(count_left("int_mod(y,x,z)", " :: domain"), 2u);
  EXPECT_EQ(count_left("int_mod(y,x,z)", " :: bounds"), 5u);
  EXPECT_EQ(count_left("int_abs(x,z)", " :: domain"), 2u);
  EXPECT_EQ(count_left("int_abs(x,z)", " :: bounds"), 5u);
}

}  // namespace
}  // namespace kiv::test
