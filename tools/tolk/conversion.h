// From a file to a format, for the commands that choose the functions by themselves.
#pragma once

#include "commands.h"
#include "formats.h"
#include "y4m.h"

namespace tolk {

struct Source {
  const Format& format;
  RawImage image;  // of the format's side, in the size that the file is laid out for
  TolkSize size;
  SampleRange range = SampleRange::Unknown;
};

Source readSource(const ConvertOptions& options);

struct Converted {
  RawImage image;
  SampleRange range;
};

Converted convertSource(Source source, const Format& to, const ConvertOptions& options);

}  // namespace tolk
