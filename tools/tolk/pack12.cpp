// The pack12 and unpack12 commands: samples of 12 bits, two in three bytes.
#include "colours.h"
#include "commands.h"
#include "lookup.h"
#include "samples.h"
#include "side_files.h"

namespace tolk {

void packSamples(const PackOptions& options) {
  const Function& function = requireFunction(options.unpacks ? "tolkUnpack_12u16u_C1R" : "tolkPack_16u12u_C1R");
  requireTarget(options.out, function);
  RawImage src = readSide(options.in, function, options.size);
  if (!options.unpacks) requireRange(options.in, {src.size.width, src.size.height, 1, 12, src.bytes});
  RawImage dst(function.dst, src.size);
  callFunction(function, src, dst);
  writeSide(options.out, function, dst);
  tellCall(src.size, function);
}

}  // namespace tolk
