// The text lies ready for the signal handler.
#include "fault_note.h"

#include <signal.h>
#include <unistd.h>

#include <cstdio>
#include <cstring>

namespace tolk {

static char running[512] = "no call running";

static void onFault(int) {
  constexpr char kMessage[] = "\nfault in ";
  (void)!write(STDERR_FILENO, kMessage, sizeof kMessage - 1);
  (void)!write(STDERR_FILENO, running, strlen(running));
  (void)!write(STDERR_FILENO, "\n", 1);
}

void reportFaults() {
  struct sigaction action {};
  action.sa_handler = onFault;
  action.sa_flags = static_cast<int>(SA_RESETHAND);  // the faulting instruction then ends the program
  for (const int signal : {SIGSEGV, SIGBUS, SIGILL, SIGFPE, SIGABRT}) sigaction(signal, &action, nullptr);
}

void announce(const std::string& text) { snprintf(running, sizeof running, "%s", text.c_str()); }

}  // namespace tolk
