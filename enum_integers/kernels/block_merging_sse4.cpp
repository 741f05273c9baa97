// Merges by blocks of four values. Compiled for SSE 4.1.
//
// Intersection: every value of a block is compared with every value of the other block, by four
// rotations; the block with the lesser end is done then, because all that follows in the other
// array is greater. Each pair of equal values shares exactly one pair of blocks, so it is found
// once, and in ascending order. (B. Schlegel, T. Willhalm and W. Lehner, "Fast Sorted-Set
// Intersection using SIMD Instructions", 2011.)
//
// Union: a network of minima and maxima merges a block with the four greatest values so far. (H.
// Inoue, T. Moriyama, H. Komatsu and T. Nakatani, "AA-Sort", 2007.) The next block is always taken
// from the array with the lesser head, so that the four least of the eight precede all that was not
// read. Of these, values equal to their predecessor are dropped.

#include <smmintrin.h>

#include "enum_integers/kernels/block_merging.h"

namespace kiv::kernels {
namespace {

// For every choice of lanes, a bit each: the bytes that move the chosen lanes to the front.
struct PackTable {
  alignas(16) std::uint8_t bytes[16][16];
};

constexpr PackTable MakePackTable() {
  PackTable table{};
  for (unsigned mask = 0; mask < 16; ++mask) {
    unsigned to = 0;
    for (unsigned lane = 0; lane < 4; ++lane) {
      if ((mask >> lane & 1u) == 0) continue;
      for (unsigned byte = 0; byte < 4; ++byte) {
        table.bytes[mask][to++] = static_cast<std::uint8_t>(4 * lane + byte);
      }
    }
    while (to < 16) table.bytes[mask][to++] = 0x80;
  }
  return table;
}

constexpr PackTable kPack = MakePackTable();
constexpr std::uint8_t kChosen[16] = {0, 1, 1, 2, 1, 2, 2, 3, 1, 2, 2, 3, 2, 3, 3, 4};

__m128i Load(const std::int32_t* from) {
  return _mm_loadu_si128(reinterpret_cast<const __m128i*>(from));
}

void Store(std::int32_t* to, __m128i block) {
  _mm_storeu_si128(reinterpret_cast<__m128i*>(to), block);
}

// Writes the chosen lanes; returns how many they are.
unsigned StoreChosen(std::int32_t* to, __m128i block, unsigned mask) {
  Store(to, _mm_shuffle_epi8(block,
                             _mm_load_si128(reinterpret_cast<const __m128i*>(kPack.bytes[mask]))));
  return kChosen[mask];
}

unsigned MaskOf(__m128i lanes) {
  return static_cast<unsigned>(_mm_movemask_ps(_mm_castsi128_ps(lanes)));
}

// Both blocks are ascending; afterwards `low` holds the four least of the eight values and `high`
// the others, both ascending. A bitonic network of three stages.
void MergeFour(__m128i& low, __m128i& high) {
  const __m128i reversed = _mm_shuffle_epi32(high, _MM_SHUFFLE(0, 1, 2, 3));
  __m128i least = _mm_min_epi32(low, reversed);
  __m128i greatest = _mm_max_epi32(low, reversed);
  // Each half is bitonic; sort both at once, by distance two and then one.
  __m128i a = _mm_unpacklo_epi64(least, greatest);
  __m128i b = _mm_unpackhi_epi64(least, greatest);
  __m128i x = _mm_min_epi32(a, b);
  __m128i y = _mm_max_epi32(a, b);
  // Now x = l0 l1 h0 h1, y = l2 l3 h2 h3.
  a = _mm_castps_si128(_mm_shuffle_ps(_mm_castsi128_ps(x), _mm_castsi128_ps(y),
                                      _MM_SHUFFLE(2, 0, 2, 0)));  // l0 h0 l2 h2
  b = _mm_castps_si128(_mm_shuffle_ps(_mm_castsi128_ps(x), _mm_castsi128_ps(y),
                                      _MM_SHUFFLE(3, 1, 3, 1)));  // l1 h1 l3 h3
  x = _mm_min_epi32(a, b);
  y = _mm_max_epi32(a, b);
  least = _mm_unpacklo_epi32(x, y);     // l0 l1 h0 h1
  greatest = _mm_unpackhi_epi32(x, y);  // l2 l3 h2 h3
  low = _mm_unpacklo_epi64(least, greatest);
  high = _mm_unpackhi_epi64(least, greatest);
}

}  // namespace

MergePosition IntersectBlocksSse4(const std::int32_t* a, unsigned a_count, const std::int32_t* b,
                                  unsigned b_count, std::int32_t* out) {
  MergePosition at{0, 0, 0};
  while (at.i + 4 <= a_count && at.j + 4 <= b_count) {
    const __m128i mine = Load(a + at.i);
    const __m128i theirs = Load(b + at.j);
    const __m128i equal = _mm_or_si128(
        _mm_or_si128(_mm_cmpeq_epi32(mine, theirs),
                     _mm_cmpeq_epi32(mine, _mm_shuffle_epi32(theirs, _MM_SHUFFLE(0, 3, 2, 1)))),
        _mm_or_si128(_mm_cmpeq_epi32(mine, _mm_shuffle_epi32(theirs, _MM_SHUFFLE(1, 0, 3, 2))),
                     _mm_cmpeq_epi32(mine, _mm_shuffle_epi32(theirs, _MM_SHUFFLE(2, 1, 0, 3)))));
    at.count += StoreChosen(out + at.count, mine, MaskOf(equal));
    const std::int32_t a_end = a[at.i + 3];
    const std::int32_t b_end = b[at.j + 3];
    // GCC 12 makes a branch of the first step. Without one nothing was gained on fresh data, where
    // it is hard to predict, as every step then waits for the loads of the one before.
    at.i += 4u * static_cast<unsigned>(a_end <= b_end);
    at.j += 4u * static_cast<unsigned>(b_end <= a_end);
  }
  return at;
}

MergePosition UniteBlocksSse4(const std::int32_t* a, unsigned a_count, const std::int32_t* b,
                              unsigned b_count, std::int32_t* out, std::int32_t* pending) {
  MergePosition at{4, 4, 0};
  __m128i low = Load(a);
  __m128i high = Load(b);
  MergeFour(low, high);
  // Something that the first value is not equal to.
  __m128i written = _mm_andnot_si128(low, _mm_set1_epi32(-1));
  written = _mm_shuffle_epi32(written, 0);
  for (;;) {
    const __m128i before = _mm_alignr_epi8(low, written, 12);
    const unsigned repeated = MaskOf(_mm_cmpeq_epi32(before, low));
    at.count += StoreChosen(out + at.count, low, repeated ^ 15u);
    written = low;
    if (at.i + 4 > a_count || at.j + 4 > b_count) break;
    // By arithmetic, not by branches: which head is the lesser cannot be predicted.
    const __m128i next_a = Load(a + at.i);
    const __m128i next_b = Load(b + at.j);
    const __m128i takes_b =
        _mm_cmpgt_epi32(_mm_shuffle_epi32(next_a, 0), _mm_shuffle_epi32(next_b, 0));
    low = _mm_blendv_epi8(next_a, next_b, takes_b);
    const auto step_b = 4u & static_cast<unsigned>(_mm_cvtsi128_si32(takes_b));
    at.i += 4u - step_b;
    at.j += step_b;
    MergeFour(low, high);
  }
  Store(pending, high);
  return at;
}

}  // namespace kiv::kernels
