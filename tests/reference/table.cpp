// The function table, bound to the references.
#include "table.h"

#include "reference_declarations.h"
#include "table_binding.h"

namespace tolk {

#define FUNCTION_SCOPE reference::
static const std::vector<Function>& referenceTable() {
  static const std::vector<Function> kTable = {
#include "function_table.inc"
  };
  return kTable;
}

}  // namespace tolk

const std::vector<tolk::Function>& reference::functions() { return tolk::referenceTable(); }
