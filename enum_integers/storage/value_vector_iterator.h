#pragma once

#include "framework/base/export.h"
#include "framework/intervals/sub_int_base.h"

class KivSVectorImp_SubIntBase;

// Walks over a range of a vector's values. The range is fixed when the walk begins: values added
// later are not met, and positions are not checked against the vector.
class KIV_EXPORT KivSVectorIteratorImp_SubIntBase {
 public:
  // All values that the vector holds now.
  explicit KivSVectorIteratorImp_SubIntBase(const KivSVectorImp_SubIntBase& vector);
  // The positions `start` .. `end` - 1.
  KivSVectorIteratorImp_SubIntBase(const KivSVectorImp_SubIntBase& vector, unsigned start,
                                   unsigned end) noexcept;

  // 1 while there is a value under the cursor; 0 for a vector that is not good.
  operator int() const;
  const SubIntBase& Current() const;
  // The value under the cursor, which then moves on.
  const SubIntBase& operator++(int);
  // Moves the cursor on and gives the slot there, which may be the end.
  const SubIntBase& operator++();
  void Restart() noexcept;
  void Restart(unsigned start, unsigned end) noexcept;

 private:
  const KivSVectorImp_SubIntBase* vector_;
  unsigned current_;
  unsigned start_;
  unsigned end_;
};
