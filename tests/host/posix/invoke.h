/* How the host calls the library: by name, as C does. */
#ifndef INVOKE_H
#define INVOKE_H

#define INVOKE(outcome, function, arguments) ((outcome) = function arguments)
/* A function without a result. */
#define INVOKE_VOID(function, arguments) function arguments

#endif
