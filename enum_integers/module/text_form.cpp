// The text form of a domain.

#include "enum_integers/domain/enum_integer.h"

namespace {

// The infinities keep their leading blank wherever they stand.
void PrintElement(Kivostrstream& out, std::int32_t value) {
  if (value >= KivOmbSingleInteger::sNC_INT_MAX) {
    out << " Max";
  } else if (value > KivOmbSingleInteger::sNC_INT_MIN) {
    out << value;
  } else {
    out << " Min";
  }
}

}  // namespace

void KivOmbEnumInteger::PrintOn(Kivostrstream& out) const {
  if (CheckNil()) {
    out << "Nil";
  } else if (CheckAny()) {
    out << "Any";
  } else if (CheckDefined()) {
    PrintElement(out, GetLowerBound());
  } else {
    const char* separator = "{ ";
    for (unsigned i = 0; i < Count(); ++i) {
      out << separator;
      PrintElement(out, GetValue(i));
      separator = ", ";
    }
    out << " }";
  }
}
