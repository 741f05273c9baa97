// The binary form of a domain, and the names under which streams build the module's classes.

#include <algorithm>

#include "enum_integers/domain/enum_integer.h"

namespace {

const KivStreamableClass domain_class(KivOmbEnumInteger::CastableIdent, KivOmbEnumInteger::Build,
                                      1);
const KivStreamableClass descriptor_class(KivOmbEnumInteger::Descriptor::CastableIdent,
                                          KivOmbEnumInteger::Descriptor::Build, 1);

bool HasFailed(const Kivipstream& in) {
  return (in.State() & (Kivpstream::kFailure | Kivpstream::kBad)) != 0;
}

}  // namespace

KivStreamable* KivOmbEnumInteger::Build(KivStreamable* object) {
  return object != nullptr ? object : new KivOmbEnumInteger(kKivStreamableInit);
}

void KivOmbEnumInteger::Write(Kivopstream& out) const {
  KivStreamable::Write(out);
  out << std::int32_t{anyFlag} << std::uint32_t{Count()};
  for (unsigned i = 0; i < Count() && values.Good() != 0; ++i) out << GetValue(i);
}

// The flag counts before the values do: a record with the flag of Any reads as Any, whatever it
// lists. All values are consumed, whatever the stream's state was before. A count is not trusted:
// reading ends where the stream fails, and no more room is reserved than a domain can need or the
// rest of the stream could fill.
void KivOmbEnumInteger::Read(Kivipstream& in) {
  const int state_before = in.State();
  in.Clear();
  KivStreamable::Read(in);
  KivOmbEnumInteger& self = Writable();
  self.values.Flush();
  std::uint32_t count = 0;
  in >> self.anyFlag >> count;
  const std::size_t room = std::min<std::size_t>(count, in.Remaining() / sizeof(std::int32_t));
  self.values.Resize(std::min(static_cast<std::uint32_t>(room), sMAX_CARD));
  for (std::uint32_t i = 0; i < count; ++i) {
    std::int32_t v = 0;
    in >> v;
    if (HasFailed(in)) break;
    Insert(v);
  }
  in.Clear(state_before | in.State());
}

Kivipstream& KivOmbEnumInteger::readPtr(Kivipstream& in, KivOmbEnumInteger*& object) {
  object = static_cast<KivOmbEnumInteger*>(in.ReadObjectPointer(CastableIdent));
  return in;
}

Kivipstream& KivOmbEnumInteger::readRef(Kivipstream& in, KivOmbEnumInteger& object) {
  KivStreamable* target = &object;
  in.ReadObject(target, CastableIdent);
  return in;
}

Kivopstream& KivOmbEnumInteger::writePtr(Kivopstream& out, const KivOmbEnumInteger* object) {
  out.WriteObjectPointer(object);
  return out;
}

Kivopstream& KivOmbEnumInteger::writeRef(Kivopstream& out, const KivOmbEnumInteger& object) {
  out.WriteObject(&object);
  return out;
}
