#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <fstream>
#include <functional>
#include <numeric>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "solver/language/call_vocabulary.h"
#include "tests/solver/language/read_model.h"

namespace kiv::test {
namespace {

// The values of q[0..3], each of 0..3, and of n, of 0..4.
struct Values {
  std::array<int, 4> q;
  int n;
};

struct CallCase {
  const char* text;
  std::function<bool(const Values&)> holds;
};

int Count(const Values& v, int value) { return static_cast<int>(std::ranges::count(v.q, value)); }

int CountDifferent(const Values& v) {
  return static_cast<int>(std::set<int>(v.q.begin(), v.q.end()).size());
}

// Whether following q from `start` passes `length` places and comes back.
bool IsCircuit(const Values& v, int start, int length) {
  std::set<int> passed;
  int place = start;
  while (passed.insert(place).second) place = v.q[static_cast<std::size_t>(place)];
  return place == start && static_cast<int>(passed.size()) == length;
}

bool IsSubcircuit(const Values& v) {
  if (CountDifferent(v) != 4) return false;
  for (int start = 0; start < 4; ++start) {
    int inside = 0;
    for (int i = 0; i < 4; ++i) inside += v.q[static_cast<std::size_t>(i)] != i ? 1 : 0;
    if (v.q[static_cast<std::size_t>(start)] != start && !IsCircuit(v, start, inside)) return false;
  }
  return true;
}

// Whether no two of the tasks that start at q and take `durations` overlap in more than `capacity`.
bool FitsCapacity(const Values& v, const std::array<int, 4>& durations, int capacity) {
  for (int time = 0; time < 10; ++time) {
    int running = 0;
    for (std::size_t i = 0; i < 4; ++i) {
      if (v.q[i] <= time && time < v.q[i] + durations[i]) ++running;
    }
    if (running > capacity) return false;
  }
  return true;
}

const CallCase kCases[] = {
    {"all_different(q)", [](const Values& v) { return CountDifferent(v) == 4; }},
    {"all_different(q) with values", [](const Values& v) { return CountDifferent(v) == 4; }},
    {"all_different(q) with bounds", [](const Values& v) { return CountDifferent(v) == 4; }},
    {"all_different(q) with domain", [](const Values& v) { return CountDifferent(v) == 4; }},
    {"all_different([q[i] + 2*i | i in 0..3])",
     [](const Values& v) {
       return std::set<int>{v.q[0], v.q[1] + 2, v.q[2] + 4, v.q[3] + 6}.size() == 4;
     }},
    {"all_different(q[0], 2*q[1], q[2] + q[3], 3)",
     [](const Values& v) {
       return std::set<int>{v.q[0], 2 * v.q[1], v.q[2] + v.q[3], 3}.size() == 4;
     }},
    {"among(q, { 1, 3 }) = n", [](const Values& v) { return Count(v, 1) + Count(v, 3) == v.n; }},
    {"among(q, 2..9) > n", [](const Values& v) { return Count(v, 2) + Count(v, 3) > v.n; }},
    {"count(q, 2) = n", [](const Values& v) { return Count(v, 2) == v.n; }},
    {"count(q, n) = n", [](const Values& v) { return Count(v, v.n) == v.n; }},
    {"count(q, q[0] + 1) >= 2", [](const Values& v) { return Count(v, v.q[0] + 1) >= 2; }},
    {"number_of_values(q) = n", [](const Values& v) { return CountDifferent(v) == v.n; }},
    {"global_cardinality(q, [1, 2], [n, 1])",
     [](const Values& v) { return Count(v, 1) == v.n && Count(v, 2) == 1; }},
    {"global_cardinality(q, [3, 0], [n, 2]) with closed",
     [](const Values& v) {
       return Count(v, 3) == v.n && Count(v, 0) == 2 && Count(v, 1) + Count(v, 2) == 0;
     }},
    {"circuit(q)", [](const Values& v) { return IsCircuit(v, 0, 4); }},
    {"subcircuit(q)", IsSubcircuit},
    {"inverse(q, [n, 1, q[2], 3])",
     [](const Values& v) {
       const std::array<int, 4> inverse = {v.n, 1, v.q[2], 3};
       for (int i = 0; i < 4; ++i) {
         // The second list has no indices of its own and counts from 1.
         for (int j = 1; j <= 4; ++j) {
           const bool there = v.q[static_cast<std::size_t>(i)] == j;
           if (there != (inverse[static_cast<std::size_t>(j - 1)] == i)) return false;
         }
       }
       return std::ranges::all_of(v.q, [](int value) { return 1 <= value && value <= 4; });
     }},
    {"lex_less([q[0], q[1]], [q[2], q[3]])",
     [](const Values& v) { return v.q[0] < v.q[2] || (v.q[0] == v.q[2] && v.q[1] < v.q[3]); }},
    {"lex_less_or_equal([q[0], q[1], n], [q[2], q[3]])",
     [](const Values& v) { return v.q[0] < v.q[2] || (v.q[0] == v.q[2] && v.q[1] < v.q[3]); }},
    {"cumulative(q, [1, 2, n, 1], [1, 1, 1, 1], 2)",
     [](const Values& v) {
       return FitsCapacity(v, {1, 2, v.n, 1}, 2);
     }},
    {"disjunctive(q, [1, 1, 1, 1])", [](const Values& v) { return CountDifferent(v) == 4; }},
    {"disjunctive(q, [2, 1, n, 1])",
     [](const Values& v) {
       return FitsCapacity(v, {2, 1, v.n, 1}, 1);
     }},
    {"table([q[0], q[2], n], [[1, 2, 3], [0, 0, 4], [3, 3, 3], [7, 1, 1]])",
     [](const Values& v) {
       const std::array<int, 3> tuple = {v.q[0], v.q[2], v.n};
       return tuple == std::array{1, 2, 3} || tuple == std::array{0, 0, 4} ||
              tuple == std::array{3, 3, 3};
     }},
    {"table([q[0], q[1] + 1], pairs)",
     [](const Values& v) { return (v.q[0] == 1 && v.q[1] == 1) || (v.q[0] == 3 && v.q[1] == 3); }},
    {"table([q[0], n], [[i, i*i] | i in 0..3])",
     [](const Values& v) { return v.n == v.q[0] * v.q[0]; }},
    {"table([q[0], n], [pairs[2, *], [i | i in 0..1]])",
     [](const Values& v) { return (v.q[0] == 3 && v.n == 4) || (v.q[0] == 0 && v.n == 1); }},
    {"table([q[0], n], [pairs[i, *] | i in 1..2])",
     [](const Values& v) { return (v.q[0] == 1 && v.n == 2) || (v.q[0] == 3 && v.n == 4); }},
    {"table([n, n], [])", [](const Values&) { return false; }},
    {"min(q) = n", [](const Values& v) { return std::ranges::min(v.q) == v.n; }},
    {"max(q[0], q[1], 2) = n",
     [](const Values& v) {
       return std::max({v.q[0], v.q[1], 2}) == v.n;
     }},
    {"max([q[i] - i | i in 0..3]) < n",
     [](const Values& v) {
       return std::max({v.q[0], v.q[1] - 1, v.q[2] - 2, v.q[3] - 3}) < v.n;
     }},
    {"sum(q) = 2*n + 1",
     [](const Values& v) { return std::accumulate(v.q.begin(), v.q.end(), 0) == 2 * v.n + 1; }},
    {"n = int(q[0] == q[1]) + int(q[2] << 2)",
     [](const Values& v) { return v.n == (v.q[0] == v.q[1] ? 1 : 0) + (v.q[2] < 2 ? 1 : 0); }},
    {"count(i in 0..2)(q[i] << q[i + 1]) = n",
     [](const Values& v) {
       int rises = 0;
       for (std::size_t i = 0; i < 3; ++i) rises += v.q[i] < v.q[i + 1] ? 1 : 0;
       return rises == v.n;
     }},
    {"q[n] = n",
     [](const Values& v) { return v.n < 4 && v.q[static_cast<std::size_t>(v.n)] == v.n; }},
    {"q[q[0]] + 1 = q[n - 1]",
     [](const Values& v) {
       return 1 <= v.n &&
              v.q[static_cast<std::size_t>(v.q[0])] + 1 == v.q[static_cast<std::size_t>(v.n - 1)];
     }},
    {"pairs[n, q[0]] = q[1]",
     [](const Values& v) {
       const int pairs[2][2] = {{1, 2}, {3, 4}};
       return 1 <= v.n && v.n <= 2 && 1 <= v.q[0] && v.q[0] <= 2 &&
              pairs[v.n - 1][v.q[0] - 1] == v.q[1];
     }},
    {"pairs[2, n] = q[1]",
     [](const Values& v) { return 1 <= v.n && v.n <= 2 && v.n + 2 == v.q[1]; }},
};

TEST(Calls, MeanWhatTheyAreCalled) {
  for (const auto& [text, holds] : kCases) {
    SCOPED_TRACE(text);
    std::vector<std::string> expected;
    for (int number = 0; number < 256 * 5; ++number) {
      const Values v{{number / 320, number / 80 % 4, number / 20 % 4, number / 5 % 4}, number % 5};
      if (!holds(v)) continue;
      std::string list;
      for (const int value : v.q) list += (list.empty() ? "" : ", ") + std::to_string(value);
      expected.push_back("q = [" + list + "]\nn = " + std::to_string(v.n) + '\n');
    }
    for (const char* kind : {"enum int", "interval int"}) {
      const std::string model =
          "param pairs[2, 2] : int = [[1, 2], [3, 4]]; q[0..3] : " + std::string(kind) +
          " = [0, 3]; n : " + kind + " = [0, 4]; " + text + "; solve;";
      std::vector<std::string> found = SolutionsOf(model);
      std::ranges::sort(found);
      std::ranges::sort(expected);
      EXPECT_EQ(found, expected);
    }
  }
}

TEST(Calls, AreEachTested) {
  for (const CallEntry& entry : GetCallEntries()) {
    const std::string call = std::string(entry.name) + '(';
    EXPECT_TRUE(std::ranges::any_of(kCases, [&](const CallCase& one) {
      return std::string(one.text).find(call) != std::string::npos;
    })) << entry.name;
    EXPECT_TRUE(entry.signature.starts_with(call)) << entry.name;
    EXPECT_FALSE(entry.meaning.empty()) << entry.name;
    EXPECT_NE(entry.post == nullptr, entry.apply == nullptr) << entry.name;
  }
}

TEST(Calls, AreEachDocumented) {
  std::ifstream file(KIV_SOURCE_DIR "/docs/language.md");
  std::ostringstream page;
  page << file.rdbuf();
  for (const CallEntry& entry : GetCallEntries()) {
    EXPECT_NE(page.str().find("| `" + std::string(entry.signature) + "` |"), std::string::npos)
        << entry.signature;
    for (const std::string_view annotation : entry.annotations) {
      EXPECT_NE(page.str().find('`' + std::string(annotation) + '`') == std::string::npos &&
                    page.str().find("`with " + std::string(annotation) + '`') == std::string::npos,
                true)
          << annotation;
    }
  }
}

std::string FirstLine(const std::string& statements) {
  const std::string errors =
      ErrorsOf("q[3] : enum int = [1, 3];\nt : bool;\n" + statements + "\nsolve;");
  return errors.substr(0, errors.find('\n'));
}

TEST(CallErrors, SayWhatIsExpected) {
  EXPECT_EQ(ErrorsOf("q[3] : enum int = [1, 3]; circuit(q, q); solve;"),
            "m.kiv:1:27: error: 'circuit' takes 1 argument, not 2\n"
            "  q[3] : enum int = [1, 3]; circuit(q, q); solve;\n"
            "                            ^~~~~~~\n"
            "  circuit(q): following q from any index passes all of them\n");
  EXPECT_EQ(FirstLine("count(q) = 1;"), "m.kiv:3:1: error: 'count' takes 2 arguments, not 1");
  EXPECT_EQ(FirstLine("circit(q);"),
            "m.kiv:3:1: error: unknown function 'circit'; did you mean 'circuit'?");
  EXPECT_EQ(FirstLine("all_different(q, t);"),
            "m.kiv:3:18: error: 'all_different' takes integers, not 'bool'");
  EXPECT_EQ(FirstLine("int(q[1]) = 1;"),
            "m.kiv:3:5: error: 'int' counts truth values, not 'enum int'");
  EXPECT_EQ(FirstLine("max() = 1;"), "m.kiv:3:1: error: 'max' has no values here");
  EXPECT_EQ(FirstLine("q[1] + circuit(q) = 1;"),
            "m.kiv:3:8: error: 'circuit' is a constraint of its own, not part of an expression");
}

TEST(CallErrors, NameAnnotations) {
  EXPECT_EQ(FirstLine("all_different(q) with domian;"),
            "m.kiv:3:23: error: unknown annotation 'domian'; did you mean 'domain'?");
  EXPECT_EQ(FirstLine("circuit(q) with domain;"), "m.kiv:3:17: error: unknown annotation 'domain'");
  EXPECT_EQ(FirstLine("q[1] < q[2] with domain;"),
            "m.kiv:3:18: error: unknown annotation 'domain'");
}

TEST(CallErrors, TellListsThatDoNotGoTogether) {
  EXPECT_EQ(FirstLine("table(q, [[1, 2], [3, 4]]);"),
            "m.kiv:3:10: error: 'table' takes rows with a value for each of the 3 integers; these "
            "have 2");
  EXPECT_EQ(FirstLine("table(q, [[1, 2, 3], [3, 4]]);"),
            "m.kiv:3:22: error: 'table' takes rows of one length");
  EXPECT_EQ(FirstLine("table(q, [i | i in 1..4]);"),
            "m.kiv:3:10: error: 'table' takes rows with a value for each of the 3 integers");
  EXPECT_EQ(FirstLine("table([], [[1]]);"), "m.kiv:3:7: error: 'table' takes at least one integer");
  EXPECT_EQ(FirstLine("table(q, [q]);"),
            "m.kiv:3:11: error: 'table' takes numbers, parameters and loop variables here");
  EXPECT_EQ(FirstLine("disjunctive(q, [1, 2]);"),
            "m.kiv:3:16: error: 'disjunctive' takes lists of one length; this one has 2 elements, "
            "the first one 3");
  EXPECT_EQ(FirstLine("inverse(q, [q[1]]);"),
            "m.kiv:3:12: error: 'inverse' takes lists of one length; this one has 1 elements, the "
            "first one 3");
  EXPECT_EQ(FirstLine("global_cardinality(q, [1, 1], [2, 2]);"),
            "m.kiv:3:23: error: 'global_cardinality' counts the value 1 twice");
  EXPECT_EQ(FirstLine("global_cardinality(q, [1, 2], [2]);"),
            "m.kiv:3:31: error: 'global_cardinality' takes a count for each of the values; there "
            "are 2 values and 1 counts");
  EXPECT_EQ(FirstLine("table([q[1]], [[2147483647]]);"),
            "m.kiv:3:17: error: 'table' takes integers of -2147483646..2147483646");
}

TEST(ElementErrors, TellWhatIsNoIndex) {
  EXPECT_EQ(FirstLine("q[t] = 1;"), "m.kiv:3:3: error: an index is an integer, not 'bool'");
  EXPECT_EQ(FirstLine("b[2] : bool; b[q[1]] = true;"),
            "m.kiv:3:14: error: an index of truth values must be made of numbers, parameters and "
            "loop variables");
}

}  // namespace
}  // namespace kiv::test
