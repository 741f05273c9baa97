#include "tools/kiv/domain_object.h"

#include <new>

namespace kiv {

DomainObject::DomainObject(const KivOmbiObjectDescriptor& kind)
    : object_(nullptr, {&kind, ::operator new(static_cast<std::size_t>(kind.GetObjectSize()))}) {
  // A kind of which there are variables has domains.
  object_.reset(static_cast<KivOmbiAny*>(kind.ConstructObject(object_.get_deleter().memory)));
}

void DomainObject::Destroy::operator()(KivOmbiAny* object) const {
  kind->DestroyObject(object);
  ::operator delete(memory);
}

}  // namespace kiv
