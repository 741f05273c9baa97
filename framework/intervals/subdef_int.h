#pragma once

#include "framework/intervals/sub_int_base.h"

// A closed interval of integers; empty when its lower bound lies above its upper one.
class SubdefInt {
 public:
  constexpr SubdefInt(SubIntBase lower, SubIntBase upper) noexcept : lower_(lower), upper_(upper) {}

  constexpr SubIntBase GetLower() const noexcept { return lower_; }
  constexpr SubIntBase GetUpper() const noexcept { return upper_; }
  constexpr bool IsEmpty() const noexcept { return lower_ > upper_; }

 private:
  SubIntBase lower_;
  SubIntBase upper_;
};
