// The split of a domain for search.

#include "enum_integers/domain/enum_integer.h"

namespace {

// The positions `first` .. `end` - 1.
struct Positions {
  unsigned first;
  unsigned end;
};

struct Split {
  Positions handed_over;
  Positions kept;
};

}  // namespace

void KivOmbEnumInteger::Bisect(KivOmbiObject& other, ValueSelection selection) {
  const unsigned n = Count();
  if (n == 0) return;
  KivOmbEnumInteger* const receiver = DynamicCast(&other);
  if (receiver == nullptr) return SetNilValue();

  const unsigned middle = (n - 1) / 2 + 1;
  const auto split = [=]() -> Split {
    switch (selection) {
      case kLowerHalf:
        return {{0, middle}, {middle, n}};
      case kUpperHalf:
        return {{middle, n}, {0, middle}};
      case kSmallest:
        return {{0, 1}, {1, n}};
      case kGreatest:
        return {{n - 1, n}, {0, n - 1}};
    }
    return {{0, 0}, {0, 0}};
  }();
  // Only an unknown selection leaves both parts empty.
  if (split.handed_over.end == 0 && split.kept.end == 0) return SetNilValue();

  receiver->Nil();
  for (unsigned i = split.handed_over.first; i < split.handed_over.end; ++i) {
    receiver->Writable().values.Add(values[i]);
  }
  // A domain that keeps nothing is left to its leftover flag.
  Keep(split.kept.first, split.kept.end);
}
