#pragma once

#include <cstdint>

// The inner loops of the merges, once for each instruction set that they are compiled for.
//
// The files that define them are compiled for instructions that this processor may not have. They
// include nothing but this header and the intrinsics: an inline function that they shared with
// other files could be linked in its version for the wider instructions and be run where there are
// none.
namespace kiv::kernels {

// How far a merge has come: up to a[i] and b[j], with `count` values written.
struct MergePosition {
  unsigned i;
  unsigned j;
  unsigned count;
};

// Merge ascending arrays without repetitions, block by block, until one of them has no whole block
// left. They write whole blocks: up to kBlockSlack slots behind the values that they report.
constexpr unsigned kBlockSlack = 8;

// The values in both.
using IntersectBlocks = MergePosition(const std::int32_t* a, unsigned a_count,
                                      const std::int32_t* b, unsigned b_count, std::int32_t* out);

// The values in either, both of which hold kUniteBlock or more. The kUniteBlock greatest values
// that were read are left in `pending`, ascending, perhaps with repetitions, and perhaps equal to
// what was written last.
constexpr unsigned kUniteBlock = 4;
using UniteBlocks = MergePosition(const std::int32_t* a, unsigned a_count, const std::int32_t* b,
                                  unsigned b_count, std::int32_t* out, std::int32_t* pending);

IntersectBlocks IntersectBlocksSse4;
IntersectBlocks IntersectBlocksAvx2;
UniteBlocks UniteBlocksSse4;

}  // namespace kiv::kernels
