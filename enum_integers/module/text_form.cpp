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

void ReadSeparator(Kivistrstream& in, char expected) {
  char separator = '\0';
  in >> ws >> separator;
  if (separator != expected) in.Clear(Kivpstream::kFailure);
}

// Reads what follows the opening brace.
void ReadSet(Kivistrstream& in, KivOmbEnumInteger& domain) {
  domain.Nil();
  char separator = '\0';
  do {
    const std::int32_t v = GetSIValue(in);
    // As for insertion, a full domain takes not even its own values.
    if (domain.Count() >= KivOmbEnumInteger::sMAX_CARD) return domain.Any();
    if (domain.SimpleInsert(v) == 0) domain.Nil();
    in >> ws >> separator;
  } while (separator == ',');
  if (separator == '}') return;
  in.Clear(Kivpstream::kFailure);
  domain.Nil();
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

void KivOmbEnumInteger::InputValue(Kivistrstream& in) {
  // The cap has no say in a single value, so this is no SetExactValue.
  const auto become = [this](std::int32_t v) {
    if (CheckDefined() && Contains(v) && anyFlag == 0) return;
    Nil();
    SimpleInsert(v);
  };
  switch (CheckNumString(in)) {
    case kKivInterval: {
      const std::int32_t lower = GetSIValue(in);
      ReadSeparator(in, ',');
      const std::int32_t upper = GetSIValue(in);
      ReadSeparator(in, ']');
      // In 32 bits the size of the widest interval is 0, which is below any cap.
      const std::uint32_t size =
          static_cast<std::uint32_t>(upper) - static_cast<std::uint32_t>(lower) + 1u;
      if (lower > upper) return SetNilValue();
      if (size >= sMAX_CARD) return Any();
      return size == 0 ? SetNilValue() : BecomeRange(lower, upper);
    }
    case kKivMin:
    case kKivMinusInfinity:
      return become(KivOmbSingleInteger::sNC_INT_MIN);
    case kKivMax:
    case kKivPlusInfinity:
      return become(KivOmbSingleInteger::sNC_INT_MAX);
    case kKivAny:
      return Any();
    case kKivNil:
      return SetNilValue();
    case kKivSet:
      return ReadSet(in, *this);
    default: {
      std::int32_t v = 0;
      in >> v;
      return become(v);
    }
  }
}
