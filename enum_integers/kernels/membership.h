#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>

#include "enum_integers/kernels/bit_window.h"
#include "enum_integers/kernels/candidate_table.h"
#include "enum_integers/kernels/search.h"
#include "enum_integers/kernels/values.h"

namespace kiv::kernels {

// Calls `use` with a function that tells quickly whether a value is among `values`, for who asks
// about as often as there are values or more.
template <class Use>
auto WithMembership(Values values, Use use) {
  constexpr std::size_t kFewValues = 4;
  if (values.size() <= kFewValues) {
    return use([values](std::int32_t v) {
      bool is_there = false;
      for (const std::int32_t w : values) is_there |= w == v;
      return is_there;
    });
  }
  constexpr std::uint64_t kWordsPerValue = 2;
  if (BitWindow::Fits(values.front(), values.back()) &&
      BitWindow::CountWords(values.front(), values.back()) <= kWordsPerValue * values.size()) {
    const BitWindow window(values);
    return use(window.Membership());
  }
  // A table of more would need memory.
  constexpr std::size_t kMostTabled = 1024;
  if (values.size() > kMostTabled) {
    return use([values](std::int32_t v) { return Contains(values, v); });
  }
  // Wide enough that most questions about what is not there end at the first slot.
  const std::size_t room = std::min(4 * values.size(), kMostTabled);
  CandidateTable table(room, static_cast<std::uint32_t>(room));
  for (const std::int32_t v : values) table.Insert(v);
  return use(table.Membership());
}

}  // namespace kiv::kernels
