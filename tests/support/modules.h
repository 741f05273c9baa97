#pragma once

#include <string_view>
#include <vector>

#include "framework/calculator/module_manager.h"
#include "framework/calculator/operator_table.h"

namespace kiv::test {

// Modules opened through a manager.
struct Modules {
  KivOmbiModuleManager manager;
  KivOmbiOperatorTable operators;
  std::vector<const KivOmbiObjectDescriptor*> kinds;  // that have domains

  // The kind of this display name; null when there is none.
  const KivOmbiObjectDescriptor* FindKind(std::string_view name) const;
};

// The modules of the build tree, opened at the first call. Throws std::runtime_error when one
// cannot be opened.
const Modules& OpenModules();

// Those, and one with a kind that none of them knows.
const Modules& OpenModulesAndForeign();

}  // namespace kiv::test
