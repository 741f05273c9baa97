#include "enum_integers/module/init_module.h"

#include "enum_integers/domain/enum_integer.h"
#include "enum_integers/module/operator_table.h"
#include "framework/calculator/module_manager.h"

void InitEnumIntegers() { KivOmbEnumInteger::sMAX_CARD = 1024; }

int InitModule(KivOmbiModule* module, KivOmbiModuleManager* manager) {
  if (module == nullptr || manager == nullptr) return 0;
  for (const char* const name : {"KivOmbAbstractTypes", "KivOmbNumbers"}) {
    KivOmbiModule* const prerequisite = manager->OpenModule(name);
    if (prerequisite == nullptr) return 0;
    module->AddLoadedModule(prerequisite);
  }
  module->AddObjectDescriptor(KivOmbEnumInteger::MakeDescriptor());
  InitEnumIntegers();
  for (const kiv::OperatorRow& row : kiv::OperatorTable()) {
    module->AddObjectDescriptor(kiv::CreateOperator(row));
  }
  return 1;
}
