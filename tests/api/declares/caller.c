/*
 * Makes the 32-bit calls that a file tells it, one a line, and says what came of each:
 *
 *     caller LIBRARY FILE        EP_GetEncabezado stdcall b:120 w:01000000
 *                                EP_GetEncabezado = 0 stack 0 <the 120 bytes, in hexadecimal>
 *
 * An argument is pushed as it stands: w: words as they are, t: the address of those bytes, b: the address of so many
 * bytes that are shown afterwards, o the address of an operator. Bytes end where a page ends and the next one may not
 * be touched, so that one byte too many ends the program. `stack` is what the call left the stack pointer off by.
 */
#include <kestra/kestra.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <windows.h>

enum { MOST_WORDS = 64, MOST_BUFFERS = 8, PAGE = 4096, MOST_LINE = 8192 };

typedef void(WINAPI* Found)(void);

typedef struct Buffer {
  const unsigned char* bytes;
  size_t count;
} Buffer;

typedef struct Call {
  uint32_t words[MOST_WORDS];
  size_t word_count;
  Buffer buffers[MOST_BUFFERS];
  size_t buffer_count;
} Call;

static void give_up(const char* why, const char* what) {
  fprintf(stderr, "%s: %s\n", why, what);
  exit(EXIT_FAILURE);
}

/* ---- The operator ---- */

static int32_t KESTRA_CALL answer(void* contexto, const char* texto, const char* titulo,
                                  int32_t estilo) {
  (void)contexto;
  printf("box %s | %s\n", titulo, texto);
  return estilo == 0 ? 1 : 7;
}

static int32_t KESTRA_CALL report(void* contexto, const char* impresora, const char* fiscal,
                                  const KestraFila* filas, int32_t cantidad) {
  (void)contexto, (void)filas;
  printf("report %s %s %d\n", impresora, fiscal, (int)cantidad);
  return 0;
}

static void KESTRA_CALL memory_full(void* contexto) {
  (void)contexto;
  puts("memory full");
}

static const KestraOperador operador = {sizeof operador, NULL, answer, report, memory_full};

/* ---- Arguments ---- */

/* So many bytes with nothing behind them. */
static unsigned char* room(size_t count) {
  unsigned char* pages =
      VirtualAlloc(NULL, (SIZE_T)2 * PAGE, MEM_RESERVE | MEM_COMMIT, PAGE_READWRITE);
  DWORD before = 0;
  if (pages == NULL || count > PAGE || !VirtualProtect(pages + PAGE, PAGE, PAGE_NOACCESS, &before))
    give_up("memory", "none");
  return pages + PAGE - count;
}

static void read_bytes(unsigned char* bytes, const char* digits) {
  for (; *digits != '\0'; digits += 2) {
    const char pair[3] = {digits[0], digits[1], '\0'};
    *bytes++ = (unsigned char)strtoul(pair, NULL, 16);
  }
}

static void push(Call* call, const void* bytes, size_t count) {
  const size_t words = count / sizeof(uint32_t);
  if (call->word_count + words > MOST_WORDS) give_up("arguments", "too many");
  memcpy(call->words + call->word_count, bytes, count);
  call->word_count += words;
}

static void push_address(Call* call, const void* address) {
  push(call, &address, sizeof address);
}

static void push_buffer(Call* call, size_t count) {
  unsigned char* bytes = room(count);
  if (call->buffer_count == MOST_BUFFERS) give_up("buffers", "too many");
  memset(bytes, '.', count);
  call->buffers[call->buffer_count++] = (Buffer){bytes, count};
  push_address(call, bytes);
}

static void push_argument(Call* call, const char* words) {
  const char* value = words + 2;
  const size_t count = strlen(words) < 2 ? 0 : strlen(value) / 2;
  unsigned char* bytes = room(count);
  if (strcmp(words, "o") == 0) {
    push_address(call, &operador);
  } else if (strncmp(words, "b:", 2) == 0) {
    push_buffer(call, strtoul(value, NULL, 10));
  } else {
    read_bytes(bytes, value);
    if (*words == 'w')
      push(call, bytes, count);
    else
      push_address(call, bytes);
  }
}

/* ---- The call ---- */

/* Pushes the words, calls, and puts the stack pointer back; `left` is how far it was off. */
static int32_t call_export(Found function, const Call* call, int32_t* left) {
  int32_t result = 0;
  uint32_t count = (uint32_t)call->word_count;
  __asm__ volatile(
      "movl %%esp, %%edi\n\t"
      "1: testl %%ecx, %%ecx\n\t"
      "jz 2f\n\t"
      "pushl -4(%%esi,%%ecx,4)\n\t"
      "decl %%ecx\n\t"
      "jmp 1b\n"
      "2: call *%%ebx\n\t"
      "movl %%esp, %%ecx\n\t"
      "subl %%edi, %%ecx\n\t"
      "movl %%edi, %%esp\n\t"
      : "=a"(result), "+c"(count)
      : "b"(function), "S"(call->words)
      : "edx", "edi", "memory", "cc");
  *left = (int32_t)count;
  return result;
}

static void show(const char* name, int32_t result, int32_t left, const Call* call) {
  printf("%s = %d stack %d", name, (int)result, (int)left);
  for (size_t i = 0; i < call->buffer_count; ++i) {
    putchar(' ');
    for (size_t k = 0; k < call->buffers[i].count; ++k) printf("%02x", call->buffers[i].bytes[k]);
  }
  putchar('\n');
  fflush(stdout);
}

static void make_call(HMODULE library, char* line) {
  const char* name = strtok(line, " \r\n");
  const char* convention = strtok(NULL, " \r\n");
  Call call = {{0}, 0, {{NULL, 0}}, 0};
  int32_t left = 0, result = 0;
  Found function = NULL;
  if (name == NULL || convention == NULL) give_up("line", "too short");
  for (const char* words = strtok(NULL, " \r\n"); words != NULL; words = strtok(NULL, " \r\n"))
    push_argument(&call, words);
  function = (Found)(void (*)(void))GetProcAddress(library, name);
  if (function == NULL) {
    printf("%s is not there\n", name);
    return;
  }
  result = call_export(function, &call, &left);
  /* Who declares cdecl takes the arguments off himself. */
  if (strcmp(convention, "cdecl") == 0) left += (int32_t)(call.word_count * sizeof(uint32_t));
  show(name, result, left, &call);
}

int main(int count, char** words) {
  static char line[MOST_LINE];
  HMODULE library = count == 3 ? LoadLibraryA(words[1]) : NULL;
  FILE* file = count == 3 ? fopen(words[2], "r") : NULL;
  if (library == NULL || file == NULL) give_up("caller", "LIBRARY FILE");
  while (fgets(line, sizeof line, file) != NULL) make_call(library, line);
  fclose(file);
  return EXIT_SUCCESS;
}
