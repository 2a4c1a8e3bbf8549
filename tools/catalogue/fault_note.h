// Names what a program was doing when a signal ends it.
#pragma once

#include <string>

namespace tolk {

// A fault signal prints the text last announced before the program dies.
void reportFaults();
void announce(const std::string& text);

}  // namespace tolk
