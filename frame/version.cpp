// The record that says which build this is; the same in every processor class.
#include "tolkcolor.h"

static constexpr TolkLibraryVersion kVersion = {
    2022, 1, 0, 0xC8D62893, "q4", "TolkColor Nimbus (q4)", "2022.1.0 (r0xc8d62893)", "Jan 30 2025",
};

const TolkLibraryVersion* tolkGetLibVersion() { return &kVersion; }
