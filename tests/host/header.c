/* The public header alone, twice: it needs nothing before it and bears being read again. */
#include <kestra/kestra.h>

/* The record keeps its layout: hosts are built with it. */
typedef char row_is_four_numbers_and_two_texts
    [sizeof(KestraFila) == 4 * sizeof(int32_t) + 2 * sizeof(const char*) ? 1 : -1];
typedef char record_is_five_words[sizeof(KestraOperador) == 5 * sizeof(void*) ? 1 : -1];

int32_t HeaderProbe(const row_is_four_numbers_and_two_texts* row,
                    const record_is_five_words* record);

int32_t HeaderProbe(const row_is_four_numbers_and_two_texts* row,
                    const record_is_five_words* record) {
  int32_t(KESTRA_CALL * start)(void) = &EP_Init;
  return row != 0 && record != 0 && start != 0;
}
