#pragma once

#include <span>

#include "enum_integers/kernels/block_merging.h"
#include "framework/base/export.h"

// Which instructions the kernels use. The best path that the processor has is chosen when the
// module is loaded; the environment variable KIV_KERNEL_PATH (portable, sse4 or avx2) names
// another, and is ignored when the processor lacks that. All paths compute the same.
namespace kiv::kernels {

enum class Path { kPortable, kSse4, kAvx2 };

// The paths that this processor has, the best one last.
KIV_EXPORT std::span<const Path> GetAvailablePaths();

// Takes the path for all threads: one that is available.
KIV_EXPORT void SetPath(Path path);
KIV_EXPORT Path GetPath();
KIV_EXPORT const char* GetName(Path path);

// The inner loops of the present path; null on the portable one, where none is quicker than a plain
// merge.
IntersectBlocks* GetIntersectBlocks();
UniteBlocks* GetUniteBlocks();

}  // namespace kiv::kernels
