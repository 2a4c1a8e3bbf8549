// The function table, bound to the references.
#include "table.h"

#include "reference_declarations.h"
#include "table_binding.h"

namespace tolk {

#define FUNCTION_SCOPE reference::
#include "function_table.inc"

}  // namespace tolk

std::span<const tolk::Function> reference::functions() { return tolk::kTable; }
