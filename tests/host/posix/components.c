/* Where there is no component system. */
#include "components.h"

#include <kestra/kestra.h>
#include <stddef.h>

#define NO_COMPONENTS ((int32_t)0x80004001)

void call_components(void) {
  void* object = &object;
  expect("DllRegisterServer", DllRegisterServer(), NO_COMPONENTS);
  expect("DllUnregisterServer", DllUnregisterServer(), NO_COMPONENTS);
  expect("DllInstall", DllInstall(1, NULL), NO_COMPONENTS);
  expect("DllGetClassObject", DllGetClassObject(&object, &object, &object), NO_COMPONENTS);
  expect("object of no class", object == NULL, 1);
  expect("DllGetClassObject", DllGetClassObject(NULL, NULL, NULL), NO_COMPONENTS);
}
