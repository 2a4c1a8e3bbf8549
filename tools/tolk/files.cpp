// Whole files in and out, on POSIX calls for their exact error texts.
#include "files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <stdexcept>

namespace tolk {

namespace {

[[noreturn]] void failWithErrno(const std::string& what) {
  throw std::runtime_error(what + ": " + std::strerror(errno));
}

class Descriptor {
 public:
  explicit Descriptor(int number) : number_(number) {}
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  ~Descriptor() {
    if (number_ >= 0) ::close(number_);
  }
  int get() const { return number_; }
  bool close() {
    const int number = number_;
    number_ = -1;
    return ::close(number) == 0;
  }

 private:
  int number_;
};

bool writeAll(int descriptor, std::span<const uint8_t> bytes) {
  while (!bytes.empty()) {
    const ssize_t count = ::write(descriptor, bytes.data(), bytes.size());
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return false;
    bytes = bytes.subspan(static_cast<size_t>(count));
  }
  return true;
}

void replaceFile(const std::string& path, std::span<const uint8_t> bytes) {
  std::error_code unresolved;
  std::string target = std::filesystem::weakly_canonical(path, unresolved).string();  // keeps a symbolic link
  if (unresolved) target = path;
  std::string temporary = target + ".XXXXXX";
  Descriptor file(::mkstemp(temporary.data()));
  if (file.get() < 0) failWithErrno("cannot write " + path);
  const mode_t mask = ::umask(0);
  ::umask(mask);
  if (writeAll(file.get(), bytes) && ::fchmod(file.get(), 0666 & ~mask) == 0 && file.close() &&
      ::rename(temporary.c_str(), target.c_str()) == 0) {
    return;
  }
  const int error = errno;
  ::unlink(temporary.c_str());
  errno = error;
  failWithErrno("cannot write " + path);
}

void writeInto(const std::string& path, int descriptor, std::span<const uint8_t> bytes) {
  Descriptor file(descriptor);
  if (file.get() < 0 || !writeAll(file.get(), bytes) || !file.close()) failWithErrno("cannot write " + path);
}

}  // namespace

std::string extensionOf(const std::string& path) {
  std::string extension = std::filesystem::path(path).extension().string();
  std::transform(extension.begin(), extension.end(), extension.begin(),
                 [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  return extension;
}

Bytes readFile(const std::string& path) {
  Descriptor file(path == kStandardStream ? ::dup(STDIN_FILENO) : ::open(path.c_str(), O_RDONLY | O_CLOEXEC));
  if (file.get() < 0) failWithErrno("cannot read " + path);
  Bytes bytes;
  struct stat about = {};
  if (::fstat(file.get(), &about) == 0 && S_ISREG(about.st_mode)) bytes.reserve(static_cast<size_t>(about.st_size) + 1);
  size_t used = 0;
  for (;;) {
    bytes.resize(std::max(bytes.capacity(), used + 65536));
    const ssize_t count = ::read(file.get(), bytes.data() + used, bytes.size() - used);
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) failWithErrno("cannot read " + path);
    used += static_cast<size_t>(count);
    if (count == 0) break;
  }
  bytes.resize(used);
  return bytes;
}

void writeFile(const std::string& path, std::span<const uint8_t> bytes) {
  if (path == kStandardStream) return writeInto("standard output", ::dup(STDOUT_FILENO), bytes);
  std::error_code ignored;
  const auto kind = std::filesystem::status(path, ignored).type();
  using enum std::filesystem::file_type;
  if (kind == character || kind == fifo || kind == block || kind == socket) {
    return writeInto(path, ::open(path.c_str(), O_WRONLY | O_CLOEXEC), bytes);
  }
  replaceFile(path, bytes);
}

}  // namespace tolk
