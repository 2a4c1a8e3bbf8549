// What a status means, in the header's words.
#include "status.h"

#include <string_view>

namespace tolk {

namespace {

struct StatusText {
  TolkStatus status;
  std::string_view name, meaning;
};

constexpr StatusText kStatuses[] = {
#include "status_table.inc"
};

}  // namespace

std::string describe(TolkStatus status) {
  const std::string number = std::to_string(static_cast<int>(status));
  for (const StatusText& known : kStatuses) {
    if (known.status == status) return std::string(known.name) + " (" + number + "): " + std::string(known.meaning);
  }
  return "the unknown status " + number;
}

}  // namespace tolk
