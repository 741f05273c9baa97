#include "tests/support/modules.h"

#include <cstdlib>
#include <initializer_list>
#include <memory>
#include <stdexcept>

namespace kiv::test {

const KivOmbiObjectDescriptor* Modules::FindKind(std::string_view name) const {
  for (const auto* kind : kinds) {
    if (kind->GetName() == name) return kind;
  }
  return nullptr;
}

namespace {

std::unique_ptr<const Modules> Open(std::initializer_list<const char*> names) {
  auto opened = std::make_unique<Modules>();
  for (const char* name : names) {
    if (opened->manager.OpenModule(name) == nullptr) {
      throw std::runtime_error(opened->manager.GetError());
    }
  }
  for (const KivOmbiModule* module : opened->manager.GetModules()) {
    opened->operators.Add(*module);
    for (const auto* descriptor : module->GetObjectDescriptors()) {
      const bool is_domain =
          descriptor->GetObjectSize() > 0 && descriptor->GetNumberOfArguments() == 0;
      if (is_domain) opened->kinds.push_back(descriptor);
    }
  }
  return opened;
}

}  // namespace

const Modules& OpenModules() {
  static const std::unique_ptr<const Modules> modules = Open({"KivOmbEnumIntegers"});
  return *modules;
}

const Modules& OpenModulesAndForeign() {
  static const std::unique_ptr<const Modules> modules = [] {
    setenv("KIV_MODULE_PATH", FOREIGN_MODULES, 1);
    return Open({"KivOmbEnumIntegers", "KivForeign"});
  }();
  return *modules;
}

}  // namespace kiv::test
