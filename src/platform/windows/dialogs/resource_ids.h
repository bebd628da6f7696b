#pragma once

/* Numbers that the resource compiler and the code share. */

#define frm_InformeEstados 101
#define frm_Memoriallena 102

#define ICON_KESTRA 201
#define ICON_WARNING 202
#define pic_error 203
#define pic_info 204
#define pic_errordisabled 205
#define pic_infodisabled 206

/* Controls of the status report. */
#define Frame1 301
#define Frame2 302
#define Frame3 303
#define Label4 304
#define Label5 305
#define txt_EstadoImpresora 306
#define txt_estadofiscal 307
/* The buttons have the numbers that the system gives to Esc, the close box and a retry. */
#define btn_aceptar IDCANCEL
#define btn_Reintentar IDRETRY
/* To these the number of a row is added: */
#define pic_EstadoImpresora_ 400
#define txt_EstadoImpresora_ 500
#define pic_EstadoFiscal_ 600
#define txt_EstadoFiscal_ 700

/* Controls of the memory warning. */
#define Shape1 801
#define MEMORY_ICON 802
#define Label1 803
#define Label2 804
#define btn_Aceptar IDCANCEL
