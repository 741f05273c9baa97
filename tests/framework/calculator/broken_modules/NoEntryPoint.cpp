// No module: it defines no InitModule, but depends on a library that does.
extern "C" __attribute__((visibility("default"))) int NotAnEntryPoint() { return 1; }
