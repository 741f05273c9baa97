#include "framework/calculator/module_manager.h"

#include <dlfcn.h>
#include <link.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <mutex>
#include <utility>

namespace {

namespace fs = std::filesystem;

// The modules of the process. Never destroyed: libraries are never unloaded, and a manager may live
// as long as the process.
struct Registry {
  // Recursive: the initialisation of a module opens those that it builds on.
  std::recursive_mutex mutex;
  std::map<KivString, std::unique_ptr<KivOmbiModule>> initialised;
  std::vector<KivString> initialising;
};

Registry& GetRegistry() {
  static auto& registry = *new Registry;
  return registry;
}

std::string LibraryName(const KivString& name) { return "lib" + name + ".so"; }

// A name that could lead out of the folders that are searched is no module's.
bool IsPlainName(const KivString& name) {
  return !name.empty() && name.find('/') == KivString::npos && name.find('\0') == KivString::npos;
}

std::vector<fs::path> SearchedFolders() {
  std::vector<fs::path> folders;
  if (const char* path = std::getenv("KIV_MODULE_PATH")) {
    const std::string list = path;
    for (std::size_t begin = 0; begin <= list.size();) {
      const std::size_t end = std::min(list.find(':', begin), list.size());
      // A relative folder would depend on the working directory.
      fs::path folder = list.substr(begin, end - begin);
      if (folder.is_absolute()) folders.push_back(std::move(folder));
      begin = end + 1;
    }
  }
  Dl_info here;
  if (dladdr(reinterpret_cast<const void*>(&GetRegistry), &here) != 0) {
    std::error_code failed;
    fs::path library = fs::canonical(here.dli_fname, failed);
    if (!failed) folders.push_back(library.parent_path());
  }
  return folders;
}

struct OpenedLibrary {
  void* handle = nullptr;
  std::string file;
  std::string error;  // why there is no handle
};

// Nothing is ever unloaded: objects of a library's classes may be alive as long as the process.
constexpr int kOpenFlags = RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE;

std::string LastLoaderError() {
  const char* error = dlerror();
  return error != nullptr ? error : "the dynamic loader gives no reason";
}

OpenedLibrary OpenLibrary(const KivString& name) {
  const std::string library = LibraryName(name);
  // A second copy from another path would have a second set of descriptors and identities.
  if (void* handle = dlopen(library.c_str(), kOpenFlags | RTLD_NOLOAD)) {
    return {handle, library, {}};
  }
  dlerror();
  const std::vector<fs::path> folders = SearchedFolders();
  for (const fs::path& folder : folders) {
    const fs::path file = folder / library;
    std::error_code failed;
    if (!fs::exists(file, failed)) continue;
    if (void* handle = dlopen(file.c_str(), kOpenFlags)) return {handle, file.string(), {}};
    return {nullptr, file.string(), LastLoaderError()};
  }
  std::string searched;
  for (const fs::path& folder : folders) {
    searched += (searched.empty() ? "" : ", ") + folder.string();
  }
  return {nullptr, library, "no such file in " + (searched.empty() ? "any folder" : searched)};
}

// The module's own entry point. A symbol of that name that a library only inherits from one it
// depends on is not its own.
KivOmbiInitModule FindInitModule(void* handle) {
  void* symbol = dlsym(handle, "InitModule");
  link_map* opened = nullptr;
  Dl_info info;
  link_map* owner = nullptr;
  if (symbol == nullptr || dlinfo(handle, RTLD_DI_LINKMAP, &opened) != 0 ||
      dladdr1(symbol, &info, reinterpret_cast<void**>(&owner), RTLD_DL_LINKMAP) == 0) {
    return nullptr;
  }
  return owner == opened ? reinterpret_cast<KivOmbiInitModule>(symbol) : nullptr;
}

std::string FileOf(void* handle, const std::string& otherwise) {
  link_map* map = nullptr;
  if (dlinfo(handle, RTLD_DI_LINKMAP, &map) != 0 || map->l_name[0] == '\0') return otherwise;
  return map->l_name;
}

}  // namespace

KivOmbiModule::KivOmbiModule(KivString name, std::string file)
    : name_(std::move(name)), file_(std::move(file)) {}

void KivOmbiModule::AddLoadedModule(KivOmbiModule* module) {
  if (module != nullptr) loaded_.push_back(module);
}

void KivOmbiModule::AddObjectDescriptor(const KivOmbiObjectDescriptor* descriptor) {
  if (descriptor != nullptr) descriptors_.push_back(descriptor);
}

KivOmbiModuleManager::KivOmbiModuleManager() = default;

KivOmbiModuleManager::~KivOmbiModuleManager() = default;

KivOmbiModule* KivOmbiModuleManager::OpenModule(const KivString& name) {
  const auto refuse = [&](const std::string& file, const std::string& reason) {
    error_ = "module " + name + (file.empty() ? "" : " (" + file + ")") + ": " + reason;
    return nullptr;
  };
  if (!IsPlainName(name)) return refuse({}, "a module's name is not empty and holds no '/'");

  Registry& registry = GetRegistry();
  const std::lock_guard lock(registry.mutex);
  if (const auto found = registry.initialised.find(name); found != registry.initialised.end()) {
    Keep(found->second.get());
    return found->second.get();
  }
  if (std::ranges::find(registry.initialising, name) != registry.initialising.end()) {
    return refuse({}, "it builds on itself: its initialisation opens it again");
  }

  const OpenedLibrary library = OpenLibrary(name);
  if (library.handle == nullptr) return refuse(library.file, library.error);
  const std::string file = FileOf(library.handle, library.file);
  const KivOmbiInitModule init = FindInitModule(library.handle);
  if (init == nullptr) return refuse(file, "no Kiv module: it does not define InitModule");

  auto module = std::make_unique<KivOmbiModule>(name, file);
  registry.initialising.push_back(name);
  error_.clear();
  const int done = init(module.get(), this);
  registry.initialising.pop_back();
  if (done != 1) {
    return refuse(file, "its initialisation stopped" + (error_.empty() ? "" : ": " + error_));
  }
  KivOmbiModule* opened = module.get();
  registry.initialised.emplace(name, std::move(module));
  Keep(opened);
  return opened;
}

void KivOmbiModuleManager::Keep(KivOmbiModule* module) {
  if (std::ranges::find(modules_, module) != modules_.end()) return;
  for (KivOmbiModule* loaded : module->GetLoadedModules()) Keep(loaded);
  modules_.push_back(module);
}
