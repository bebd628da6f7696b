#include <netinet/in.h>
#include <stdlib.h>
#include <sys/socket.h>

#include "talk.h"

static int call = -1;

int talk_begin(void) {
  const char* const port = getenv("KESTRA_TALK");
  struct sockaddr_in address = {0};
  if (port == NULL) return 0;
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  address.sin_port = htons((in_port_t)atoi(port));
  call = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
  return connect(call, (const struct sockaddr*)&address, sizeof address) == 0;
}

int talk_hear(char* bytes, int size) {
  const ssize_t count = recv(call, bytes, (size_t)size, 0);
  return count > 0 ? (int)count : 0;
}

void talk_say(const char* bytes, int size) {
  while (size > 0) {
    const ssize_t count = send(call, bytes, (size_t)size, MSG_NOSIGNAL);
    if (count <= 0) return;
    bytes += count;
    size -= (int)count;
  }
}
