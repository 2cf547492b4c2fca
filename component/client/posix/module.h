#pragma once

#include <dlfcn.h>

#include <string>

/// Files of code that are loaded while a program runs.
namespace zef {
inline namespace automation {

using Module = void*;

/// Null if it cannot be loaded.
inline Module LoadModule(const std::string& path) { return dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL); }
/// Why the last one could not be.
inline std::string ModuleFailure() { return dlerror(); }
inline void UnloadModule(Module loaded) { dlclose(loaded); }

/// Null if the module exports none of the name.
template <class Function>
Function* FunctionIn(Module loaded, const char* name) {
  return reinterpret_cast<Function*>(dlsym(loaded, name));
}

}  // namespace automation
}  // namespace zef
