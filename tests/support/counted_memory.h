#pragma once

#include <cstddef>

namespace kiv::test {

// How often this process has allocated from the heap through operator new. Only in programs that
// link counted_memory.cpp.
std::size_t CountAllocations();

}  // namespace kiv::test
