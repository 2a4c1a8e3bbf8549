// Opens the library under test and pairs its functions with the reference.
#include "harness/library.h"

#include <dlfcn.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>

#include "reference/table.h"

namespace harness {

static void* handle = nullptr;

[[noreturn]] static void fail(const std::string& message) {
  std::fprintf(stderr, "%s\n", message.c_str());
  std::exit(2);
}

void openLibrary() {
  const char* path = std::getenv("TOLK_LIBRARY");
  if (!path || !*path) fail("TOLK_LIBRARY must name the library file to test");
  // The table links this program with a library too; none takes a function of its own from another file.
  handle = dlopen(path, RTLD_NOW | RTLD_LOCAL);
  if (!handle) fail(std::string("cannot load TOLK_LIBRARY: ") + dlerror());
  Dl_info found{};
  void* version = librarySymbol("tolkGetLibVersion");
  if (!version || !dladdr(version, &found) || !std::filesystem::equivalent(found.dli_fname, path))
    fail(std::string(path) + " does not define tolkGetLibVersion itself");
}

void* librarySymbol(const char* name) { return dlsym(handle, name); }

const std::vector<Subject>& subjects() {
  static const std::vector<Subject> kSubjects = [] {
    std::vector<Subject> list;
    for (const tolk::Function& function : reference::functions()) {
      const std::string name(function.name);
      list.push_back({&function, librarySymbol(name.c_str()), function.linked()});
      if (!list.back().tested) fail(name + " is not exported");
    }
    return list;
  }();
  return kSubjects;
}

const Subject& subject(std::string_view name) {
  const auto found =
      std::find_if(subjects().begin(), subjects().end(), [&](const Subject& s) { return s.function->name == name; });
  if (found == subjects().end()) fail(std::string(name) + " is not in the table");
  return *found;
}

bool undefinedInReference(const tolk::Function& f, const tolk::Call& call) {
  constexpr std::string_view kNames[] = {"tolkRGBToYCbCr_8u_AC4P3R", "tolkYCbCr411ToYCbCr420_8u_P2P3R",
                                         "tolkYCbCr411ToYCrCb420_8u_P2P3R", "tolkYCbCr411ToYCbCr422_8u_P2P3R",
                                         "tolkYCbCr411_8u_P2P3R"};
  return std::find(std::begin(kNames), std::end(kNames), f.name) != std::end(kNames) && call.dst.nullArray;
}

}  // namespace harness
