/* The component exports, which answer differently from platform to platform. */
#ifndef COMPONENTS_H
#define COMPONENTS_H

/* Counts a failure and says it, unless got is what was wanted. */
void expect(const char* what, long got, long wanted);

void call_components(void);

#endif
