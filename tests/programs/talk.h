/* What a program is to do is told by the test that started it, in a call to the port that KESTRA_TALK names. */
#pragma once

/* 1 when the test has answered the call. */
int talk_begin(void);

/* Waits for bytes: how many came; 0 when there will be no more. */
int talk_hear(char* bytes, int size);

void talk_say(const char* bytes, int size);
