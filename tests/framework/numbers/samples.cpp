#include "tests/framework/numbers/samples.h"

#include <algorithm>

namespace kiv::test {

const char* const kKinds[3] = {"int", "interval int", "enum int"};

Sample RandomSample(std::mt19937_64& random, std::initializer_list<const char*> kinds) {
  constexpr int kEnd = 6;
  const auto pick = [&](int lower, int upper) {
    return std::uniform_int_distribution<int>(lower, upper)(random);
  };
  const char* kind = kinds.begin()[pick(0, static_cast<int>(kinds.size()) - 1)];
  const int state = pick(0, 19);
  if (state == 0) return {kind, Values{}};
  if (state <= 2) return {kind, std::nullopt};
  Values values{pick(-kEnd, kEnd)};
  if (kind != kKinds[0]) {
    for (int more = pick(0, 4); more > 0; --more) values.push_back(pick(-kEnd, kEnd));
  }
  std::ranges::sort(values);
  values.erase(std::ranges::unique(values).begin(), values.end());
  return {kind, values};
}

Values ValuesOf(const KivOmbiInteger& domain, int end) {
  Values values;
  for (int value = -end; value <= end; ++value) {
    if (domain.MayBe(value)) values.push_back(value);
  }
  return values;
}

}  // namespace kiv::test
