#include "solver/constraints/value_bits.h"

#include <gtest/gtest.h>

#include "tests/solver/constraints/random_case.h"

namespace kiv::test {
namespace {

const KivOmbiConstraintDescriptor descriptor("kiv::test::BitProbe", 1, 0, false);

// Hands its argument to a test while it runs.
class BitProbe final : public KivOmbiConstraint {
 public:
  BitProbe(std::int64_t base, BitWords& bits)
      : KivOmbiConstraint(&descriptor), base_(base), bits_(bits) {}

  std::int64_t Filter(const KivOmbiObjectEnvironment& environment, std::int64_t) override {
    TakeBits(environment, 0, base_, bits_);
    return kKivAtFixpoint;
  }
  bool Holds(std::span<const std::int64_t>) const override { return true; }

 private:
  std::int64_t base_;
  BitWords& bits_;
};

TEST(ValueBits, AreTheValuesInTheWindow) {
  const Values words{-200, -65, -64, -63, -2, 0, 1, 62, 63, 64, 65, 127, 128, 129, 700};
  const std::uint64_t first = Seed(1);
  for (std::uint64_t seed = first; seed < first + Times(5000); ++seed) {
    Generator random(seed);
    const auto* kind = PickOf(random, IntegerKinds());
    const Values pool = OneIn(random, 2) ? words : Range(-70, 200);
    const Values values =
        OneIn(random, 20)
            ? Values{}
            : RandomValues(random, *kind, pool, static_cast<std::size_t>(Pick(random, 1, 90)));
    const int base = Pick(random, -220, 150);
    BitWords bits(static_cast<std::size_t>(Pick(random, 1, 4)), BitWord{0x5A5A5A5A5A5A5A5A});
    KivOmbNetwork network;
    const auto x = Declare(network, {kind, values});
    network.Emplace<BitProbe>(std::span(&x, 1), base, bits);
    network.Propagate();
    const auto& domain = static_cast<const KivOmbiInteger&>(network.GetDomain(x));
    for (std::size_t place = 0; place < bits.size() * kBitsPerWord; ++place) {
      const bool expected = values.empty() || domain.MayBe(base + static_cast<std::int32_t>(place));
      ASSERT_EQ(HasBit(bits, place), expected) << Replay(seed);
    }
  }
}

}  // namespace
}  // namespace kiv::test
