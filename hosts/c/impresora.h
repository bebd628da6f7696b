/*
 * Kestra para C (C99): lo poco que un programa en C agrega a kestra.h. Con kestra_abrir los textos son cadenas de C en
 * UTF-8, sin completar con blancos; lo que pasa del largo que la función lee se corta. Todo en el mismo hilo.
 */
#ifndef KESTRA_IMPRESORA_H
#define KESTRA_IMPRESORA_H

#include <kestra/causas.h>
#include <kestra/kestra.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

/* Kestra_Textos(2) y EP_Init: 0 si la impresora está lista, 1 si no. */
static inline int kestra_abrir(void) {
  Kestra_Textos(2);
  return EP_Init() == 1 ? 0 : 1;
}

/* La oración para el operador sobre la última llamada: qué pasó, si se hizo y qué hacer ahora. El búfer queda terminado. */
static inline const char *kestra_oracion(char *texto, int largo) {
  memset(texto, 0, (size_t)largo);
  if (Kestra_CausaTexto(texto, largo - 1) <= 0) strncpy(texto, "Falló: ver fiscal.log", (size_t)largo - 1);
  return texto;
}

/* ---- Para ejemplos y pruebas ---- */

static inline int kestra_digitos(const char *texto) { return *texto && strspn(texto, "0123456789") == strlen(texto); }

/* Si es una dirección de esta máquina, un pipe con nombre o una pseudoterminal. */
static inline int kestra_es_virtual(const char *dispositivo) {
  static const char red[] = "tcp:", terminal[] = "/dev/pts/", pipe[] = "\\\\.\\pipe\\";
  if (strncmp(dispositivo, red, sizeof red - 1) == 0) {
    const char *equipo = dispositivo + sizeof red - 1, *puerto = strrchr(equipo, ':');
    const size_t largo = puerto ? (size_t)(puerto - equipo) : 0;
    if (!puerto || !kestra_digitos(puerto + 1)) return 0;
    return (largo == 9 && strncmp(equipo, "localhost", 9) == 0) || (largo == 3 && strncmp(equipo, "::1", 3) == 0) ||
           (largo == 5 && strncmp(equipo, "[::1]", 5) == 0) ||
           (strncmp(equipo, "127.", 4) == 0 && strspn(equipo, "0123456789.") == largo);
  }
#ifndef _WIN32
  {
    char *real = realpath(dispositivo, NULL);
    const int es = real && strncmp(real, terminal, sizeof terminal - 1) == 0 && kestra_digitos(real + sizeof terminal - 1);
    free(real);
    if (es) return 1;
  }
#else
  (void)terminal;
#endif
  return strncmp(dispositivo, pipe, sizeof pipe - 1) == 0;
}

/* Sin --impresora-real termina el programa (2) si la impresora de ./Fiscal.ini no es virtual. */
static inline void kestra_exigir_impresora_virtual(int argc, char **argv) {
  int i, alguna = 0, todas = 1;
  char linea[4096], clave[64], valor[4096];
  const char *otro;
  FILE *ini;
  for (i = 1; i < argc; ++i)
    if (strcmp(argv[i], "--impresora-real") == 0) return;
  ini = fopen("Fiscal.ini", "r");
  while (ini && fgets(linea, sizeof linea, ini)) {
    char *letra;
    *valor = '\0';
    if (sscanf(linea, " %63[^= \t] = %4095[^\r\n]", clave, valor) < 1) continue;
    for (letra = clave; *letra; ++letra) *letra = (char)(*letra >= 'A' && *letra <= 'Z' ? *letra + 32 : *letra);
    if (strcmp(clave, "impresoradispositivo") != 0) continue;
    while (*valor && strchr(" \t", valor[strlen(valor) - 1])) valor[strlen(valor) - 1] = '\0';
    alguna = 1;
    todas = todas && kestra_es_virtual(valor);
  }
  if (ini) fclose(ini);
  otro = getenv("KESTRA_DISPOSITIVO"); /* se antepone a Fiscal.ini: con ella no */
  if (alguna && todas && !(otro && *otro)) return;
  fputs("La impresora de Fiscal.ini no es virtual: para usarla igual, --impresora-real.\n", stderr);
  exit(2);
}

#endif
