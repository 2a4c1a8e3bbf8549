// Prints the file that the loader chose for the library, and the library's record.
#define _GNU_SOURCE
#include <dlfcn.h>
#include <stdio.h>
#include <tolkcolor.h>

int main(void) {
  const TolkLibraryVersion* v = tolkGetLibVersion();
  Dl_info file;
  if (!dladdr(v, &file)) return 1;
  printf("%s\n%d.%d.%d %08x %s|%s|%s|%s\n", file.dli_fname, v->versionMajor, v->versionMinor, v->versionPatch,
         v->revision, v->targetCode, v->libraryName, v->versionText, v->buildDate);
  return 0;
}
