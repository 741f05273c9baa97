#include "tests/enum_integers/support/domains.h"

#include <sstream>

namespace kiv::test {

KivOmbEnumInteger Set(std::initializer_list<std::int32_t> values) {
  KivOmbEnumInteger set = NilSet();
  for (const std::int32_t v : values) set.SimpleInsert(v);
  return set;
}

KivOmbEnumInteger SetLeftAny(std::initializer_list<std::int32_t> values) {
  KivOmbEnumInteger set;
  for (const std::int32_t v : values) set.SimpleInsert(v);
  return set;
}

KivOmbEnumInteger Range(std::int32_t lower, std::int32_t upper) {
  KivOmbEnumInteger set = NilSet();
  for (std::int64_t v = lower; v <= upper; ++v) set.SimpleInsert(static_cast<std::int32_t>(v));
  return set;
}

KivOmbEnumInteger NilSet() {
  KivOmbEnumInteger set;
  set.Nil();
  return set;
}

KivOmbSingleInteger NilSingle() {
  KivOmbSingleInteger single;
  single.Nil();
  return single;
}

KivOmbIntervalInteger Interval(std::int32_t lower, std::int32_t upper) {
  return KivOmbIntervalInteger(SubdefInt(lower, upper));
}

KivOmbIntervalInteger NilInterval() {
  KivOmbIntervalInteger interval;
  interval.Nil();
  return interval;
}

std::string Text(const KivOmbiObject& object) {
  Kivostrstream out;
  object.PrintOn(out);
  return out.Str();
}

int Flag(const KivOmbEnumInteger& domain) {
  std::stringstream bytes;
  Kivopstream out(bytes);
  domain.Write(out);
  Kivipstream in(bytes);
  std::int32_t flag = -1;
  in >> flag;
  return flag;
}

}  // namespace kiv::test
