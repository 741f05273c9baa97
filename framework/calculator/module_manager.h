#pragma once

#include <memory>
#include <string>
#include <vector>

#include "framework/base/export.h"
#include "framework/base/kiv_string.h"
#include "framework/calculator/descriptor.h"

// A loaded library: the kinds and operators that it registered and the modules that it builds on.
// Objects described here live as long as the process.
class KIV_EXPORT KivOmbiModule {
 public:
  explicit KivOmbiModule(KivString name, std::string file = {});
  KivOmbiModule(const KivOmbiModule&) = delete;
  KivOmbiModule& operator=(const KivOmbiModule&) = delete;

  // Neither keeps a null.
  void AddLoadedModule(KivOmbiModule* module);
  void AddObjectDescriptor(const KivOmbiObjectDescriptor* descriptor);

  const KivString& GetName() const noexcept { return name_; }
  // The file the module was loaded from; empty for one that was made by hand.
  const std::string& GetFile() const noexcept { return file_; }
  const std::vector<KivOmbiModule*>& GetLoadedModules() const noexcept { return loaded_; }
  // In order of registration.
  const std::vector<const KivOmbiObjectDescriptor*>& GetObjectDescriptors() const noexcept {
    return descriptors_;
  }

 private:
  KivString name_;
  std::string file_;
  std::vector<KivOmbiModule*> loaded_;
  std::vector<const KivOmbiObjectDescriptor*> descriptors_;
};

class KivOmbiModuleManager;

// The one entry point of a module, found as the C symbol "InitModule": registers what the module
// offers; 1 when registration ran to its end, 0 when it stopped.
using KivOmbiInitModule = int (*)(KivOmbiModule* module, KivOmbiModuleManager* manager);

// Opens modules by name. Each is loaded and initialised once per process and never unloaded; all
// managers share it. Safe to use from several threads, each with its own manager.
//
// The module "X" is the library libX.so: the one that is in the process already, else the first
// found in the absolute folders of KIV_MODULE_PATH (separated by colons) and in the folder that
// holds the framework's own library. The working directory is never searched.
class KIV_EXPORT KivOmbiModuleManager {
 public:
  KivOmbiModuleManager();
  virtual ~KivOmbiModuleManager();
  KivOmbiModuleManager(const KivOmbiModuleManager&) = delete;
  KivOmbiModuleManager& operator=(const KivOmbiModuleManager&) = delete;

  // The module, or null with the reason in GetError().
  virtual KivOmbiModule* OpenModule(const KivString& name);

  // Why the last OpenModule that returned null did so: which module, which file, what went wrong.
  const std::string& GetError() const noexcept { return error_; }

  // The modules opened here, each behind those it builds on.
  const std::vector<KivOmbiModule*>& GetModules() const noexcept { return modules_; }

 private:
  void Keep(KivOmbiModule* module);

  std::vector<KivOmbiModule*> modules_;
  std::string error_;
};
