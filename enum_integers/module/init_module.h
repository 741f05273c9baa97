#pragma once

#include "framework/base/export.h"

class KivOmbiModule;
class KivOmbiModuleManager;

// Sets KivOmbEnumInteger::sMAX_CARD to 1024.
KIV_EXPORT void InitEnumIntegers();

// Registers the module: opens the two modules that it builds on and adds them to `module`, makes
// and adds the descriptor of the enumerated integer, calls InitEnumIntegers and adds the operators
// in the order of their table. 1 at the end; 0 for a null argument, and as soon as a module cannot
// be opened. Nothing is undone then.
extern "C" KIV_EXPORT int InitModule(KivOmbiModule* module, KivOmbiModuleManager* manager);
