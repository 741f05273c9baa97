// The intersection by blocks of eight values, as with four in block_merging_sse4.cpp. Compiled for
// AVX2.

#include <immintrin.h>

#include "enum_integers/kernels/block_merging.h"

namespace kiv::kernels {
namespace {

// For every choice of lanes, a bit each: the lanes in the order that moves the chosen to the front.
struct PackTable {
  alignas(8) std::uint8_t lanes[256][8];
  std::uint8_t chosen[256];
};

constexpr PackTable MakePackTable() {
  PackTable table{};
  for (unsigned mask = 0; mask < 256; ++mask) {
    unsigned to = 0;
    for (unsigned lane = 0; lane < 8; ++lane) {
      if ((mask >> lane & 1u) != 0) table.lanes[mask][to++] = static_cast<std::uint8_t>(lane);
    }
    table.chosen[mask] = static_cast<std::uint8_t>(to);
  }
  return table;
}

constexpr PackTable kPack = MakePackTable();

__m256i Load(const std::int32_t* from) {
  return _mm256_loadu_si256(reinterpret_cast<const __m256i*>(from));
}

// Writes the chosen lanes; returns how many they are.
unsigned StoreChosen(std::int32_t* to, __m256i block, unsigned mask) {
  const __m256i order =
      _mm256_cvtepu8_epi32(_mm_loadl_epi64(reinterpret_cast<const __m128i*>(kPack.lanes[mask])));
  _mm256_storeu_si256(reinterpret_cast<__m256i*>(to), _mm256_permutevar8x32_epi32(block, order));
  return kPack.chosen[mask];
}

// How many lanes of a block the rest of an array fills.
unsigned LanesOf(unsigned rest) { return rest < 8 ? rest : 8; }

// The first `count` values from `from` on, one or more, and the first of them again in the lanes
// behind.
__m256i LoadPart(const std::int32_t* from, unsigned count) {
  const __m256i lanes = _mm256_setr_epi32(0, 1, 2, 3, 4, 5, 6, 7);
  const __m256i used = _mm256_cmpgt_epi32(_mm256_set1_epi32(static_cast<int>(count)), lanes);
  return _mm256_blendv_epi8(_mm256_set1_epi32(*from), _mm256_maskload_epi32(from, used), used);
}

// In which lanes `mine` holds a value that is in some lane of `theirs`.
unsigned LanesAmong(__m256i mine, __m256i theirs) {
  // Four rotations within the halves of `theirs`, and the same with the halves exchanged.
  const __m256i exchanged = _mm256_permute2x128_si256(theirs, theirs, 1);
  const auto equal_to = [mine](__m256i others) {
    const __m256i one = _mm256_or_si256(
        _mm256_cmpeq_epi32(mine, others),
        _mm256_cmpeq_epi32(mine, _mm256_shuffle_epi32(others, _MM_SHUFFLE(0, 3, 2, 1))));
    const __m256i two = _mm256_or_si256(
        _mm256_cmpeq_epi32(mine, _mm256_shuffle_epi32(others, _MM_SHUFFLE(1, 0, 3, 2))),
        _mm256_cmpeq_epi32(mine, _mm256_shuffle_epi32(others, _MM_SHUFFLE(2, 1, 0, 3))));
    return _mm256_or_si256(one, two);
  };
  const __m256i equal = _mm256_or_si256(equal_to(theirs), equal_to(exchanged));
  return static_cast<unsigned>(_mm256_movemask_ps(_mm256_castsi256_ps(equal)));
}

}  // namespace

// Merges to the end of one array: its last block may be a part of one.
MergePosition IntersectBlocksAvx2(const std::int32_t* a, unsigned a_count, const std::int32_t* b,
                                  unsigned b_count, std::int32_t* out) {
  MergePosition at{0, 0, 0};
  while (at.i + 8 <= a_count && at.j + 8 <= b_count) {
    const __m256i mine = Load(a + at.i);
    at.count += StoreChosen(out + at.count, mine, LanesAmong(mine, Load(b + at.j)));
    const std::int32_t a_end = a[at.i + 7];
    const std::int32_t b_end = b[at.j + 7];
    at.i += 8u * static_cast<unsigned>(a_end <= b_end);
    at.j += 8u * static_cast<unsigned>(b_end <= a_end);
  }
  while (at.i < a_count && at.j < b_count) {
    const unsigned a_lanes = LanesOf(a_count - at.i);
    const unsigned b_lanes = LanesOf(b_count - at.j);
    const __m256i mine = LoadPart(a + at.i, a_lanes);
    const unsigned common = LanesAmong(mine, LoadPart(b + at.j, b_lanes)) & ((1u << a_lanes) - 1);
    at.count += StoreChosen(out + at.count, mine, common);
    const std::int32_t a_end = a[at.i + a_lanes - 1];
    const std::int32_t b_end = b[at.j + b_lanes - 1];
    at.i += a_end <= b_end ? a_lanes : 0;
    at.j += b_end <= a_end ? b_lanes : 0;
  }
  return at;
}

}  // namespace kiv::kernels
