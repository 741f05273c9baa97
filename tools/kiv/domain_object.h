#pragma once

#include <memory>

#include "framework/abstract_types/any.h"
#include "framework/calculator/descriptor.h"

namespace kiv {

// A domain of a kind known by its descriptor alone, Any at first. Movable; not null unless moved
// from.
class DomainObject {
 public:
  // Throws std::bad_alloc.
  explicit DomainObject(const KivOmbiObjectDescriptor& kind);

  KivOmbiAny& operator*() const { return *object_; }
  KivOmbiAny* operator->() const { return object_.get(); }

 private:
  struct Destroy {
    const KivOmbiObjectDescriptor* kind;
    void* memory;
    void operator()(KivOmbiAny* object) const;
  };

  std::unique_ptr<KivOmbiAny, Destroy> object_;
};

}  // namespace kiv
