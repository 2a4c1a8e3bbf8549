// Whether a library gives on this processor what its functions are defined to give.
#include <cpuid.h>
#include <dlfcn.h>
#include <link.h>

#include <algorithm>
#include <cstring>
#include <filesystem>
#include <iostream>
#include <stdexcept>

#include "commands.h"
#include "fault_note.h"
#include "lookup.h"
#include "selftest/table.h"

namespace tolk {

namespace {

using selftest::Subject;

class Library {
 public:
  explicit Library(const std::string& file) {
    if (file.empty()) return;
    handle_ = ::dlopen(std::filesystem::absolute(file).c_str(), RTLD_NOW | RTLD_LOCAL);
    if (!handle_) throw std::runtime_error("cannot load " + file + ": " + ::dlerror());
    if (!symbol("tolkGetLibVersion")) throw std::runtime_error(file + " does not export tolkGetLibVersion");
  }
  bool isChosen() const { return handle_; }
  void* symbol(const std::string& name) const { return ::dlsym(handle_, name.c_str()); }
  const TolkLibraryVersion& version() const {
    return *(handle_ ? reinterpret_cast<decltype(&tolkGetLibVersion)>(symbol("tolkGetLibVersion"))
                     : &tolkGetLibVersion)();
  }

 private:
  void* handle_ = nullptr;
};

// The instructions that a loaded file asks for, by the note that the linker has left in it.
struct ClassQuery {
  uintptr_t address;
  uint32_t levels = 0;
};

int readNote(dl_phdr_info* object, size_t, void* data) {
  auto& query = *static_cast<ClassQuery*>(data);
  const std::span segments(object->dlpi_phdr, object->dlpi_phnum);
  const bool found = std::ranges::any_of(segments, [&](const ElfW(Phdr) & segment) {
    const uintptr_t offset = query.address - object->dlpi_addr - segment.p_vaddr;
    return segment.p_type == PT_LOAD && offset < segment.p_memsz;
  });
  if (!found) return 0;
  for (const ElfW(Phdr) & segment : segments) {
    if (segment.p_type != PT_GNU_PROPERTY) continue;
    const auto* at = reinterpret_cast<const uint8_t*>(object->dlpi_addr + segment.p_vaddr);
    const uint8_t* const end = at + segment.p_memsz;
    for (at += sizeof(ElfW(Nhdr)) + 4; at + 12 <= end;) {
      uint32_t item[3];  // type, size, and of a note of instructions their bits
      std::memcpy(item, at, sizeof item);
      if (item[0] == GNU_PROPERTY_X86_ISA_1_NEEDED) query.levels = item[2];
      at += 8 + ((item[1] + 7) & ~7u);
    }
  }
  return 1;
}

const char* classOf(const void* inLibrary) {
  ClassQuery query{reinterpret_cast<uintptr_t>(inLibrary)};
  ::dl_iterate_phdr(readNote, &query);
  return query.levels & GNU_PROPERTY_X86_ISA_1_V3 ? "AVX2 (x86-64-v3)" : "SSSE3 (base)";
}

std::string processorName() {
  unsigned words[12] = {};
  for (unsigned i = 0; i < 3; ++i)
    ::__get_cpuid(0x80000002 + i, &words[4 * i], &words[4 * i + 1], &words[4 * i + 2], &words[4 * i + 3]);
  char name[sizeof words + 1] = {};
  std::memcpy(name, words, sizeof words);
  const std::string text = name;
  const size_t first = text.find_first_not_of(' ');
  return first == std::string::npos ? "of no name" : text.substr(first);
}

void describe(const Library& library) {
  const TolkLibraryVersion& version = library.version();
  Dl_info place = {};
  if (::dladdr(&version, &place) == 0) throw std::runtime_error("the loader does not tell the library's file");
  std::cout << "library    " << std::filesystem::canonical(place.dli_fname).string() << '\n'
            << "version    " << version.versionText << '\n'
            << "class      " << classOf(&version) << '\n'
            << "processor  " << processorName() << '\n';
}

}  // namespace

void testLibrary(const SelftestOptions& options) {
  const Library library(options.library);
  describe(library);
  reportFaults();
  selftest::Runner runner;
  int byDigest = 0, byBound = 0, faults = 0;
  for (Subject& subject : selftest::subjects(functions(), reinterpret_cast<void*>(&::tolkReduceBitsGetBufferSize))) {
    if (!matches(options.pattern, subject.name)) continue;
    announce(subject.name);
    if (library.isChosen()) subject.address = library.symbol(subject.name);
    const selftest::Verdict verdict =
        subject.address ? selftest::judge(runner, subject) : selftest::Verdict{"is not exported"};
    ++(verdict.byBound ? byBound : byDigest);
    faults += !verdict.fault.empty();
    if (!verdict.fault.empty()) {
      std::cout << subject.name << ' ' << verdict.fault << std::endl;  // the next one may crash
    } else if (verdict.unusual) {
      std::cout << subject.name << " is within its bounds, with other bits than by the usual pow\n";
    } else if (options.verbose) {
      std::cout << subject.name << (verdict.byBound ? " is within its bounds\n" : " is right\n");
    }
  }
  if (byDigest + byBound == 0) throw std::runtime_error("no function matches " + options.pattern);
  std::cout << byDigest << " functions judged by digest, " << byBound << " by bound\n";
  if (faults)
    throw std::runtime_error("FAILED: not as defined: " + std::to_string(faults) + " of " +
                             std::to_string(byDigest + byBound));
  std::cout << "PASSED: all are as defined\n";
}

}  // namespace tolk
