#include "enum_integers/kernels/path.h"

#include <atomic>
#include <cstdlib>
#include <string_view>

namespace kiv::kernels {
namespace {

struct PathRow {
  const char* name;
  IntersectBlocks* intersect;
  UniteBlocks* unite;
};

// By path.
constexpr PathRow kRows[] = {
    {"portable", nullptr, nullptr},
#ifdef KIV_X86_64_KERNELS
    {"sse4", IntersectBlocksSse4, UniteBlocksSse4},
    {"avx2", IntersectBlocksAvx2, UniteBlocksSse4},
#endif
};

constexpr Path kPaths[] = {Path::kPortable, Path::kSse4, Path::kAvx2};

const PathRow& RowOf(Path path) { return kRows[static_cast<std::size_t>(path)]; }

std::size_t CountAvailable() {
#ifdef KIV_X86_64_KERNELS
  __builtin_cpu_init();
  if (__builtin_cpu_supports("sse4.1") == 0) return 1;
  return __builtin_cpu_supports("avx2") == 0 ? 2 : 3;
#else
  return 1;
#endif
}

Path ChoosePath() {
  const std::span<const Path> available = GetAvailablePaths();
  if (const char* const wanted = std::getenv("KIV_KERNEL_PATH")) {
    for (const Path path : available) {
      if (std::string_view(wanted) == GetName(path)) return path;
    }
  }
  return available.back();
}

// Before the module's own initialisers have run, the portable row serves.
constinit std::atomic<const PathRow*> present_row = &kRows[0];
[[maybe_unused]] const bool is_chosen = (SetPath(ChoosePath()), true);

}  // namespace

std::span<const Path> GetAvailablePaths() {
  static const std::size_t count = CountAvailable();
  return std::span(kPaths).first(count);
}

void SetPath(Path path) { present_row.store(&RowOf(path), std::memory_order_relaxed); }

Path GetPath() {
  return static_cast<Path>(present_row.load(std::memory_order_relaxed) - &kRows[0]);
}

const char* GetName(Path path) { return RowOf(path).name; }

IntersectBlocks* GetIntersectBlocks() {
  return present_row.load(std::memory_order_relaxed)->intersect;
}

UniteBlocks* GetUniteBlocks() { return present_row.load(std::memory_order_relaxed)->unite; }

}  // namespace kiv::kernels
