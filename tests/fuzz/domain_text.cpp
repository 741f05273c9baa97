// Reads enumerated domains from any text, one after another into the same object. Whatever comes is
// a domain that keeps its own rules, and comes back from its text as it was.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "enum_integers/domain/enum_integer.h"
#include "enum_integers/module/init_module.h"

namespace {

void Require(bool condition) {
  if (!condition) std::abort();
}

void RequireSoundDomain(const KivOmbEnumInteger& domain) {
  Require(domain.Count() <= KivOmbEnumInteger::sMAX_CARD);
  for (unsigned i = 1; i < domain.Count(); ++i) {
    Require(domain.GetValue(i - 1) < domain.GetValue(i));
  }
  Require(domain.CheckAny() + domain.CheckNil() == (domain.Count() == 0 ? 1 : 0));
}

std::string Text(const KivOmbEnumInteger& domain) {
  Kivostrstream out;
  domain.PrintOn(out);
  return out.Str();
}

void RequireRoundTrip(const KivOmbEnumInteger& domain) {
  const std::string text = Text(domain);
  Kivistrstream in(text);
  KivOmbEnumInteger copy;
  copy.InputValue(in);
  Require(in.State() == Kivpstream::kGood && in.Position() == text.size());
  Require(Text(copy) == text);
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
  InitEnumIntegers();
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Kivistrstream in(std::string(data, data + size));
  KivOmbEnumInteger domain;
  for (std::size_t before = size + 1; before != in.Position();) {
    before = in.Position();
    domain.InputValue(in);
    Require(before <= in.Position() && in.Position() <= size);
    RequireSoundDomain(domain);
    RequireRoundTrip(domain);
  }
  // It stopped at what is no value, or at the end.
  Require((in.State() & Kivpstream::kFailure) != 0);
  return 0;
}
