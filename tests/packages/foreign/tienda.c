/* Starts the library where there is no Fiscal.ini, which is told and is no harm. */
#include <kestra/causas.h>
#include <kestra/kestra.h>
#include <stdio.h>

int main(void) {
  const int started = EP_Init();
  EP_Kill();
  printf("EP_Init: %d\n", started);
  return 0;
}
