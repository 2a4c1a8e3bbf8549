// One function of packed channels on whole pictures.
#pragma once

#include <string>

#include "call.h"

namespace tolk {

// The first `channels` of the result. Gray goes into all channels of the function; a warning is a failure.
Image onColours(const Function& function, const Image& picture, int channels, const Call& call = {});
Image withAlphaOf(const Image& picture, Image colours);  // if it has alpha

// "tolk: 640x480 by tolkGammaFwd_8u_C3R" and more words, on standard error
void tellCall(TolkSize size, const Function& function, const std::string& more = "");

}  // namespace tolk
