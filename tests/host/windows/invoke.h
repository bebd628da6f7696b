/*
 * How a till's program calls the library: each function found by its plain name in Kestra.dll. After each
 * call the stack has to stand where it stood: a function removes its own arguments, and exactly those.
 */
#ifndef INVOKE_H
#define INVOKE_H

#include <stdint.h>

typedef void (*Found)(void);

/* The export of that name; the host ends when there is none. */
Found find(const char* name);

/* Counts a failure when the two differ. */
void expect_stack(const char* what, intptr_t before, intptr_t after);

#ifdef __i386__
#define READ_STACK(place) __asm__ volatile("movl %%esp, %0" : "=m"(place) : : "memory")
#else
#define READ_STACK(place) __asm__ volatile("movq %%rsp, %0" : "=m"(place) : : "memory")
#endif

/* The call as if the function had the type of `shape`; what becomes of its result stands before. */
#define INVOKE_INTO(result, shape, name, arguments)                     \
  do {                                                                  \
    __typeof__(shape)* const called = (__typeof__(shape)*)(find(name)); \
    volatile intptr_t stack_before = 0, stack_after = 0;                \
    READ_STACK(stack_before);                                           \
    result called arguments;                                            \
    READ_STACK(stack_after);                                            \
    expect_stack(name, stack_before, stack_after);                      \
  } while (0)

#define INVOKE_AS(outcome, shape, name, arguments) INVOKE_INTO((outcome) =, shape, name, arguments)
#define INVOKE(outcome, function, arguments) INVOKE_AS(outcome, function, #function, arguments)
/* A function without a result. */
#define INVOKE_VOID(function, arguments) INVOKE_INTO((void), function, #function, arguments)

#endif
