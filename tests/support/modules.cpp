#include "tests/support/modules.h"

#include <cstdlib>
#include <memory>
#include <stdexcept>

namespace kiv::test {

const KivOmbiObjectDescriptor* Modules::FindKind(std::string_view name) const {
  for (const auto* kind : kinds) {
    if (kind->GetName() == name) return kind;
  }
  return nullptr;
}

const Modules& OpenModules() {
  static const std::unique_ptr<const Modules> modules = [] {
    auto opened = std::make_unique<Modules>();
    setenv("KIV_MODULE_PATH", FOREIGN_MODULES, 1);
    for (const char* name : {"KivOmbEnumIntegers", "KivForeign"}) {
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
  }();
  return *modules;
}

}  // namespace kiv::test
