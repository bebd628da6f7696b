// Kestra 1.0.0: declaraciones para xHarbour.
// Las hace api/generate a partir de api/kestra.toml: un cambio a mano se pierde.
//
// Resultado de una operación: 0 éxito, 1 fracaso; en EP_Init es al revés, 1 éxito y 0 fracaso.
// Textos: windows-1252. De cada uno se leen exactamente los bytes que se dicen, sin buscar un cero: hay que
// completarlos con blancos. Uno más corto hace leer memoria ajena. Un puntero nulo se lee como blancos.
// Búferes de resultado: reciben a lo sumo los bytes que se dicen, sin un cero detrás.
//
// Para xHarbour en Windows de 32 bits. El de Harbour es kestra.prg.
// Un texto se pasa completado con blancos: PadR( cTexto, 50 ). Un búfer se pasa con @ y lleno de blancos:
// cNumero := Space( 8 ); EP_CerrarComprobanteFiscal( cTipo, cLetra, @cNumero ).
// A Kestra_DefinirOperador se le pasa NIL, o el registro que prepara una función en C.
//
// Escritas según las reglas del lenguaje y comparadas, nombre por nombre y byte por byte, con la biblioteca;
// no se compilaron con la herramienta del lenguaje.

#define STDCALL 32  // DC_CALL_STDCALL

STATIC s_hKestra

STATIC FUNCTION Biblioteca()

   IF s_hKestra == NIL
      s_hKestra := DllLoad( "Kestra.dll" )
   ENDIF

   RETURN s_hKestra

// DllCall() pasa un número según lo que sea en ese momento: 890 ocupa 4 bytes y 890.50, 8.
STATIC FUNCTION Doble( nImporte )

   RETURN nImporte + 0.0

STATIC FUNCTION Entero( nEntero )

   RETURN Int( nEntero )

STATIC FUNCTION Puntero( pRegistro )

   RETURN iif( pRegistro == NIL, 0, pRegistro )

// ---- Principio y fin ----

// Lee Fiscal.ini y prepara el puerto.
// Devuelve: 1 lista, 0 falló. Es la única en la que 1 es éxito.
FUNCTION EP_Init()

   RETURN DllCall( Biblioteca(), STDCALL, "EP_Init" )

// Suelta el puerto.
// Devuelve: No quiere decir nada.
FUNCTION EP_Kill()

   RETURN DllCall( Biblioteca(), STDCALL, "EP_Kill" )

// ---- Comprobantes fiscales ----

// Abre una factura, un tique o una nota.
// Textos: tipo 2 bytes; letra 1 byte; nombre1, nombre2 40 bytes cada uno; documento_tipo 6 bytes;
// documento_numero 11 bytes; responsabilidad_iva 1 byte; domicilio1, domicilio2, domicilio3, linea4, linea5 40
// bytes cada uno.
FUNCTION EP_AbrirComprobanteFiscal( tipo, letra, nombre1, nombre2, documento_tipo, documento_numero, responsabilidad_iva, domicilio1, domicilio2, domicilio3, linea4, linea5, copias )

   RETURN DllCall( Biblioteca(), STDCALL, "EP_AbrirComprobanteFiscal", tipo, letra, nombre1, nombre2, documento_tipo, documento_numero, responsabilidad_iva, domicilio1, domicilio2, domicilio3, linea4, linea5, Entero( copias ) )

// Imprime una línea de venta.
// Textos: descripcion 50 bytes; extra1, extra2, extra3 22 bytes cada uno.
FUNCTION EP_ImprimirItem( descripcion, cantidad, precio, iva, impuestos_internos, extra1, extra2, extra3 )

   RETURN DllCall( Biblioteca(), STDCALL, "EP_ImprimirItem", descripcion, Doble( cantidad ), Doble( precio ), Doble( iva ), Doble( impuestos_internos ), extra1, extra2, extra3 )

// Imprime la anulación de una línea.
// Textos: descripcion 50 bytes; extra1, extra2, extra3 22 bytes cada uno.
FUNCTION EP_AnularItem( descripcion, cantidad, precio, iva, impuestos_internos, extra1, extra2, extra3 )

   RETURN DllCall( Biblioteca(), STDCALL, "EP_AnularItem", descripcion, Doble( cantidad ), Doble( precio ), Doble( iva ), Doble( impuestos_internos ), extra1, extra2, extra3 )

// Imprime un renglón de texto dentro del comprobante.
// Textos: texto 26 bytes.
FUNCTION EP_ImprimirTextoFiscal( texto )

   RETURN DllCall( Biblioteca(), STDCALL, "EP_ImprimirTextoFiscal", texto )

// Imprime un renglón de texto terminado en cero.
FUNCTION EP_ImprimirTextoFiscalInterna( texto )

   RETURN DllCall( Biblioteca(), STDCALL, "EP_ImprimirTextoFiscalInterna", texto )

// Cierra el comprobante y da su número.
// Textos: tipo 2 bytes; letra 1 byte.
// Recibe: numero, hasta 8 bytes.
FUNCTION EP_CerrarComprobanteFiscal( tipo, letra, /* @ */ numero )

   RETURN DllCall( Biblioteca(), STDCALL, "EP_CerrarComprobanteFiscal", tipo, letra, @numero )

// Cancela el comprobante abierto.
FUNCTION EP_Cancelar()

   RETURN DllCall( Biblioteca(), STDCALL, "EP_Cancelar" )

// ---- Totales y pagos ----

// Le descuenta un importe al comprobante.
// Textos: descripcion 80 bytes.
FUNCTION EP_DescuentoGeneral( descripcion, monto )

   RETURN DllCall( Biblioteca(), STDCALL, "EP_DescuentoGeneral", descripcion, Doble( monto ) )

// Le suma un recargo al comprobante.
// Textos: descripcion 80 bytes.
FUNCTION EP_RecargoGeneral( descripcion, monto )

   RETURN DllCall( Biblioteca(), STDCALL, "EP_RecargoGeneral", descripcion, Doble( monto ) )

// Le suma una percepción al comprobante.
// Textos: descripcion 20 bytes; calificador 1 byte.
FUNCTION EP_EspecificarPercepcionGlobal( descripcion, monto, iva, calificador )

   RETURN DllCall( Biblioteca(), STDCALL, "EP_EspecificarPercepcionGlobal", descripcion, Doble( monto ), Doble( iva ), calificador )

// Imprime una línea de pago.
// Textos: descripcion 80 bytes.
FUNCTION EP_ImprimirPago( descripcion, monto )

   RETURN DllCall( Biblioteca(), STDCALL, "EP_ImprimirPago", descripcion, Doble( monto ) )

// Agrega líneas hasta que el total sea el que se dice.
FUNCTION EP_AjusteRedondeo( total )

   RETURN DllCall( Biblioteca(), STDCALL, "EP_AjusteRedondeo", Doble( total ) )

// ---- Otros documentos ----

// Abre un documento no fiscal homologado.
// Textos: tipo 2 bytes; marca1 1 byte; linea1, linea2 40 bytes cada uno; documento_tipo 6 bytes;
// documento_numero 11 bytes; marca2 1 byte; domicilio, linea4, linea5, linea6, linea7 40 bytes cada uno.
FUNCTION EP_AbrirComprobanteNoFiscalHomologado( tipo, marca1, linea1, linea2, documento_tipo, documento_numero, marca2, domicilio, linea4, linea5, linea6, linea7, cantidad )

   RETURN DllCall( Biblioteca(), STDCALL, "EP_AbrirComprobanteNoFiscalHomologado", tipo, marca1, linea1, linea2, documento_tipo, documento_numero, marca2, domicilio, linea4, linea5, linea6, linea7, Entero( cantidad ) )

// Cierra el documento homologado.
// Textos: tipo 2 bytes; marca 1 byte.
FUNCTION EP_CerrarComprobanteNoFiscalHomologado( tipo, marca )

   RETURN DllCall( Biblioteca(), STDCALL, "EP_CerrarComprobanteNoFiscalHomologado", tipo, marca )

// Abre un documento no fiscal.
FUNCTION EP_AbrirComprobanteNoFiscal()

   RETURN DllCall( Biblioteca(), STDCALL, "EP_AbrirComprobanteNoFiscal" )

// Imprime un renglón en el documento no fiscal.
// Textos: texto 120 bytes.
FUNCTION EP_ImprimirTextoNoFiscal( texto )

   RETURN DllCall( Biblioteca(), STDCALL, "EP_ImprimirTextoNoFiscal", texto )

// Cierra el documento no fiscal.
FUNCTION EP_CerrarComprobanteNoFiscal()

   RETURN DllCall( Biblioteca(), STDCALL, "EP_CerrarComprobanteNoFiscal" )

// ---- Informes ----

// Imprime el informe X.
FUNCTION EP_ReporteX()

   RETURN DllCall( Biblioteca(), STDCALL, "EP_ReporteX" )

// Imprime el informe Z y cierra la jornada.
FUNCTION EP_ReporteZ()

   RETURN DllCall( Biblioteca(), STDCALL, "EP_ReporteZ" )

// Lista los cierres Z entre dos números.
FUNCTION EP_ReporteZporNumeros( primero, ultimo, tercero )

   RETURN DllCall( Biblioteca(), STDCALL, "EP_ReporteZporNumeros", Entero( primero ), Entero( ultimo ), Entero( tercero ) )

// Lista los cierres Z entre dos fechas.
// Textos: desde, hasta 6 bytes cada uno.
FUNCTION EP_ReporteZporFechas( desde, hasta, tercero )

   RETURN DllCall( Biblioteca(), STDCALL, "EP_ReporteZporFechas", desde, hasta, Entero( tercero ) )

// ---- La impresora ----

// Abre el cajón de dinero.
FUNCTION EP_AbrirCajonDeDinero( cajon )

   RETURN DllCall( Biblioteca(), STDCALL, "EP_AbrirCajonDeDinero", Entero( cajon ) )

// Pone en hora la impresora.
// Textos: fecha, hora 6 bytes cada uno.
FUNCTION EP_CambiarFechaHora( fecha, hora )

   RETURN DllCall( Biblioteca(), STDCALL, "EP_CambiarFechaHora", fecha, hora )

// Lee el reloj de la impresora.
// Recibe: resultado, hasta 12 bytes.
FUNCTION EP_ObtenerFechaHora( /* @ */ resultado )

   RETURN DllCall( Biblioteca(), STDCALL, "EP_ObtenerFechaHora", @resultado )

// Pone una línea del encabezado.
// Textos: texto 120 bytes.
FUNCTION EP_SetEncabezado( texto, linea, atributo )

   RETURN DllCall( Biblioteca(), STDCALL, "EP_SetEncabezado", texto, Entero( linea ), Entero( atributo ) )

// Lee una línea del encabezado.
// Recibe: resultado, hasta 120 bytes.
FUNCTION EP_GetEncabezado( /* @ */ resultado, linea )

   RETURN DllCall( Biblioteca(), STDCALL, "EP_GetEncabezado", @resultado, Entero( linea ) )

// Corta el papel.
FUNCTION EP_CortaPapel()

   RETURN DllCall( Biblioteca(), STDCALL, "EP_CortaPapel" )

// Avanza el papel.
FUNCTION EP_AvanzaPapel( lineas )

   RETURN DllCall( Biblioteca(), STDCALL, "EP_AvanzaPapel", Entero( lineas ) )

// Lee los datos del modelo.
// Recibe: resultado, hasta 64 bytes.
FUNCTION EP_ValoresModelo( /* @ */ resultado )

   RETURN DllCall( Biblioteca(), STDCALL, "EP_ValoresModelo", @resultado )

// Lee los contadores.
// Recibe: resultado, hasta 80 bytes.
FUNCTION EP_Numeracion( /* @ */ resultado )

   RETURN DllCall( Biblioteca(), STDCALL, "EP_Numeracion", @resultado )

// Lee el nombre del modelo.
// Recibe: resultado, hasta 14 bytes.
FUNCTION EP_AutodetectarModelo( /* @ */ resultado )

   RETURN DllCall( Biblioteca(), STDCALL, "EP_AutodetectarModelo", @resultado )

// ---- Para programas viejos ----

// El último código de error: siempre 0.
FUNCTION EP_Chequear_Error()

   RETURN DllCall( Biblioteca(), STDCALL, "EP_Chequear_Error" )

// No hace nada.
FUNCTION EP_ReimprimirComprobante()

   RETURN DllCall( Biblioteca(), STDCALL, "EP_ReimprimirComprobante" )

// No hace nada.
FUNCTION EP_Configuracion( a )

   RETURN DllCall( Biblioteca(), STDCALL, "EP_Configuracion", Entero( a ) )

// No hace nada.
FUNCTION EP_ConsultaMemoria( a )

   RETURN DllCall( Biblioteca(), STDCALL, "EP_ConsultaMemoria", Entero( a ) )

// No hace nada.
FUNCTION EP_Copias( a )

   RETURN DllCall( Biblioteca(), STDCALL, "EP_Copias", Entero( a ) )

// No hace nada.
FUNCTION EP_ImpuestoInternoFijo( a )

   RETURN DllCall( Biblioteca(), STDCALL, "EP_ImpuestoInternoFijo", Entero( a ) )

// No hace nada.
FUNCTION EP_ImpuestoInternoPorMonto( a )

   RETURN DllCall( Biblioteca(), STDCALL, "EP_ImpuestoInternoPorMonto", Entero( a ) )

// No hace nada.
FUNCTION EP_InformacionRemito( a )

   RETURN DllCall( Biblioteca(), STDCALL, "EP_InformacionRemito", Entero( a ) )

// No hace nada.
FUNCTION EP_Inicializacion( a )

   RETURN DllCall( Biblioteca(), STDCALL, "EP_Inicializacion", Entero( a ) )

// No hace nada.
FUNCTION EP_Memoria( a )

   RETURN DllCall( Biblioteca(), STDCALL, "EP_Memoria", Entero( a ) )

// No hace nada.
FUNCTION EP_DescuentoUltimoItem( a, b, c )

   RETURN DllCall( Biblioteca(), STDCALL, "EP_DescuentoUltimoItem", Entero( a ), Entero( b ), Entero( c ) )

// No hace nada.
FUNCTION EP_ImprimirItemEnRemito( a, b, c )

   RETURN DllCall( Biblioteca(), STDCALL, "EP_ImprimirItemEnRemito", Entero( a ), Entero( b ), Entero( c ) )

// No hace nada.
FUNCTION EP_DatosCliente( a, b, c, d, e )

   RETURN DllCall( Biblioteca(), STDCALL, "EP_DatosCliente", Entero( a ), Entero( b ), Entero( c ), Entero( d ), Entero( e ) )

// ---- Qué fue de la última llamada ----

// Qué fue de la última llamada.
// Devuelve: Un número de KestraDesenlace; -1 mientras otra llamada está en curso.
FUNCTION Kestra_Desenlace()

   RETURN DllCall( Biblioteca(), STDCALL, "Kestra_Desenlace" )

// Por qué terminó así la última llamada.
// Devuelve: Un número de KestraCausa; 0 cuando no hay nada que decir; -1 mientras otra llamada está en curso.
FUNCTION Kestra_Causa()

   RETURN DllCall( Biblioteca(), STDCALL, "Kestra_Causa" )

// Por qué terminó así la última llamada, en una frase para el operador.
// Devuelve: El largo del texto entero, 0 si no hay; -1 mientras otra llamada está en curso.
FUNCTION Kestra_CausaTexto( /* @ */ texto, longitud )

   RETURN DllCall( Biblioteca(), STDCALL, "Kestra_CausaTexto", @texto, Entero( longitud ) )

// Un campo de la última respuesta.
// Devuelve: El largo del texto entero, 0 si no hay; -1 mientras otra llamada está en curso.
FUNCTION Kestra_Respuesta( numero, /* @ */ texto, longitud )

   RETURN DllCall( Biblioteca(), STDCALL, "Kestra_Respuesta", Entero( numero ), @texto, Entero( longitud ) )

// Cuántas tramas mandó la última llamada.
// Devuelve: La cuenta, con repeticiones y preguntas; -1 mientras otra llamada está en curso.
FUNCTION Kestra_Intentos()

   RETURN DllCall( Biblioteca(), STDCALL, "Kestra_Intentos" )

// Le pregunta a la impresora cómo está.
// Devuelve: 0 contestó, 1 no contestó, -1 mientras otra llamada está en curso.
FUNCTION Kestra_Estado()

   RETURN DllCall( Biblioteca(), STDCALL, "Kestra_Estado" )

// Qué comprobante está abierto y en qué etapa.
// Devuelve: Un número de KestraDocumento: la clase en los ocho bits bajos y la etapa encima; -1 mientras otra
// llamada está en curso.
FUNCTION Kestra_DocumentoAbierto()

   RETURN DllCall( Biblioteca(), STDCALL, "Kestra_DocumentoAbierto" )

// Pregunta el total del comprobante abierto.
// Devuelve: El largo del texto entero, 0 si no hay; -1 mientras otra llamada está en curso.
FUNCTION Kestra_Subtotal( /* @ */ texto, longitud )

   RETURN DllCall( Biblioteca(), STDCALL, "Kestra_Subtotal", @texto, Entero( longitud ) )

// Pregunta el número del último comprobante de una clase.
// Devuelve: El largo del texto entero, 0 si no hay; -1 mientras otra llamada está en curso.
FUNCTION Kestra_Numeracion( clase, letra, /* @ */ texto, longitud )

   RETURN DllCall( Biblioteca(), STDCALL, "Kestra_Numeracion", Entero( clase ), Entero( letra ), @texto, Entero( longitud ) )

// Si quedó una llamada sin resolver.
// Devuelve: 1 si la hay, 0 si no; -1 mientras no se pueda leer el diario o mientras otra llamada está en curso.
FUNCTION Kestra_Pendiente( /* @ */ texto, longitud )

   RETURN DllCall( Biblioteca(), STDCALL, "Kestra_Pendiente", @texto, Entero( longitud ) )

// Averigua qué fue de la llamada pendiente.
// Devuelve: Un número de KestraDesenlace: 0 no había nada, 1 hecha, 6 no hecha, 5 se dio vuelta la hoja y falta
// el ítem, 4 no se sabe todavía; -1 mientras otra llamada está en curso.
FUNCTION Kestra_Resolver()

   RETURN DllCall( Biblioteca(), STDCALL, "Kestra_Resolver" )

// El número del comprobante que Kestra_Resolver encontró cerrado.
// Devuelve: El largo del texto entero, 0 si no hay; -1 mientras otra llamada está en curso.
FUNCTION Kestra_ResolverNumero( /* @ */ texto, longitud )

   RETURN DllCall( Biblioteca(), STDCALL, "Kestra_ResolverNumero", @texto, Entero( longitud ) )

// Deja de lado lo pendiente sin preguntar.
// Devuelve: 1 lo dejó, 0 no había nada, -1 mientras otra llamada está en curso.
FUNCTION Kestra_Olvidar()

   RETURN DllCall( Biblioteca(), STDCALL, "Kestra_Olvidar" )

// ---- El operador ----

// Hace que el programa conteste en lugar de los cuadros de la biblioteca.
// Devuelve: No devuelve nada.
FUNCTION Kestra_DefinirOperador( operador )

   DllCall( Biblioteca(), STDCALL, "Kestra_DefinirOperador", Puntero( operador ) )

   RETURN NIL

// ---- Textos ----

// Elige cómo se pasan los textos.
// Devuelve: El modo que regía; -1 mientras otra llamada está en curso, y entonces no cambia nada.
FUNCTION Kestra_Textos( modo )

   RETURN DllCall( Biblioteca(), STDCALL, "Kestra_Textos", Entero( modo ) )
