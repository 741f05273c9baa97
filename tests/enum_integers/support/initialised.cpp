// Sets the cap before the tests of a binary run, as loading the module does.

#include <gtest/gtest.h>

#include "enum_integers/module/init_module.h"

namespace {

class InitialisedModule : public testing::Environment {
 public:
  void SetUp() override { InitEnumIntegers(); }
};

const testing::Environment* const environment =
    testing::AddGlobalTestEnvironment(new InitialisedModule);

}  // namespace
