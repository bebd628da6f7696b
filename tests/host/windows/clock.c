/*
 * Reads the printer's clock, and once more for each line that its test says. Shows each result and text
 * on standard output, and what the library asks or tells the operator, who says no, on standard error.
 */
#include <kestra/kestra.h>
#include <stdio.h>
#include <stdlib.h>

#include "programs/talk.h"

static int32_t KESTRA_CALL answer(void* context, const char* text, const char* title,
                                  int32_t style) {
  enum { OK = 1, NO = 7 };
  (void)context;
  fprintf(stderr, "%s: %s\n", title, text);
  return style == 0 ? OK : NO;
}

static void read_clock(void) {
  char now[13] = "";
  const int result = EP_ObtenerFechaHora(now);
  printf("(%d, '%s')\n", result, now);
  fflush(stdout);
}

static void read_as_often_as_told(void) {
  char heard;
  while (talk_hear(&heard, 1) == 1) read_clock();
}

int main(void) {
  const KestraOperador operador = {sizeof operador, NULL, answer, NULL, NULL};
  const int told = talk_begin();
  Kestra_DefinirOperador(&operador);
  if (EP_Init() != 1) return EXIT_FAILURE;
  read_clock();
  if (told) read_as_often_as_told();
  EP_Kill();
  return EXIT_SUCCESS;
}
