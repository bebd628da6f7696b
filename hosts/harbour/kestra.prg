// Kestra 1.0.0: declaraciones para Harbour.
// Las hace api/generate a partir de api/kestra.toml: un cambio a mano se pierde.
//
// Resultado de una operación: 0 éxito, 1 fracaso; en EP_Init es al revés, 1 éxito y 0 fracaso.
// Textos: windows-1252. De cada uno se leen exactamente los bytes que se dicen, sin buscar un cero: hay que
// completarlos con blancos. Uno más corto hace leer memoria ajena. Un puntero nulo se lee como blancos.
// Búferes de resultado: reciben a lo sumo los bytes que se dicen, sin un cero detrás.
//
// Para Harbour en Windows de 32 bits. El de xHarbour es kestra_xharbour.prg.
// Un texto se pasa completado con blancos: PadR( cTexto, 50 ). Un búfer se pasa con @ y lleno de blancos:
// cNumero := Space( 8 ); EP_CerrarComprobanteFiscal( cTipo, cLetra, @cNumero ).
// A Kestra_DefinirOperador se le pasa NIL, o el registro que prepara una función en C.
//
// Escritas según las reglas del lenguaje y comparadas, nombre por nombre y byte por byte, con la biblioteca;
// no se compilaron con la herramienta del lenguaje.

#include "hbdyn.ch"

STATIC s_hKestra

STATIC FUNCTION Biblioteca()

   IF s_hKestra == NIL
      s_hKestra := hb_libLoad( "Kestra.dll" )
   ENDIF

   RETURN s_hKestra

// ---- Principio y fin ----

// Lee Fiscal.ini y prepara el puerto.
// Devuelve: 1 lista, 0 falló. Es la única en la que 1 es éxito.
FUNCTION EP_Init()

   RETURN hb_dynCall( { "EP_Init", Biblioteca(), hb_bitOr( HB_DYN_CALLCONV_STDCALL, HB_DYN_CTYPE_INT ) } )

// Suelta el puerto.
// Devuelve: No quiere decir nada.
FUNCTION EP_Kill()

   RETURN hb_dynCall( { "EP_Kill", Biblioteca(), hb_bitOr( HB_DYN_CALLCONV_STDCALL, HB_DYN_CTYPE_INT ) } )

// ---- Comprobantes fiscales ----

// Abre una factura, un tique o una nota.
// Textos: tipo 2 bytes; letra 1 byte; nombre1, nombre2 40 bytes cada uno; documento_tipo 6 bytes;
// documento_numero 11 bytes; responsabilidad_iva 1 byte; domicilio1, domicilio2, domicilio3, linea4, linea5 40
// bytes cada uno.
FUNCTION EP_AbrirComprobanteFiscal( tipo, letra, nombre1, nombre2, documento_tipo, documento_numero, responsabilidad_iva, domicilio1, domicilio2, domicilio3, linea4, linea5, copias )

   RETURN hb_dynCall( { "EP_AbrirComprobanteFiscal", Biblioteca(), hb_bitOr( HB_DYN_CALLCONV_STDCALL, HB_DYN_CTYPE_INT ), HB_DYN_CTYPE_CHAR_PTR, HB_DYN_CTYPE_CHAR_PTR, HB_DYN_CTYPE_CHAR_PTR, HB_DYN_CTYPE_CHAR_PTR, HB_DYN_CTYPE_CHAR_PTR, HB_DYN_CTYPE_CHAR_PTR, HB_DYN_CTYPE_CHAR_PTR, HB_DYN_CTYPE_CHAR_PTR, HB_DYN_CTYPE_CHAR_PTR, HB_DYN_CTYPE_CHAR_PTR, HB_DYN_CTYPE_CHAR_PTR, HB_DYN_CTYPE_CHAR_PTR, HB_DYN_CTYPE_INT }, tipo, letra, nombre1, nombre2, documento_tipo, documento_numero, responsabilidad_iva, domicilio1, domicilio2, domicilio3, linea4, linea5, copias )

// Imprime una línea de venta.
// Textos: descripcion 50 bytes; extra1, extra2, extra3 22 bytes cada uno.
FUNCTION EP_ImprimirItem( descripcion, cantidad, precio, iva, impuestos_internos, extra1, extra2, extra3 )

   RETURN hb_dynCall( { "EP_ImprimirItem", Biblioteca(), hb_bitOr( HB_DYN_CALLCONV_STDCALL, HB_DYN_CTYPE_INT ), HB_DYN_CTYPE_CHAR_PTR, HB_DYN_CTYPE_DOUBLE, HB_DYN_CTYPE_DOUBLE, HB_DYN_CTYPE_DOUBLE, HB_DYN_CTYPE_DOUBLE, HB_DYN_CTYPE_CHAR_PTR, HB_DYN_CTYPE_CHAR_PTR, HB_DYN_CTYPE_CHAR_PTR }, descripcion, cantidad, precio, iva, impuestos_internos, extra1, extra2, extra3 )

// Imprime la anulación de una línea.
// Textos: descripcion 50 bytes; extra1, extra2, extra3 22 bytes cada uno.
FUNCTION EP_AnularItem( descripcion, cantidad, precio, iva, impuestos_internos, extra1, extra2, extra3 )

   RETURN hb_dynCall( { "EP_AnularItem", Biblioteca(), hb_bitOr( HB_DYN_CALLCONV_STDCALL, HB_DYN_CTYPE_INT ), HB_DYN_CTYPE_CHAR_PTR, HB_DYN_CTYPE_DOUBLE, HB_DYN_CTYPE_DOUBLE, HB_DYN_CTYPE_DOUBLE, HB_DYN_CTYPE_DOUBLE, HB_DYN_CTYPE_CHAR_PTR, HB_DYN_CTYPE_CHAR_PTR, HB_DYN_CTYPE_CHAR_PTR }, descripcion, cantidad, precio, iva, impuestos_internos, extra1, extra2, extra3 )

// Imprime un renglón de texto dentro del comprobante.
// Textos: texto 26 bytes.
FUNCTION EP_ImprimirTextoFiscal( texto )

   RETURN hb_dynCall( { "EP_ImprimirTextoFiscal", Biblioteca(), hb_bitOr( HB_DYN_CALLCONV_STDCALL, HB_DYN_CTYPE_INT ), HB_DYN_CTYPE_CHAR_PTR }, texto )

// Imprime un renglón de texto terminado en cero.
FUNCTION EP_ImprimirTextoFiscalInterna( texto )

   RETURN hb_dynCall( { "EP_ImprimirTextoFiscalInterna", Biblioteca(), hb_bitOr( HB_DYN_CALLCONV_STDCALL, HB_DYN_CTYPE_INT ), HB_DYN_CTYPE_CHAR_PTR }, texto )

// Cierra el comprobante y da su número.
// Textos: tipo 2 bytes; letra 1 byte.
// Recibe: numero, hasta 8 bytes.
FUNCTION EP_CerrarComprobanteFiscal( tipo, letra, /* @ */ numero )

   RETURN hb_dynCall( { "EP_CerrarComprobanteFiscal", Biblioteca(), hb_bitOr( HB_DYN_CALLCONV_STDCALL, HB_DYN_CTYPE_INT ), HB_DYN_CTYPE_CHAR_PTR, HB_DYN_CTYPE_CHAR_PTR, HB_DYN_CTYPE_CHAR_PTR }, tipo, letra, @numero )

// Cancela el comprobante abierto.
FUNCTION EP_Cancelar()

   RETURN hb_dynCall( { "EP_Cancelar", Biblioteca(), hb_bitOr( HB_DYN_CALLCONV_STDCALL, HB_DYN_CTYPE_INT ) } )

// ---- Totales y pagos ----

// Le descuenta un importe al comprobante.
// Textos: descripcion 80 bytes.
FUNCTION EP_DescuentoGeneral( descripcion, monto )

   RETURN hb_dynCall( { "EP_DescuentoGeneral", Biblioteca(), hb_bitOr( HB_DYN_CALLCONV_STDCALL, HB_DYN_CTYPE_INT ), HB_DYN_CTYPE_CHAR_PTR, HB_DYN_CTYPE_DOUBLE }, descripcion, monto )

// Le suma un recargo al comprobante.
// Textos: descripcion 80 bytes.
FUNCTION EP_RecargoGeneral( descripcion, monto )

   RETURN hb_dynCall( { "EP_RecargoGeneral", Biblioteca(), hb_bitOr( HB_DYN_CALLCONV_STDCALL, HB_DYN_CTYPE_INT ), HB_DYN_CTYPE_CHAR_PTR, HB_DYN_CTYPE_DOUBLE }, descripcion, monto )

// Le suma una percepción al comprobante.
// Textos: descripcion 20 bytes; calificador 1 byte.
FUNCTION EP_EspecificarPercepcionGlobal( descripcion, monto, iva, calificador )

   RETURN hb_dynCall( { "EP_EspecificarPercepcionGlobal", Biblioteca(), hb_bitOr( HB_DYN_CALLCONV_STDCALL, HB_DYN_CTYPE_INT ), HB_DYN_CTYPE_CHAR_PTR, HB_DYN_CTYPE_DOUBLE, HB_DYN_CTYPE_DOUBLE, HB_DYN_CTYPE_CHAR_PTR }, descripcion, monto, iva, calificador )

// Imprime una línea de pago.
// Textos: descripcion 80 bytes.
FUNCTION EP_ImprimirPago( descripcion, monto )

   RETURN hb_dynCall( { "EP_ImprimirPago", Biblioteca(), hb_bitOr( HB_DYN_CALLCONV_STDCALL, HB_DYN_CTYPE_INT ), HB_DYN_CTYPE_CHAR_PTR, HB_DYN_CTYPE_DOUBLE }, descripcion, monto )

// Agrega líneas hasta que el total sea el que se dice.
FUNCTION EP_AjusteRedondeo( total )

   RETURN hb_dynCall( { "EP_AjusteRedondeo", Biblioteca(), hb_bitOr( HB_DYN_CALLCONV_STDCALL, HB_DYN_CTYPE_INT ), HB_DYN_CTYPE_DOUBLE }, total )

// ---- Otros documentos ----

// Abre un documento no fiscal homologado.
// Textos: tipo 2 bytes; marca1 1 byte; linea1, linea2 40 bytes cada uno; documento_tipo 6 bytes;
// documento_numero 11 bytes; marca2 1 byte; domicilio, linea4, linea5, linea6, linea7 40 bytes cada uno.
FUNCTION EP_AbrirComprobanteNoFiscalHomologado( tipo, marca1, linea1, linea2, documento_tipo, documento_numero, marca2, domicilio, linea4, linea5, linea6, linea7, cantidad )

   RETURN hb_dynCall( { "EP_AbrirComprobanteNoFiscalHomologado", Biblioteca(), hb_bitOr( HB_DYN_CALLCONV_STDCALL, HB_DYN_CTYPE_INT ), HB_DYN_CTYPE_CHAR_PTR, HB_DYN_CTYPE_CHAR_PTR, HB_DYN_CTYPE_CHAR_PTR, HB_DYN_CTYPE_CHAR_PTR, HB_DYN_CTYPE_CHAR_PTR, HB_DYN_CTYPE_CHAR_PTR, HB_DYN_CTYPE_CHAR_PTR, HB_DYN_CTYPE_CHAR_PTR, HB_DYN_CTYPE_CHAR_PTR, HB_DYN_CTYPE_CHAR_PTR, HB_DYN_CTYPE_CHAR_PTR, HB_DYN_CTYPE_CHAR_PTR, HB_DYN_CTYPE_INT }, tipo, marca1, linea1, linea2, documento_tipo, documento_numero, marca2, domicilio, linea4, linea5, linea6, linea7, cantidad )

// Cierra el documento homologado.
// Textos: tipo 2 bytes; marca 1 byte.
FUNCTION EP_CerrarComprobanteNoFiscalHomologado( tipo, marca )

   RETURN hb_dynCall( { "EP_CerrarComprobanteNoFiscalHomologado", Biblioteca(), hb_bitOr( HB_DYN_CALLCONV_STDCALL, HB_DYN_CTYPE_INT ), HB_DYN_CTYPE_CHAR_PTR, HB_DYN_CTYPE_CHAR_PTR }, tipo, marca )

// Abre un documento no fiscal.
FUNCTION EP_AbrirComprobanteNoFiscal()

   RETURN hb_dynCall( { "EP_AbrirComprobanteNoFiscal", Biblioteca(), hb_bitOr( HB_DYN_CALLCONV_STDCALL, HB_DYN_CTYPE_INT ) } )

// Imprime un renglón en el documento no fiscal.
// Textos: texto 120 bytes.
FUNCTION EP_ImprimirTextoNoFiscal( texto )

   RETURN hb_dynCall( { "EP_ImprimirTextoNoFiscal", Biblioteca(), hb_bitOr( HB_DYN_CALLCONV_STDCALL, HB_DYN_CTYPE_INT ), HB_DYN_CTYPE_CHAR_PTR }, texto )

// Cierra el documento no fiscal.
FUNCTION EP_CerrarComprobanteNoFiscal()

   RETURN hb_dynCall( { "EP_CerrarComprobanteNoFiscal", Biblioteca(), hb_bitOr( HB_DYN_CALLCONV_STDCALL, HB_DYN_CTYPE_INT ) } )

// ---- Informes ----

// Imprime el informe X.
FUNCTION EP_ReporteX()

   RETURN hb_dynCall( { "EP_ReporteX", Biblioteca(), hb_bitOr( HB_DYN_CALLCONV_STDCALL, HB_DYN_CTYPE_INT ) } )

// Imprime el informe Z y cierra la jornada.
FUNCTION EP_ReporteZ()

   RETURN hb_dynCall( { "EP_ReporteZ", Biblioteca(), hb_bitOr( HB_DYN_CALLCONV_STDCALL, HB_DYN_CTYPE_INT ) } )

// Lista los cierres Z entre dos números.
FUNCTION EP_ReporteZporNumeros( primero, ultimo, tercero )

   RETURN hb_dynCall( { "EP_ReporteZporNumeros", Biblioteca(), hb_bitOr( HB_DYN_CALLCONV_STDCALL, HB_DYN_CTYPE_INT ), HB_DYN_CTYPE_INT, HB_DYN_CTYPE_INT, HB_DYN_CTYPE_INT }, primero, ultimo, tercero )

// Lista los cierres Z entre dos fechas.
// Textos: desde, hasta 6 bytes cada uno.
FUNCTION EP_ReporteZporFechas( desde, hasta, tercero )

   RETURN hb_dynCall( { "EP_ReporteZporFechas", Biblioteca(), hb_bitOr( HB_DYN_CALLCONV_STDCALL, HB_DYN_CTYPE_INT ), HB_DYN_CTYPE_CHAR_PTR, HB_DYN_CTYPE_CHAR_PTR, HB_DYN_CTYPE_INT }, desde, hasta, tercero )

// ---- La impresora ----

// Abre el cajón de dinero.
FUNCTION EP_AbrirCajonDeDinero( cajon )

   RETURN hb_dynCall( { "EP_AbrirCajonDeDinero", Biblioteca(), hb_bitOr( HB_DYN_CALLCONV_STDCALL, HB_DYN_CTYPE_INT ), HB_DYN_CTYPE_INT }, cajon )

// Pone en hora la impresora.
// Textos: fecha, hora 6 bytes cada uno.
FUNCTION EP_CambiarFechaHora( fecha, hora )

   RETURN hb_dynCall( { "EP_CambiarFechaHora", Biblioteca(), hb_bitOr( HB_DYN_CALLCONV_STDCALL, HB_DYN_CTYPE_INT ), HB_DYN_CTYPE_CHAR_PTR, HB_DYN_CTYPE_CHAR_PTR }, fecha, hora )

// Lee el reloj de la impresora.
// Recibe: resultado, hasta 12 bytes.
FUNCTION EP_ObtenerFechaHora( /* @ */ resultado )

   RETURN hb_dynCall( { "EP_ObtenerFechaHora", Biblioteca(), hb_bitOr( HB_DYN_CALLCONV_STDCALL, HB_DYN_CTYPE_INT ), HB_DYN_CTYPE_CHAR_PTR }, @resultado )

// Pone una línea del encabezado.
// Textos: texto 120 bytes.
FUNCTION EP_SetEncabezado( texto, linea, atributo )

   RETURN hb_dynCall( { "EP_SetEncabezado", Biblioteca(), hb_bitOr( HB_DYN_CALLCONV_STDCALL, HB_DYN_CTYPE_INT ), HB_DYN_CTYPE_CHAR_PTR, HB_DYN_CTYPE_INT, HB_DYN_CTYPE_INT }, texto, linea, atributo )

// Lee una línea del encabezado.
// Recibe: resultado, hasta 120 bytes.
FUNCTION EP_GetEncabezado( /* @ */ resultado, linea )

   RETURN hb_dynCall( { "EP_GetEncabezado", Biblioteca(), hb_bitOr( HB_DYN_CALLCONV_STDCALL, HB_DYN_CTYPE_INT ), HB_DYN_CTYPE_CHAR_PTR, HB_DYN_CTYPE_INT }, @resultado, linea )

// Corta el papel.
FUNCTION EP_CortaPapel()

   RETURN hb_dynCall( { "EP_CortaPapel", Biblioteca(), hb_bitOr( HB_DYN_CALLCONV_STDCALL, HB_DYN_CTYPE_INT ) } )

// Avanza el papel.
FUNCTION EP_AvanzaPapel( lineas )

   RETURN hb_dynCall( { "EP_AvanzaPapel", Biblioteca(), hb_bitOr( HB_DYN_CALLCONV_STDCALL, HB_DYN_CTYPE_INT ), HB_DYN_CTYPE_INT }, lineas )

// Lee los datos del modelo.
// Recibe: resultado, hasta 64 bytes.
FUNCTION EP_ValoresModelo( /* @ */ resultado )

   RETURN hb_dynCall( { "EP_ValoresModelo", Biblioteca(), hb_bitOr( HB_DYN_CALLCONV_STDCALL, HB_DYN_CTYPE_INT ), HB_DYN_CTYPE_CHAR_PTR }, @resultado )

// Lee los contadores.
// Recibe: resultado, hasta 80 bytes.
FUNCTION EP_Numeracion( /* @ */ resultado )

   RETURN hb_dynCall( { "EP_Numeracion", Biblioteca(), hb_bitOr( HB_DYN_CALLCONV_STDCALL, HB_DYN_CTYPE_INT ), HB_DYN_CTYPE_CHAR_PTR }, @resultado )

// Lee el nombre del modelo.
// Recibe: resultado, hasta 14 bytes.
FUNCTION EP_AutodetectarModelo( /* @ */ resultado )

   RETURN hb_dynCall( { "EP_AutodetectarModelo", Biblioteca(), hb_bitOr( HB_DYN_CALLCONV_STDCALL, HB_DYN_CTYPE_INT ), HB_DYN_CTYPE_CHAR_PTR }, @resultado )

// ---- Para programas viejos ----

// El último código de error: siempre 0.
FUNCTION EP_Chequear_Error()

   RETURN hb_dynCall( { "EP_Chequear_Error", Biblioteca(), hb_bitOr( HB_DYN_CALLCONV_STDCALL, HB_DYN_CTYPE_INT ) } )

// No hace nada.
FUNCTION EP_ReimprimirComprobante()

   RETURN hb_dynCall( { "EP_ReimprimirComprobante", Biblioteca(), hb_bitOr( HB_DYN_CALLCONV_STDCALL, HB_DYN_CTYPE_INT ) } )

// No hace nada.
FUNCTION EP_Configuracion( a )

   RETURN hb_dynCall( { "EP_Configuracion", Biblioteca(), hb_bitOr( HB_DYN_CALLCONV_STDCALL, HB_DYN_CTYPE_INT ), HB_DYN_CTYPE_INT }, a )

// No hace nada.
FUNCTION EP_ConsultaMemoria( a )

   RETURN hb_dynCall( { "EP_ConsultaMemoria", Biblioteca(), hb_bitOr( HB_DYN_CALLCONV_STDCALL, HB_DYN_CTYPE_INT ), HB_DYN_CTYPE_INT }, a )

// No hace nada.
FUNCTION EP_Copias( a )

   RETURN hb_dynCall( { "EP_Copias", Biblioteca(), hb_bitOr( HB_DYN_CALLCONV_STDCALL, HB_DYN_CTYPE_INT ), HB_DYN_CTYPE_INT }, a )

// No hace nada.
FUNCTION EP_ImpuestoInternoFijo( a )

   RETURN hb_dynCall( { "EP_ImpuestoInternoFijo", Biblioteca(), hb_bitOr( HB_DYN_CALLCONV_STDCALL, HB_DYN_CTYPE_INT ), HB_DYN_CTYPE_INT }, a )

// No hace nada.
FUNCTION EP_ImpuestoInternoPorMonto( a )

   RETURN hb_dynCall( { "EP_ImpuestoInternoPorMonto", Biblioteca(), hb_bitOr( HB_DYN_CALLCONV_STDCALL, HB_DYN_CTYPE_INT ), HB_DYN_CTYPE_INT }, a )

// No hace nada.
FUNCTION EP_InformacionRemito( a )

   RETURN hb_dynCall( { "EP_InformacionRemito", Biblioteca(), hb_bitOr( HB_DYN_CALLCONV_STDCALL, HB_DYN_CTYPE_INT ), HB_DYN_CTYPE_INT }, a )

// No hace nada.
FUNCTION EP_Inicializacion( a )

   RETURN hb_dynCall( { "EP_Inicializacion", Biblioteca(), hb_bitOr( HB_DYN_CALLCONV_STDCALL, HB_DYN_CTYPE_INT ), HB_DYN_CTYPE_INT }, a )

// No hace nada.
FUNCTION EP_Memoria( a )

   RETURN hb_dynCall( { "EP_Memoria", Biblioteca(), hb_bitOr( HB_DYN_CALLCONV_STDCALL, HB_DYN_CTYPE_INT ), HB_DYN_CTYPE_INT }, a )

// No hace nada.
FUNCTION EP_DescuentoUltimoItem( a, b, c )

   RETURN hb_dynCall( { "EP_DescuentoUltimoItem", Biblioteca(), hb_bitOr( HB_DYN_CALLCONV_STDCALL, HB_DYN_CTYPE_INT ), HB_DYN_CTYPE_INT, HB_DYN_CTYPE_INT, HB_DYN_CTYPE_INT }, a, b, c )

// No hace nada.
FUNCTION EP_ImprimirItemEnRemito( a, b, c )

   RETURN hb_dynCall( { "EP_ImprimirItemEnRemito", Biblioteca(), hb_bitOr( HB_DYN_CALLCONV_STDCALL, HB_DYN_CTYPE_INT ), HB_DYN_CTYPE_INT, HB_DYN_CTYPE_INT, HB_DYN_CTYPE_INT }, a, b, c )

// No hace nada.
FUNCTION EP_DatosCliente( a, b, c, d, e )

   RETURN hb_dynCall( { "EP_DatosCliente", Biblioteca(), hb_bitOr( HB_DYN_CALLCONV_STDCALL, HB_DYN_CTYPE_INT ), HB_DYN_CTYPE_INT, HB_DYN_CTYPE_INT, HB_DYN_CTYPE_INT, HB_DYN_CTYPE_INT, HB_DYN_CTYPE_INT }, a, b, c, d, e )

// ---- Qué fue de la última llamada ----

// Qué fue de la última llamada.
// Devuelve: Un número de KestraDesenlace; -1 mientras otra llamada está en curso.
FUNCTION Kestra_Desenlace()

   RETURN hb_dynCall( { "Kestra_Desenlace", Biblioteca(), hb_bitOr( HB_DYN_CALLCONV_STDCALL, HB_DYN_CTYPE_INT ) } )

// Por qué terminó así la última llamada.
// Devuelve: Un número de KestraCausa; 0 cuando no hay nada que decir; -1 mientras otra llamada está en curso.
FUNCTION Kestra_Causa()

   RETURN hb_dynCall( { "Kestra_Causa", Biblioteca(), hb_bitOr( HB_DYN_CALLCONV_STDCALL, HB_DYN_CTYPE_INT ) } )

// Por qué terminó así la última llamada, en una frase para el operador.
// Devuelve: El largo del texto entero, 0 si no hay; -1 mientras otra llamada está en curso.
FUNCTION Kestra_CausaTexto( /* @ */ texto, longitud )

   RETURN hb_dynCall( { "Kestra_CausaTexto", Biblioteca(), hb_bitOr( HB_DYN_CALLCONV_STDCALL, HB_DYN_CTYPE_INT ), HB_DYN_CTYPE_CHAR_PTR, HB_DYN_CTYPE_INT }, @texto, longitud )

// Un campo de la última respuesta.
// Devuelve: El largo del texto entero, 0 si no hay; -1 mientras otra llamada está en curso.
FUNCTION Kestra_Respuesta( numero, /* @ */ texto, longitud )

   RETURN hb_dynCall( { "Kestra_Respuesta", Biblioteca(), hb_bitOr( HB_DYN_CALLCONV_STDCALL, HB_DYN_CTYPE_INT ), HB_DYN_CTYPE_INT, HB_DYN_CTYPE_CHAR_PTR, HB_DYN_CTYPE_INT }, numero, @texto, longitud )

// Cuántas tramas mandó la última llamada.
// Devuelve: La cuenta, con repeticiones y preguntas; -1 mientras otra llamada está en curso.
FUNCTION Kestra_Intentos()

   RETURN hb_dynCall( { "Kestra_Intentos", Biblioteca(), hb_bitOr( HB_DYN_CALLCONV_STDCALL, HB_DYN_CTYPE_INT ) } )

// Le pregunta a la impresora cómo está.
// Devuelve: 0 contestó, 1 no contestó, -1 mientras otra llamada está en curso.
FUNCTION Kestra_Estado()

   RETURN hb_dynCall( { "Kestra_Estado", Biblioteca(), hb_bitOr( HB_DYN_CALLCONV_STDCALL, HB_DYN_CTYPE_INT ) } )

// Qué comprobante está abierto y en qué etapa.
// Devuelve: Un número de KestraDocumento: la clase en los ocho bits bajos y la etapa encima; -1 mientras otra
// llamada está en curso.
FUNCTION Kestra_DocumentoAbierto()

   RETURN hb_dynCall( { "Kestra_DocumentoAbierto", Biblioteca(), hb_bitOr( HB_DYN_CALLCONV_STDCALL, HB_DYN_CTYPE_INT ) } )

// Pregunta el total del comprobante abierto.
// Devuelve: El largo del texto entero, 0 si no hay; -1 mientras otra llamada está en curso.
FUNCTION Kestra_Subtotal( /* @ */ texto, longitud )

   RETURN hb_dynCall( { "Kestra_Subtotal", Biblioteca(), hb_bitOr( HB_DYN_CALLCONV_STDCALL, HB_DYN_CTYPE_INT ), HB_DYN_CTYPE_CHAR_PTR, HB_DYN_CTYPE_INT }, @texto, longitud )

// Pregunta el número del último comprobante de una clase.
// Devuelve: El largo del texto entero, 0 si no hay; -1 mientras otra llamada está en curso.
FUNCTION Kestra_Numeracion( clase, letra, /* @ */ texto, longitud )

   RETURN hb_dynCall( { "Kestra_Numeracion", Biblioteca(), hb_bitOr( HB_DYN_CALLCONV_STDCALL, HB_DYN_CTYPE_INT ), HB_DYN_CTYPE_INT, HB_DYN_CTYPE_INT, HB_DYN_CTYPE_CHAR_PTR, HB_DYN_CTYPE_INT }, clase, letra, @texto, longitud )

// Si quedó una llamada sin resolver.
// Devuelve: 1 si la hay, 0 si no; -1 mientras no se pueda leer el diario o mientras otra llamada está en curso.
FUNCTION Kestra_Pendiente( /* @ */ texto, longitud )

   RETURN hb_dynCall( { "Kestra_Pendiente", Biblioteca(), hb_bitOr( HB_DYN_CALLCONV_STDCALL, HB_DYN_CTYPE_INT ), HB_DYN_CTYPE_CHAR_PTR, HB_DYN_CTYPE_INT }, @texto, longitud )

// Averigua qué fue de la llamada pendiente.
// Devuelve: Un número de KestraDesenlace: 0 no había nada, 1 hecha, 6 no hecha, 5 se dio vuelta la hoja y falta
// el ítem, 4 no se sabe todavía; -1 mientras otra llamada está en curso.
FUNCTION Kestra_Resolver()

   RETURN hb_dynCall( { "Kestra_Resolver", Biblioteca(), hb_bitOr( HB_DYN_CALLCONV_STDCALL, HB_DYN_CTYPE_INT ) } )

// El número del comprobante que Kestra_Resolver encontró cerrado.
// Devuelve: El largo del texto entero, 0 si no hay; -1 mientras otra llamada está en curso.
FUNCTION Kestra_ResolverNumero( /* @ */ texto, longitud )

   RETURN hb_dynCall( { "Kestra_ResolverNumero", Biblioteca(), hb_bitOr( HB_DYN_CALLCONV_STDCALL, HB_DYN_CTYPE_INT ), HB_DYN_CTYPE_CHAR_PTR, HB_DYN_CTYPE_INT }, @texto, longitud )

// Deja de lado lo pendiente sin preguntar.
// Devuelve: 1 lo dejó, 0 no había nada, -1 mientras otra llamada está en curso.
FUNCTION Kestra_Olvidar()

   RETURN hb_dynCall( { "Kestra_Olvidar", Biblioteca(), hb_bitOr( HB_DYN_CALLCONV_STDCALL, HB_DYN_CTYPE_INT ) } )

// ---- El operador ----

// Hace que el programa conteste en lugar de los cuadros de la biblioteca.
// Devuelve: No devuelve nada.
FUNCTION Kestra_DefinirOperador( operador )

   RETURN hb_dynCall( { "Kestra_DefinirOperador", Biblioteca(), hb_bitOr( HB_DYN_CALLCONV_STDCALL, HB_DYN_CTYPE_VOID ), HB_DYN_CTYPE_VOID_PTR }, operador )

// ---- Textos ----

// Elige cómo se pasan los textos.
// Devuelve: El modo que regía; -1 mientras otra llamada está en curso, y entonces no cambia nada.
FUNCTION Kestra_Textos( modo )

   RETURN hb_dynCall( { "Kestra_Textos", Biblioteca(), hb_bitOr( HB_DYN_CALLCONV_STDCALL, HB_DYN_CTYPE_INT ), HB_DYN_CTYPE_INT }, modo )
