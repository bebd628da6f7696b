* Kestra 1.0.0: declaraciones para Visual FoxPro.
* Las hace api/generate a partir de api/kestra.toml: un cambio a mano se pierde.
*
* Resultado de una operación: 0 éxito, 1 fracaso; en EP_Init es al revés, 1 éxito y 0 fracaso.
* Textos: windows-1252. De cada uno se leen exactamente los bytes que se dicen, sin buscar un cero: hay que
* completarlos con blancos. Uno más corto hace leer memoria ajena. Un puntero nulo se lee como blancos.
* Búferes de resultado: reciben a lo sumo los bytes que se dicen, sin un cero detrás.
*
* Se llama una vez, al empezar: DO kestra. Las constantes: #INCLUDE kestra_constantes.h
* Un texto se pasa completado con blancos: PADR(texto, 50). Un búfer se pasa con @ y lleno de blancos:
* numero = SPACE(8), EP_CerrarComprobanteFiscal(tipo, letra, @numero). FoxPro no tiene funciones que otro pueda
* llamar: a Kestra_DefinirOperador se le pasa 0, o el registro que prepara otra biblioteca.
*
* Escritas según las reglas del lenguaje y comparadas, nombre por nombre y byte por byte, con la biblioteca;
* no se compilaron con la herramienta del lenguaje.

* ---- Principio y fin ----

* Lee Fiscal.ini y prepara el puerto.
* Devuelve: 1 lista, 0 falló. Es la única en la que 1 es éxito.
DECLARE INTEGER EP_Init IN Kestra.dll

* Suelta el puerto.
* Devuelve: No quiere decir nada.
DECLARE INTEGER EP_Kill IN Kestra.dll

* ---- Comprobantes fiscales ----

* Abre una factura, un tique o una nota.
* Textos: tipo 2 bytes; letra 1 byte; nombre1, nombre2 40 bytes cada uno; documento_tipo 6 bytes;
* documento_numero 11 bytes; responsabilidad_iva 1 byte; domicilio1, domicilio2, domicilio3, linea4, linea5 40
* bytes cada uno.
DECLARE INTEGER EP_AbrirComprobanteFiscal IN Kestra.dll STRING tipo, STRING letra, STRING nombre1, STRING nombre2, STRING documento_tipo, STRING documento_numero, STRING responsabilidad_iva, STRING domicilio1, STRING domicilio2, STRING domicilio3, STRING linea4, STRING linea5, INTEGER copias

* Imprime una línea de venta.
* Textos: descripcion 50 bytes; extra1, extra2, extra3 22 bytes cada uno.
DECLARE INTEGER EP_ImprimirItem IN Kestra.dll STRING descripcion, DOUBLE cantidad, DOUBLE precio, DOUBLE iva, DOUBLE impuestos_internos, STRING extra1, STRING extra2, STRING extra3

* Imprime la anulación de una línea.
* Textos: descripcion 50 bytes; extra1, extra2, extra3 22 bytes cada uno.
DECLARE INTEGER EP_AnularItem IN Kestra.dll STRING descripcion, DOUBLE cantidad, DOUBLE precio, DOUBLE iva, DOUBLE impuestos_internos, STRING extra1, STRING extra2, STRING extra3

* Imprime un renglón de texto dentro del comprobante.
* Textos: texto 26 bytes.
DECLARE INTEGER EP_ImprimirTextoFiscal IN Kestra.dll STRING texto

* Imprime un renglón de texto terminado en cero.
DECLARE INTEGER EP_ImprimirTextoFiscalInterna IN Kestra.dll STRING texto

* Cierra el comprobante y da su número.
* Textos: tipo 2 bytes; letra 1 byte.
* Recibe: numero, hasta 8 bytes.
DECLARE INTEGER EP_CerrarComprobanteFiscal IN Kestra.dll STRING tipo, STRING letra, STRING @numero

* Cancela el comprobante abierto.
DECLARE INTEGER EP_Cancelar IN Kestra.dll

* ---- Totales y pagos ----

* Le descuenta un importe al comprobante.
* Textos: descripcion 80 bytes.
DECLARE INTEGER EP_DescuentoGeneral IN Kestra.dll STRING descripcion, DOUBLE monto

* Le suma un recargo al comprobante.
* Textos: descripcion 80 bytes.
DECLARE INTEGER EP_RecargoGeneral IN Kestra.dll STRING descripcion, DOUBLE monto

* Le suma una percepción al comprobante.
* Textos: descripcion 20 bytes; calificador 1 byte.
DECLARE INTEGER EP_EspecificarPercepcionGlobal IN Kestra.dll STRING descripcion, DOUBLE monto, DOUBLE iva, STRING calificador

* Imprime una línea de pago.
* Textos: descripcion 80 bytes.
DECLARE INTEGER EP_ImprimirPago IN Kestra.dll STRING descripcion, DOUBLE monto

* Agrega líneas hasta que el total sea el que se dice.
DECLARE INTEGER EP_AjusteRedondeo IN Kestra.dll DOUBLE total

* ---- Otros documentos ----

* Abre un documento no fiscal homologado.
* Textos: tipo 2 bytes; marca1 1 byte; linea1, linea2 40 bytes cada uno; documento_tipo 6 bytes;
* documento_numero 11 bytes; marca2 1 byte; domicilio, linea4, linea5, linea6, linea7 40 bytes cada uno.
DECLARE INTEGER EP_AbrirComprobanteNoFiscalHomologado IN Kestra.dll STRING tipo, STRING marca1, STRING linea1, STRING linea2, STRING documento_tipo, STRING documento_numero, STRING marca2, STRING domicilio, STRING linea4, STRING linea5, STRING linea6, STRING linea7, INTEGER cantidad

* Cierra el documento homologado.
* Textos: tipo 2 bytes; marca 1 byte.
DECLARE INTEGER EP_CerrarComprobanteNoFiscalHomologado IN Kestra.dll STRING tipo, STRING marca

* Abre un documento no fiscal.
DECLARE INTEGER EP_AbrirComprobanteNoFiscal IN Kestra.dll

* Imprime un renglón en el documento no fiscal.
* Textos: texto 120 bytes.
DECLARE INTEGER EP_ImprimirTextoNoFiscal IN Kestra.dll STRING texto

* Cierra el documento no fiscal.
DECLARE INTEGER EP_CerrarComprobanteNoFiscal IN Kestra.dll

* ---- Informes ----

* Imprime el informe X.
DECLARE INTEGER EP_ReporteX IN Kestra.dll

* Imprime el informe Z y cierra la jornada.
DECLARE INTEGER EP_ReporteZ IN Kestra.dll

* Lista los cierres Z entre dos números.
DECLARE INTEGER EP_ReporteZporNumeros IN Kestra.dll INTEGER primero, INTEGER ultimo, INTEGER tercero

* Lista los cierres Z entre dos fechas.
* Textos: desde, hasta 6 bytes cada uno.
DECLARE INTEGER EP_ReporteZporFechas IN Kestra.dll STRING desde, STRING hasta, INTEGER tercero

* ---- La impresora ----

* Abre el cajón de dinero.
DECLARE INTEGER EP_AbrirCajonDeDinero IN Kestra.dll INTEGER cajon

* Pone en hora la impresora.
* Textos: fecha, hora 6 bytes cada uno.
DECLARE INTEGER EP_CambiarFechaHora IN Kestra.dll STRING fecha, STRING hora

* Lee el reloj de la impresora.
* Recibe: resultado, hasta 12 bytes.
DECLARE INTEGER EP_ObtenerFechaHora IN Kestra.dll STRING @resultado

* Pone una línea del encabezado.
* Textos: texto 120 bytes.
DECLARE INTEGER EP_SetEncabezado IN Kestra.dll STRING texto, INTEGER linea, INTEGER atributo

* Lee una línea del encabezado.
* Recibe: resultado, hasta 120 bytes.
DECLARE INTEGER EP_GetEncabezado IN Kestra.dll STRING @resultado, INTEGER linea

* Corta el papel.
DECLARE INTEGER EP_CortaPapel IN Kestra.dll

* Avanza el papel.
DECLARE INTEGER EP_AvanzaPapel IN Kestra.dll INTEGER lineas

* Lee los datos del modelo.
* Recibe: resultado, hasta 64 bytes.
DECLARE INTEGER EP_ValoresModelo IN Kestra.dll STRING @resultado

* Lee los contadores.
* Recibe: resultado, hasta 80 bytes.
DECLARE INTEGER EP_Numeracion IN Kestra.dll STRING @resultado

* Lee el nombre del modelo.
* Recibe: resultado, hasta 14 bytes.
DECLARE INTEGER EP_AutodetectarModelo IN Kestra.dll STRING @resultado

* ---- Para programas viejos ----

* El último código de error: siempre 0.
DECLARE INTEGER EP_Chequear_Error IN Kestra.dll

* No hace nada.
DECLARE INTEGER EP_ReimprimirComprobante IN Kestra.dll

* No hace nada.
DECLARE INTEGER EP_Configuracion IN Kestra.dll INTEGER a

* No hace nada.
DECLARE INTEGER EP_ConsultaMemoria IN Kestra.dll INTEGER a

* No hace nada.
DECLARE INTEGER EP_Copias IN Kestra.dll INTEGER a

* No hace nada.
DECLARE INTEGER EP_ImpuestoInternoFijo IN Kestra.dll INTEGER a

* No hace nada.
DECLARE INTEGER EP_ImpuestoInternoPorMonto IN Kestra.dll INTEGER a

* No hace nada.
DECLARE INTEGER EP_InformacionRemito IN Kestra.dll INTEGER a

* No hace nada.
DECLARE INTEGER EP_Inicializacion IN Kestra.dll INTEGER a

* No hace nada.
DECLARE INTEGER EP_Memoria IN Kestra.dll INTEGER a

* No hace nada.
DECLARE INTEGER EP_DescuentoUltimoItem IN Kestra.dll INTEGER a, INTEGER b, INTEGER c

* No hace nada.
DECLARE INTEGER EP_ImprimirItemEnRemito IN Kestra.dll INTEGER a, INTEGER b, INTEGER c

* No hace nada.
DECLARE INTEGER EP_DatosCliente IN Kestra.dll INTEGER a, INTEGER b, INTEGER c, INTEGER d, INTEGER e

* ---- Qué fue de la última llamada ----

* Qué fue de la última llamada.
* Devuelve: Un número de KestraDesenlace; -1 mientras otra llamada está en curso.
DECLARE INTEGER Kestra_Desenlace IN Kestra.dll

* Por qué terminó así la última llamada.
* Devuelve: Un número de KestraCausa; 0 cuando no hay nada que decir; -1 mientras otra llamada está en curso.
DECLARE INTEGER Kestra_Causa IN Kestra.dll

* Por qué terminó así la última llamada, en una frase para el operador.
* Devuelve: El largo del texto entero, 0 si no hay; -1 mientras otra llamada está en curso.
DECLARE INTEGER Kestra_CausaTexto IN Kestra.dll STRING @texto, INTEGER longitud

* Un campo de la última respuesta.
* Devuelve: El largo del texto entero, 0 si no hay; -1 mientras otra llamada está en curso.
DECLARE INTEGER Kestra_Respuesta IN Kestra.dll INTEGER numero, STRING @texto, INTEGER longitud

* Cuántas tramas mandó la última llamada.
* Devuelve: La cuenta, con repeticiones y preguntas; -1 mientras otra llamada está en curso.
DECLARE INTEGER Kestra_Intentos IN Kestra.dll

* Le pregunta a la impresora cómo está.
* Devuelve: 0 contestó, 1 no contestó, -1 mientras otra llamada está en curso.
DECLARE INTEGER Kestra_Estado IN Kestra.dll

* Qué comprobante está abierto y en qué etapa.
* Devuelve: Un número de KestraDocumento: la clase en los ocho bits bajos y la etapa encima; -1 mientras otra
* llamada está en curso.
DECLARE INTEGER Kestra_DocumentoAbierto IN Kestra.dll

* Pregunta el total del comprobante abierto.
* Devuelve: El largo del texto entero, 0 si no hay; -1 mientras otra llamada está en curso.
DECLARE INTEGER Kestra_Subtotal IN Kestra.dll STRING @texto, INTEGER longitud

* Pregunta el número del último comprobante de una clase.
* Devuelve: El largo del texto entero, 0 si no hay; -1 mientras otra llamada está en curso.
DECLARE INTEGER Kestra_Numeracion IN Kestra.dll INTEGER clase, INTEGER letra, STRING @texto, INTEGER longitud

* Si quedó una llamada sin resolver.
* Devuelve: 1 si la hay, 0 si no; -1 mientras no se pueda leer el diario o mientras otra llamada está en curso.
DECLARE INTEGER Kestra_Pendiente IN Kestra.dll STRING @texto, INTEGER longitud

* Averigua qué fue de la llamada pendiente.
* Devuelve: Un número de KestraDesenlace: 0 no había nada, 1 hecha, 6 no hecha, 5 se dio vuelta la hoja y falta
* el ítem, 4 no se sabe todavía; -1 mientras otra llamada está en curso.
DECLARE INTEGER Kestra_Resolver IN Kestra.dll

* El número del comprobante que Kestra_Resolver encontró cerrado.
* Devuelve: El largo del texto entero, 0 si no hay; -1 mientras otra llamada está en curso.
DECLARE INTEGER Kestra_ResolverNumero IN Kestra.dll STRING @texto, INTEGER longitud

* Deja de lado lo pendiente sin preguntar.
* Devuelve: 1 lo dejó, 0 no había nada, -1 mientras otra llamada está en curso.
DECLARE INTEGER Kestra_Olvidar IN Kestra.dll

* ---- El operador ----

* Hace que el programa conteste en lugar de los cuadros de la biblioteca.
* Devuelve: No devuelve nada.
DECLARE Kestra_DefinirOperador IN Kestra.dll INTEGER operador

* ---- Textos ----

* Elige cómo se pasan los textos.
* Devuelve: El modo que regía; -1 mientras otra llamada está en curso, y entonces no cambia nada.
DECLARE INTEGER Kestra_Textos IN Kestra.dll INTEGER modo

RETURN
