// Reads enumerated domains from any bytes, as new objects and into given ones in turn. Whatever
// comes is a domain that keeps its own rules, and comes back from a stream as it was.

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <set>
#include <sstream>
#include <string>

#include "enum_integers/domain/enum_integer.h"
#include "enum_integers/module/init_module.h"
#include "framework/utilities/object_stream.h"

namespace {

void Require(bool condition) {
  if (!condition) std::abort();
}

// How many domains are read at most.
constexpr int kItems = 64;

void RequireSoundDomain(const KivOmbEnumInteger& domain) {
  Require(domain.Count() <= KivOmbEnumInteger::sMAX_CARD);
  for (unsigned i = 1; i < domain.Count(); ++i)
    Require(domain.GetValue(i - 1) < domain.GetValue(i));
  // A flag that no domain writes is kept, and names neither state.
  Require(domain.CheckAny() + domain.CheckNil() <= (domain.Count() == 0 ? 1 : 0));
}

bool AreEqual(const KivOmbEnumInteger& a, const KivOmbEnumInteger& b) {
  if (a.Count() != b.Count() || a.CheckAny() != b.CheckAny()) return false;
  for (unsigned i = 0; i < a.Count(); ++i) {
    if (a.GetValue(i) != b.GetValue(i)) return false;
  }
  return true;
}

// A set that was read has no leftover flag of Any, so its record reads back as the same set.
void RequireRoundTrip(const KivOmbEnumInteger& domain) {
  std::stringstream bytes;
  Kivopstream out(bytes);
  KivOmbEnumInteger::writeRef(out, domain);
  Kivipstream in(bytes);
  KivOmbEnumInteger copy;
  KivOmbEnumInteger::readRef(in, copy);
  Require(in.State() == Kivpstream::kGood && in.Remaining() == 0);
  Require(AreEqual(copy, domain));
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
  InitEnumIntegers();
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::istringstream bytes(std::string(data, data + size));
  Kivipstream in(bytes);
  std::array<KivOmbEnumInteger, 4> targets;
  std::set<KivOmbEnumInteger*> domains;
  for (int item = 0; item < kItems && in.Remaining() > 0; ++item) {
    const std::size_t before = in.Remaining();
    KivOmbEnumInteger* domain = &targets[static_cast<std::size_t>(item / 4) % targets.size()];
    if (item % 4 == 3) {
      KivOmbEnumInteger::readRef(in, *domain);
    } else {
      KivOmbEnumInteger::readPtr(in, domain);
    }
    if (domain != nullptr) domains.insert(domain);
    Require(in.Remaining() < before);
  }
  for (KivOmbEnumInteger* const domain : domains) {
    RequireSoundDomain(*domain);
    RequireRoundTrip(*domain);
  }
  for (KivOmbEnumInteger& target : targets) domains.erase(&target);
  for (KivOmbEnumInteger* const domain : domains) delete domain;
  return 0;
}
