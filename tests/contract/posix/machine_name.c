/*
 * Another name of this machine, which its files need not know: the look-up of the program that this
 * is linked or loaded into answers "impresora.prueba" with the machine's own address.
 */
#define _GNU_SOURCE
#include <dlfcn.h>
#include <netdb.h>
#include <string.h>

typedef int LookUp(const char*, const char*, const struct addrinfo*, struct addrinfo**);

int getaddrinfo(const char* restrict name, const char* restrict service,
                const struct addrinfo* restrict hints, struct addrinfo** restrict found) {
  void* const next = dlsym(RTLD_NEXT, "getaddrinfo");
  LookUp* look_up;
  memcpy(&look_up, &next, sizeof look_up);
  const int wants_name = hints == NULL || (hints->ai_flags & AI_NUMERICHOST) == 0;
  const int ours = wants_name && name != NULL && strcmp(name, "impresora.prueba") == 0;
  return look_up(ours ? "127.0.0.1" : name, service, hints, found);
}
