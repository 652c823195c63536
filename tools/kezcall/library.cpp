#include "library.h"

#ifdef _WIN32
#include <windows.h>

#include <system_error>
#else
#include <dlfcn.h>
#endif

namespace kezcall {

#ifdef _WIN32

const char* const Library::default_path = "KezLib.dll";

Library::Library(const std::string& path) {
  SetErrorMode(SEM_FAILCRITICALERRORS);  // a missing library is reported here, not in a window
  handle_ = LoadLibraryA(path.c_str());
  if (handle_) return;
  const auto code = static_cast<int>(GetLastError());
  throw LibraryError("cannot load " + path + ": " + std::system_category().message(code));
}

Library::~Library() {
  FreeLibrary(static_cast<HMODULE>(handle_));
}

Entry Library::find(const std::string& name) const {
  return reinterpret_cast<Entry>(GetProcAddress(static_cast<HMODULE>(handle_), name.c_str()));
}

#else

const char* const Library::default_path = "libKezLib.so.1";

Library::Library(const std::string& path) : handle_(dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL)) {
  if (!handle_) throw LibraryError("cannot load " + std::string(dlerror()));
}

Library::~Library() {
  dlclose(handle_);
}

Entry Library::find(const std::string& name) const {
  return reinterpret_cast<Entry>(dlsym(handle_, name.c_str()));
}

#endif

}  // namespace kezcall
