/*
 * Kestra 1.0.0: declaraciones para PHP (FFI).
 * Las hace api/generate a partir de api/kestra.toml: un cambio a mano se pierde.
 *
 * Resultado de una operación: 0 éxito, 1 fracaso; en EP_Init es al revés, 1 éxito y 0 fracaso.
 * Textos: windows-1252. De cada uno se leen exactamente los bytes que se dicen, sin buscar un cero: hay que
 * completarlos con blancos. Uno más corto hace leer memoria ajena. Un puntero nulo se lee como blancos.
 * Búferes de resultado: reciben a lo sumo los bytes que se dicen, sin un cero detrás.
 *
 * Se usa con FFI::cdef(file_get_contents("declaraciones.h"), "libkestra.so"), o "Kestra.dll" en un PHP de 64 bits.
 * Un texto es una cadena de PHP completada con blancos: str_pad(substr($texto, 0, 50), 50).
 * Un búfer es FFI::new("char[9]").
 */

/* Un renglón del informe de estados. */
typedef struct KestraFila {
  int32_t grupo; /* 0 renglón de la impresora, 1 fiscal */
  int32_t numero; /* número del renglón */
  int32_t clase; /* 0 información, 1 error */
  int32_t encendida; /* 1 encendido, 0 en gris */
  const char* texto; /* el renglón */
  const char* ayuda; /* la explicación */
} KestraFila;

/* Lo que la biblioteca le pregunta y le dice al operador. */
typedef struct KestraOperador {
  uint32_t tamano; /* tamaño del registro en bytes */
  void* contexto; /* vuelve en cada llamada */
  int32_t (*mensaje)(void* contexto, const char* texto, const char* titulo, int32_t estilo); /* Un cuadro. estilo: 0 Aceptar, 4 Sí/No, 36 Sí/No con el signo de pregunta. Devuelve 1 Aceptar, 6 Sí, 7 No. */
  int32_t (*informe_estados)(void* contexto, const char* impresora, const char* fiscal, const KestraFila* filas, int32_t cantidad); /* El informe de estados. Devuelve distinto de 0 para mandar otra vez, 0 para cerrar. */
  void (*memoria_llena)(void* contexto); /* La memoria fiscal está por llenarse. */
} KestraOperador;

/* ---- Principio y fin ---- */

/* Lee Fiscal.ini y prepara el puerto.
   Devuelve: 1 lista, 0 falló. Es la única en la que 1 es éxito. */
int32_t EP_Init(void);

/* Suelta el puerto.
   Devuelve: No quiere decir nada. */
int32_t EP_Kill(void);

/* ---- Comprobantes fiscales ---- */

/* Abre una factura, un tique o una nota.
   Textos: tipo 2 bytes; letra 1 byte; nombre1, nombre2 40 bytes cada uno; documento_tipo 6 bytes;
   documento_numero 11 bytes; responsabilidad_iva 1 byte; domicilio1, domicilio2, domicilio3, linea4, linea5 40
   bytes cada uno. */
int32_t EP_AbrirComprobanteFiscal(const char* tipo, const char* letra, const char* nombre1, const char* nombre2, const char* documento_tipo, const char* documento_numero, const char* responsabilidad_iva, const char* domicilio1, const char* domicilio2, const char* domicilio3, const char* linea4, const char* linea5, int32_t copias);

/* Imprime una línea de venta.
   Textos: descripcion 50 bytes; extra1, extra2, extra3 22 bytes cada uno. */
int32_t EP_ImprimirItem(const char* descripcion, double cantidad, double precio, double iva, double impuestos_internos, const char* extra1, const char* extra2, const char* extra3);

/* Imprime la anulación de una línea.
   Textos: descripcion 50 bytes; extra1, extra2, extra3 22 bytes cada uno. */
int32_t EP_AnularItem(const char* descripcion, double cantidad, double precio, double iva, double impuestos_internos, const char* extra1, const char* extra2, const char* extra3);

/* Imprime un renglón de texto dentro del comprobante.
   Textos: texto 26 bytes. */
int32_t EP_ImprimirTextoFiscal(const char* texto);

/* Imprime un renglón de texto terminado en cero. */
int32_t EP_ImprimirTextoFiscalInterna(const char* texto);

/* Cierra el comprobante y da su número.
   Textos: tipo 2 bytes; letra 1 byte.
   Recibe: numero, hasta 8 bytes. */
int32_t EP_CerrarComprobanteFiscal(const char* tipo, const char* letra, char* numero);

/* Cancela el comprobante abierto. */
int32_t EP_Cancelar(void);

/* ---- Totales y pagos ---- */

/* Le descuenta un importe al comprobante.
   Textos: descripcion 80 bytes. */
int32_t EP_DescuentoGeneral(const char* descripcion, double monto);

/* Le suma un recargo al comprobante.
   Textos: descripcion 80 bytes. */
int32_t EP_RecargoGeneral(const char* descripcion, double monto);

/* Le suma una percepción al comprobante.
   Textos: descripcion 20 bytes; calificador 1 byte. */
int32_t EP_EspecificarPercepcionGlobal(const char* descripcion, double monto, double iva, const char* calificador);

/* Imprime una línea de pago.
   Textos: descripcion 80 bytes. */
int32_t EP_ImprimirPago(const char* descripcion, double monto);

/* Agrega líneas hasta que el total sea el que se dice. */
int32_t EP_AjusteRedondeo(double total);

/* ---- Otros documentos ---- */

/* Abre un documento no fiscal homologado.
   Textos: tipo 2 bytes; marca1 1 byte; linea1, linea2 40 bytes cada uno; documento_tipo 6 bytes;
   documento_numero 11 bytes; marca2 1 byte; domicilio, linea4, linea5, linea6, linea7 40 bytes cada uno. */
int32_t EP_AbrirComprobanteNoFiscalHomologado(const char* tipo, const char* marca1, const char* linea1, const char* linea2, const char* documento_tipo, const char* documento_numero, const char* marca2, const char* domicilio, const char* linea4, const char* linea5, const char* linea6, const char* linea7, int32_t cantidad);

/* Cierra el documento homologado.
   Textos: tipo 2 bytes; marca 1 byte. */
int32_t EP_CerrarComprobanteNoFiscalHomologado(const char* tipo, const char* marca);

/* Abre un documento no fiscal. */
int32_t EP_AbrirComprobanteNoFiscal(void);

/* Imprime un renglón en el documento no fiscal.
   Textos: texto 120 bytes. */
int32_t EP_ImprimirTextoNoFiscal(const char* texto);

/* Cierra el documento no fiscal. */
int32_t EP_CerrarComprobanteNoFiscal(void);

/* ---- Informes ---- */

/* Imprime el informe X. */
int32_t EP_ReporteX(void);

/* Imprime el informe Z y cierra la jornada. */
int32_t EP_ReporteZ(void);

/* Lista los cierres Z entre dos números. */
int32_t EP_ReporteZporNumeros(int32_t primero, int32_t ultimo, int32_t tercero);

/* Lista los cierres Z entre dos fechas.
   Textos: desde, hasta 6 bytes cada uno. */
int32_t EP_ReporteZporFechas(const char* desde, const char* hasta, int32_t tercero);

/* ---- La impresora ---- */

/* Abre el cajón de dinero. */
int32_t EP_AbrirCajonDeDinero(int32_t cajon);

/* Pone en hora la impresora.
   Textos: fecha, hora 6 bytes cada uno. */
int32_t EP_CambiarFechaHora(const char* fecha, const char* hora);

/* Lee el reloj de la impresora.
   Recibe: resultado, hasta 12 bytes. */
int32_t EP_ObtenerFechaHora(char* resultado);

/* Pone una línea del encabezado.
   Textos: texto 120 bytes. */
int32_t EP_SetEncabezado(const char* texto, int32_t linea, int32_t atributo);

/* Lee una línea del encabezado.
   Recibe: resultado, hasta 120 bytes. */
int32_t EP_GetEncabezado(char* resultado, int32_t linea);

/* Corta el papel. */
int32_t EP_CortaPapel(void);

/* Avanza el papel. */
int32_t EP_AvanzaPapel(int32_t lineas);

/* Lee los datos del modelo.
   Recibe: resultado, hasta 64 bytes. */
int32_t EP_ValoresModelo(char* resultado);

/* Lee los contadores.
   Recibe: resultado, hasta 80 bytes. */
int32_t EP_Numeracion(char* resultado);

/* Lee el nombre del modelo.
   Recibe: resultado, hasta 14 bytes. */
int32_t EP_AutodetectarModelo(char* resultado);

/* ---- Para programas viejos ---- */

/* El último código de error: siempre 0. */
int32_t EP_Chequear_Error(void);

/* No hace nada. */
int32_t EP_ReimprimirComprobante(void);

/* No hace nada. */
int32_t EP_Configuracion(int32_t a);

/* No hace nada. */
int32_t EP_ConsultaMemoria(int32_t a);

/* No hace nada. */
int32_t EP_Copias(int32_t a);

/* No hace nada. */
int32_t EP_ImpuestoInternoFijo(int32_t a);

/* No hace nada. */
int32_t EP_ImpuestoInternoPorMonto(int32_t a);

/* No hace nada. */
int32_t EP_InformacionRemito(int32_t a);

/* No hace nada. */
int32_t EP_Inicializacion(int32_t a);

/* No hace nada. */
int32_t EP_Memoria(int32_t a);

/* No hace nada. */
int32_t EP_DescuentoUltimoItem(int32_t a, int32_t b, int32_t c);

/* No hace nada. */
int32_t EP_ImprimirItemEnRemito(int32_t a, int32_t b, int32_t c);

/* No hace nada. */
int32_t EP_DatosCliente(int32_t a, int32_t b, int32_t c, int32_t d, int32_t e);

/* ---- Qué fue de la última llamada ---- */

/* Qué fue de la última llamada.
   Devuelve: Un número de KestraDesenlace; -1 mientras otra llamada está en curso. */
int32_t Kestra_Desenlace(void);

/* Por qué terminó así la última llamada.
   Devuelve: Un número de KestraCausa; 0 cuando no hay nada que decir; -1 mientras otra llamada está en curso. */
int32_t Kestra_Causa(void);

/* Por qué terminó así la última llamada, en una frase para el operador.
   Devuelve: El largo del texto entero, 0 si no hay; -1 mientras otra llamada está en curso. */
int32_t Kestra_CausaTexto(char* texto, int32_t longitud);

/* Un campo de la última respuesta.
   Devuelve: El largo del texto entero, 0 si no hay; -1 mientras otra llamada está en curso. */
int32_t Kestra_Respuesta(int32_t numero, char* texto, int32_t longitud);

/* Cuántas tramas mandó la última llamada.
   Devuelve: La cuenta, con repeticiones y preguntas; -1 mientras otra llamada está en curso. */
int32_t Kestra_Intentos(void);

/* Le pregunta a la impresora cómo está.
   Devuelve: 0 contestó, 1 no contestó, -1 mientras otra llamada está en curso. */
int32_t Kestra_Estado(void);

/* Qué comprobante está abierto y en qué etapa.
   Devuelve: Un número de KestraDocumento: la clase en los ocho bits bajos y la etapa encima; -1 mientras otra
   llamada está en curso. */
int32_t Kestra_DocumentoAbierto(void);

/* Pregunta el total del comprobante abierto.
   Devuelve: El largo del texto entero, 0 si no hay; -1 mientras otra llamada está en curso. */
int32_t Kestra_Subtotal(char* texto, int32_t longitud);

/* Pregunta el número del último comprobante de una clase.
   Devuelve: El largo del texto entero, 0 si no hay; -1 mientras otra llamada está en curso. */
int32_t Kestra_Numeracion(int32_t clase, int32_t letra, char* texto, int32_t longitud);

/* Si quedó una llamada sin resolver.
   Devuelve: 1 si la hay, 0 si no; -1 mientras no se pueda leer el diario o mientras otra llamada está en curso. */
int32_t Kestra_Pendiente(char* texto, int32_t longitud);

/* Averigua qué fue de la llamada pendiente.
   Devuelve: Un número de KestraDesenlace: 0 no había nada, 1 hecha, 6 no hecha, 5 se dio vuelta la hoja y falta
   el ítem, 4 no se sabe todavía; -1 mientras otra llamada está en curso. */
int32_t Kestra_Resolver(void);

/* El número del comprobante que Kestra_Resolver encontró cerrado.
   Devuelve: El largo del texto entero, 0 si no hay; -1 mientras otra llamada está en curso. */
int32_t Kestra_ResolverNumero(char* texto, int32_t longitud);

/* Deja de lado lo pendiente sin preguntar.
   Devuelve: 1 lo dejó, 0 no había nada, -1 mientras otra llamada está en curso. */
int32_t Kestra_Olvidar(void);

/* ---- El operador ---- */

/* Hace que el programa conteste en lugar de los cuadros de la biblioteca.
   Devuelve: No devuelve nada. */
void Kestra_DefinirOperador(const KestraOperador* operador);

/* ---- Textos ---- */

/* Elige cómo se pasan los textos.
   Devuelve: El modo que regía; -1 mientras otra llamada está en curso, y entonces no cambia nada. */
int32_t Kestra_Textos(int32_t modo);
