#include "framework/calculator/module_manager.h"

extern "C" KIV_EXPORT int InitModule(KivOmbiModule*, KivOmbiModuleManager*) { return 0; }
