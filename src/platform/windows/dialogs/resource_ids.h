#pragma once

/* Numbers that the resource compiler and the code share. */

#define DIALOG_STATUS_REPORT 101
#define DIALOG_MEMORY_FULL 102

#define ICON_KESTRA 201
#define ICON_WARNING 202
#define ICON_ERROR 203
#define ICON_INFORMATION 204
#define ICON_ERROR_GREY 205
#define ICON_INFORMATION_GREY 206

/* Controls of the status report. */
#define GROUP_PRINTER 301
#define GROUP_FISCAL 302
#define GROUP_WORDS 303
#define LABEL_PRINTER 304
#define LABEL_FISCAL 305
#define WORD_PRINTER 306
#define WORD_FISCAL 307
/* To these the number of a row is added: */
#define ROW_PRINTER_ICON 400
#define ROW_PRINTER_TEXT 500
#define ROW_FISCAL_ICON 600
#define ROW_FISCAL_TEXT 700

/* Controls of the memory warning. */
#define MEMORY_FRAME 801
#define MEMORY_ICON 802
#define MEMORY_HEADING 803
#define MEMORY_TEXT 804
