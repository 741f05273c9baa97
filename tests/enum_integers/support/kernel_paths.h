#pragma once

#include <gtest/gtest.h>

#include "enum_integers/kernels/path.h"

namespace kiv::test {

// Runs `test` once on every path of the kernels that this processor has, until one fails.
template <class Test>
void ForEachKernelPath(Test test) {
  const kernels::Path before = kernels::GetPath();
  for (const kernels::Path path : kernels::GetAvailablePaths()) {
    SCOPED_TRACE(kernels::GetName(path));
    kernels::SetPath(path);
    test();
    if (testing::Test::HasFatalFailure()) break;
  }
  kernels::SetPath(before);
}

}  // namespace kiv::test
