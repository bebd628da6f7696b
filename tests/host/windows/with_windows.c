#include <windows.h>

#include <kestra/kestra.h>

int started(void);

int started(void) {
  return EP_Init();
}
