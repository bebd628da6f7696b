/* The host's means on Windows: the component exports of a library that has classes, and exports by name. */
#define WIN32_LEAN_AND_MEAN /* COM's headers declare these exports again, with types of their own */
#include "components.h"

#include <kestra/kestra.h>
#include <stdio.h>
#include <stdlib.h>
#include <windows.h>

#include "invoke.h"

#define NO_SUCH_CLASS ((int32_t)0x80040111)
#define NOTHING_NAMED ((int32_t)0x80070057)

Found find(const char* name) {
  static HMODULE library = NULL;
  if (library == NULL) library = LoadLibraryW(L"Kestra.dll");
  const Found found = (Found)(uintptr_t)GetProcAddress(library, name);
  if (found == NULL) {
    fprintf(stderr, "Kestra.dll has no %s\n", name);
    exit(EXIT_FAILURE);
  }
  return found;
}

static int moved = 0;
static int watching = 1;

void expect_stack(const char* what, intptr_t before, intptr_t after) {
  if (before == after) return;
  ++moved;
  if (watching) expect(what, (long)(after - before), 0);
}

static int32_t call(const char* name) {
  int32_t outcome = 0;
  INVOKE_AS(outcome, DllRegisterServer, name, ());
  return outcome;
}

#ifdef __i386__
typedef int32_t KESTRA_CALL OneMore(int32_t copies, int32_t nothing);

/* A function that leaves one argument where it is has to be seen, or the watch is blind. */
static void call_with_one_argument_more(void) {
  int32_t outcome = 0;
  const int before = moved;
  watching = 0;
  INVOKE_AS(outcome, *(OneMore*)NULL, "EP_Copias", (1, 2));
  watching = 1;
  expect("the watch on the stack", moved - before, 1);
  expect("EP_Copias", outcome, 0);
}
#endif

void call_components(void) {
  static const GUID unknown = {0x5B1F9C20, 0x3D4E, 0x4F6A, {1, 2, 3, 4, 5, 6, 7, 8}};
  static const GUID any_interface = {0, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
  void* object = &object;
  int32_t outcome = 0;
#ifdef __i386__
  call_with_one_argument_more();
#endif
  expect("DllRegisterServer", call("DllRegisterServer"), S_OK);
  expect("DllUnregisterServer", call("DllUnregisterServer"), S_OK);
  INVOKE(outcome, DllInstall, (1, NULL));
  expect("DllInstall of nothing", outcome, NOTHING_NAMED);
  INVOKE(outcome, DllGetClassObject, (&unknown, &any_interface, &object));
  expect("DllGetClassObject of no class", outcome, NO_SUCH_CLASS);
  expect("object of no class", object == NULL, 1);
  INVOKE(outcome, DllGetClassObject, (NULL, NULL, NULL));
  expect("DllGetClassObject of nothing fails", outcome < 0, 1);
}
