#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>
#include <set>

#include "solver/flatzinc/poster_table.h"
#include "tests/solver/flatzinc/global_meaning.h"
#include "tests/solver/flatzinc/solve_text.h"
#include "tests/support/seed.h"

namespace kiv::test {
namespace {

std::string ReadFile(const std::filesystem::path& path) {
  std::ifstream file(path);
  return {std::istreambuf_iterator<char>(file), {}};
}

// The constraints that the MiniZinc library leaves to the solver.
std::set<std::string> DeclaredByLibrary() {
  std::set<std::string> names;
  // Those with a body are for the library alone.
  const std::regex predicate("predicate (kiv_[a-z_0-9]+)\\([^=;]*\\);");
  for (const auto& entry : std::filesystem::directory_iterator(KIV_MINIZINC_LIBRARY)) {
    const std::string text = ReadFile(entry.path());
    for (std::sregex_iterator match(text.begin(), text.end(), predicate), end; match != end;
         ++match) {
      names.insert((*match)[1]);
    }
  }
  return names;
}

TEST(Globals, ThoseOfTheLibraryAreKnownAndTested) {
  std::set<std::string> tested;
  for (const Global& global : AllGlobals()) tested.emplace(global.name);
  const auto declared = DeclaredByLibrary();
  std::set<std::string> posted;
  for (const flatzinc::Poster* poster : flatzinc::ListPosters()) {
    if (poster->name.starts_with("kiv_")) posted.emplace(poster->name);
  }
  EXPECT_EQ(declared, tested);
  EXPECT_EQ(declared, posted);
}

class EachGlobal : public testing::TestWithParam<Global> {};

TEST_P(EachGlobal, HasTheSolutionsOfItsMeaning) {
  const std::uint64_t first = Seed(1);
  for (std::uint64_t seed = first; seed < first + Times(400); ++seed) {
    Generator random(seed);
    GlobalCall call(std::string(GetParam().name), random);
    GetParam().make(call);
    SCOPED_TRACE(call.GetText() + Replay(seed));
    const auto expected = EnumerateSolutions(call.GetDomains(), [&](const Assignment& values) {
      return GetParam().holds(call.Apply(values));
    });
    std::vector<Assignment> found;
    ASSERT_NO_THROW(found = SolveText(call.GetText()));
    ASSERT_EQ(found, expected);
  }
}

INSTANTIATE_TEST_SUITE_P(Globals, EachGlobal, testing::ValuesIn(AllGlobals()),
                         [](const auto& global) { return std::string(global.param.name); });

}  // namespace
}  // namespace kiv::test
