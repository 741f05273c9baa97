#include <algorithm>
#include <mutex>
#include <string>
#include <unordered_map>
#include <vector>

#include "framework/utilities/object_stream.h"

namespace {

class Registry {
 public:
  // Libraries register their classes while they are loaded, in an order that nobody controls. The
  // first of them makes the registry, inside its own construction, so the registry also ends last.
  static Registry& Get() {
    static Registry registry;
    return registry;
  }

  void Add(const KivStreamableClass* entry) {
    const std::lock_guard lock(mutex_);
    classes_[entry->GetName()].push_back(entry);
  }

  void Remove(const KivStreamableClass* entry) {
    const std::lock_guard lock(mutex_);
    const auto found = classes_.find(entry->GetName());
    std::erase(found->second, entry);
    if (found->second.empty()) classes_.erase(found);
  }

  const KivStreamableClass* Find(const std::string& name) {
    const std::lock_guard lock(mutex_);
    const auto found = classes_.find(name);
    return found == classes_.end() ? nullptr : found->second.back();
  }

 private:
  std::mutex mutex_;
  // The classes of a name in the order of their registration; no list is empty.
  std::unordered_map<std::string, std::vector<const KivStreamableClass*>> classes_;
};

}  // namespace

KivStreamableClass::KivStreamableClass(const char* name, KivStreamableBuilder builder, int version)
    : name_(name), builder_(builder), version_(version) {
  Registry::Get().Add(this);
}

KivStreamableClass::~KivStreamableClass() { Registry::Get().Remove(this); }

const KivStreamableClass* KivStreamableClass::Find(const std::string& name) {
  return Registry::Get().Find(name);
}
