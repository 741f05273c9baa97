#include "framework/calculator/module_manager.h"

#include <dlfcn.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <string>
#include <thread>
#include <vector>

namespace {

class ModuleManager : public testing::Test {
 protected:
  void SetUp() override { setenv("KIV_MODULE_PATH", BROKEN_MODULES, 1); }
  void TearDown() override { unsetenv("KIV_MODULE_PATH"); }

  KivOmbiModuleManager manager_;
};

bool Contains(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}

TEST_F(ModuleManager, OpensAModuleWithThoseItBuildsOn) {
  KivOmbiModule* module = manager_.OpenModule("KivOmbEnumIntegers");
  ASSERT_NE(module, nullptr) << manager_.GetError();
  EXPECT_EQ(module->GetName(), "KivOmbEnumIntegers");
  EXPECT_EQ(std::filesystem::path(module->GetFile()).filename(), "libKivOmbEnumIntegers.so");
  std::vector<std::string> names;
  for (const KivOmbiModule* opened : manager_.GetModules()) names.push_back(opened->GetName());
  EXPECT_EQ(names, (std::vector<std::string>{"KivOmbAbstractTypes", "KivOmbNumbers",
                                             "KivOmbEnumIntegers"}));
}

TEST_F(ModuleManager, InitialisesAModuleOncePerProcess) {
  KivOmbiModule* first = manager_.OpenModule("KivOmbEnumIntegers");
  ASSERT_NE(first, nullptr);
  const std::size_t descriptors = first->GetObjectDescriptors().size();
  KivOmbiModuleManager other;
  EXPECT_EQ(other.OpenModule("KivOmbEnumIntegers"), first);
  EXPECT_EQ(manager_.OpenModule("KivOmbEnumIntegers"), first);
  EXPECT_EQ(first->GetObjectDescriptors().size(), descriptors);
  EXPECT_EQ(other.GetModules().size(), 3u);
}

TEST_F(ModuleManager, ThreadsShareTheModules) {
  std::vector<KivOmbiModule*> opened(8);
  std::vector<std::thread> threads;
  for (KivOmbiModule*& module : opened) {
    threads.emplace_back([&module] {
      KivOmbiModuleManager manager;
      module = manager.OpenModule("KivOmbNumbers");
    });
  }
  for (std::thread& thread : threads) thread.join();
  for (KivOmbiModule* module : opened) EXPECT_EQ(module, opened.front());
  EXPECT_NE(opened.front(), nullptr);
}

TEST_F(ModuleManager, TakesALibraryThatIsInTheProcessAlready) {
  // The abstract types are here as a dependency of this program.
  void* here = dlopen("libKivOmbAbstractTypes.so", RTLD_NOW | RTLD_NOLOAD);
  ASSERT_NE(here, nullptr);
  ASSERT_NE(manager_.OpenModule("KivOmbAbstractTypes"), nullptr);
  void* again = dlopen(manager_.GetModules().front()->GetFile().c_str(), RTLD_NOW | RTLD_NOLOAD);
  EXPECT_EQ(here, again);
}

TEST_F(ModuleManager, SaysWhereItLookedForAMissingModule) {
  EXPECT_EQ(manager_.OpenModule("NobodyWroteThis"), nullptr);
  EXPECT_TRUE(Contains(manager_.GetError(), "module NobodyWroteThis (libNobodyWroteThis.so)"))
      << manager_.GetError();
  EXPECT_TRUE(Contains(manager_.GetError(), BROKEN_MODULES)) << manager_.GetError();
}

TEST_F(ModuleManager, SaysWhyTheLoaderRefuses) {
  EXPECT_EQ(manager_.OpenModule("NoLibrary"), nullptr);
  EXPECT_TRUE(Contains(manager_.GetError(), BROKEN_MODULES "/libNoLibrary.so"))
      << manager_.GetError();
  EXPECT_TRUE(Contains(manager_.GetError(), "invalid ELF header") ||
              Contains(manager_.GetError(), "file too short"))
      << manager_.GetError();
}

TEST_F(ModuleManager, AnEntryPointOfADependencyIsNotTheModulesOwn) {
  EXPECT_EQ(manager_.OpenModule("NoEntryPoint"), nullptr);
  EXPECT_TRUE(Contains(manager_.GetError(), "does not define InitModule")) << manager_.GetError();
}

TEST_F(ModuleManager, AModuleMayRefuseToStart) {
  EXPECT_EQ(manager_.OpenModule("RefusesToStart"), nullptr);
  EXPECT_TRUE(Contains(manager_.GetError(), "its initialisation stopped")) << manager_.GetError();
  EXPECT_TRUE(manager_.GetModules().empty());
}

TEST_F(ModuleManager, AMissingPrerequisiteIsNamed) {
  EXPECT_EQ(manager_.OpenModule("BuildsOnNothing"), nullptr);
  EXPECT_TRUE(Contains(manager_.GetError(), "module BuildsOnNothing")) << manager_.GetError();
  EXPECT_TRUE(Contains(manager_.GetError(), "module NobodyWroteThis")) << manager_.GetError();
}

TEST_F(ModuleManager, AModuleThatBuildsOnItselfIsRefused) {
  EXPECT_EQ(manager_.OpenModule("BuildsOnItself"), nullptr);
  EXPECT_TRUE(Contains(manager_.GetError(), "it builds on itself")) << manager_.GetError();
}

TEST_F(ModuleManager, ANameThatLeadsElsewhereIsRefused) {
  for (const char* name : {"", "../lib/KivOmbNumbers", "/tmp/X"}) {
    EXPECT_EQ(manager_.OpenModule(name), nullptr);
    EXPECT_TRUE(Contains(manager_.GetError(), "a module's name")) << manager_.GetError();
  }
}

TEST_F(ModuleManager, TheWorkingDirectoryIsNeverSearched) {
  const auto before = std::filesystem::current_path();
  std::filesystem::current_path(BROKEN_MODULES);
  for (const char* path : {"", ".", ":", "./"}) {
    setenv("KIV_MODULE_PATH", path, 1);
    EXPECT_EQ(manager_.OpenModule("InTheWorkingDirectory"), nullptr);
    EXPECT_TRUE(Contains(manager_.GetError(), "no such file")) << manager_.GetError();
  }
  std::filesystem::current_path(before);
}

}  // namespace
