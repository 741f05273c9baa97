#include "framework/calculator/module_manager.h"

extern "C" KIV_EXPORT int InitModule(KivOmbiModule*, KivOmbiModuleManager* manager) {
  return manager->OpenModule("BuildsOnItself") != nullptr;
}
