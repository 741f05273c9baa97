// The choice of the instructions that the kernels use.

#include "enum_integers/kernels/path.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>

#include "tests/enum_integers/support/kernel_paths.h"

namespace {

using namespace kiv::kernels;

TEST(KernelPath, ThePortablePathIsAlwaysThere) {
  EXPECT_EQ(GetAvailablePaths().front(), Path::kPortable);
}

TEST(KernelPath, EachIsTakenAndNamed) {
  std::set<std::string> names;
  for (const Path path : GetAvailablePaths()) {
    names.insert(GetName(path));
    const Path before = GetPath();
    SetPath(path);
    EXPECT_EQ(GetPath(), path);
    SetPath(before);
  }
  EXPECT_EQ(names.size(), GetAvailablePaths().size());
}

TEST(KernelPath, ATestOnEveryPathLeavesThePathAsItWas) {
  const Path before = GetPath();
  std::size_t runs = 0;
  kiv::test::ForEachKernelPath([&runs] { ++runs; });
  EXPECT_EQ(runs, GetAvailablePaths().size());
  EXPECT_EQ(GetPath(), before);
}

}  // namespace
