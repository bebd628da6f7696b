-- Kestra 1.0.0: declaraciones para LuaJIT.
-- Las hace api/generate a partir de api/kestra.toml: un cambio a mano se pierde.
--
-- Resultado de una operación: 0 éxito, 1 fracaso; en EP_Init es al revés, 1 éxito y 0 fracaso.
-- Textos: windows-1252. De cada uno se leen exactamente los bytes que se dicen, sin buscar un cero: hay que
-- completarlos con blancos. Uno más corto hace leer memoria ajena. Un puntero nulo se lee como blancos.
-- Búferes de resultado: reciben a lo sumo los bytes que se dicen, sin un cero detrás.
--
-- local k = require("declaraciones"); local kestra = k.cargar(); kestra.EP_Init()
-- Un texto es una cadena de Lua completada con blancos; un búfer, ffi.new("char[?]", 9). Las constantes: k.KESTRA_...
-- En un registro se nombran los campos: un nil entre los valores hace perder los que le siguen.
local ffi = require("ffi")

ffi.cdef[[

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
  int32_t (__stdcall *mensaje)(void* contexto, const char* texto, const char* titulo, int32_t estilo); /* Un cuadro. estilo: 0 Aceptar, 4 Sí/No, 36 Sí/No con el signo de pregunta. Devuelve 1 Aceptar, 6 Sí, 7 No. */
  int32_t (__stdcall *informe_estados)(void* contexto, const char* impresora, const char* fiscal, const KestraFila* filas, int32_t cantidad); /* El informe de estados. Devuelve distinto de 0 para mandar otra vez, 0 para cerrar. */
  void (__stdcall *memoria_llena)(void* contexto); /* La memoria fiscal está por llenarse. */
} KestraOperador;

/* ---- Principio y fin ---- */

/* Lee Fiscal.ini y prepara el puerto.
   Devuelve: 1 lista, 0 falló. Es la única en la que 1 es éxito. */
int32_t __stdcall EP_Init(void);

/* Suelta el puerto.
   Devuelve: No quiere decir nada. */
int32_t __stdcall EP_Kill(void);

/* ---- Comprobantes fiscales ---- */

/* Abre una factura, un tique o una nota.
   Textos: tipo 2 bytes; letra 1 byte; nombre1, nombre2 40 bytes cada uno; documento_tipo 6 bytes;
   documento_numero 11 bytes; responsabilidad_iva 1 byte; domicilio1, domicilio2, domicilio3, linea4, linea5 40
   bytes cada uno. */
int32_t __stdcall EP_AbrirComprobanteFiscal(const char* tipo, const char* letra, const char* nombre1, const char* nombre2, const char* documento_tipo, const char* documento_numero, const char* responsabilidad_iva, const char* domicilio1, const char* domicilio2, const char* domicilio3, const char* linea4, const char* linea5, int32_t copias);

/* Imprime una línea de venta.
   Textos: descripcion 50 bytes; extra1, extra2, extra3 22 bytes cada uno. */
int32_t __stdcall EP_ImprimirItem(const char* descripcion, double cantidad, double precio, double iva, double impuestos_internos, const char* extra1, const char* extra2, const char* extra3);

/* Imprime la anulación de una línea.
   Textos: descripcion 50 bytes; extra1, extra2, extra3 22 bytes cada uno. */
int32_t __stdcall EP_AnularItem(const char* descripcion, double cantidad, double precio, double iva, double impuestos_internos, const char* extra1, const char* extra2, const char* extra3);

/* Imprime un renglón de texto dentro del comprobante.
   Textos: texto 26 bytes. */
int32_t __stdcall EP_ImprimirTextoFiscal(const char* texto);

/* Imprime un renglón de texto terminado en cero. */
int32_t __stdcall EP_ImprimirTextoFiscalInterna(const char* texto);

/* Cierra el comprobante y da su número.
   Textos: tipo 2 bytes; letra 1 byte.
   Recibe: numero, hasta 8 bytes. */
int32_t __stdcall EP_CerrarComprobanteFiscal(const char* tipo, const char* letra, char* numero);

/* Cancela el comprobante abierto. */
int32_t __stdcall EP_Cancelar(void);

/* ---- Totales y pagos ---- */

/* Le descuenta un importe al comprobante.
   Textos: descripcion 80 bytes. */
int32_t __stdcall EP_DescuentoGeneral(const char* descripcion, double monto);

/* Le suma un recargo al comprobante.
   Textos: descripcion 80 bytes. */
int32_t __stdcall EP_RecargoGeneral(const char* descripcion, double monto);

/* Le suma una percepción al comprobante.
   Textos: descripcion 20 bytes; calificador 1 byte. */
int32_t __stdcall EP_EspecificarPercepcionGlobal(const char* descripcion, double monto, double iva, const char* calificador);

/* Imprime una línea de pago.
   Textos: descripcion 80 bytes. */
int32_t __stdcall EP_ImprimirPago(const char* descripcion, double monto);

/* Agrega líneas hasta que el total sea el que se dice. */
int32_t __stdcall EP_AjusteRedondeo(double total);

/* ---- Otros documentos ---- */

/* Abre un documento no fiscal homologado.
   Textos: tipo 2 bytes; marca1 1 byte; linea1, linea2 40 bytes cada uno; documento_tipo 6 bytes;
   documento_numero 11 bytes; marca2 1 byte; domicilio, linea4, linea5, linea6, linea7 40 bytes cada uno. */
int32_t __stdcall EP_AbrirComprobanteNoFiscalHomologado(const char* tipo, const char* marca1, const char* linea1, const char* linea2, const char* documento_tipo, const char* documento_numero, const char* marca2, const char* domicilio, const char* linea4, const char* linea5, const char* linea6, const char* linea7, int32_t cantidad);

/* Cierra el documento homologado.
   Textos: tipo 2 bytes; marca 1 byte. */
int32_t __stdcall EP_CerrarComprobanteNoFiscalHomologado(const char* tipo, const char* marca);

/* Abre un documento no fiscal. */
int32_t __stdcall EP_AbrirComprobanteNoFiscal(void);

/* Imprime un renglón en el documento no fiscal.
   Textos: texto 120 bytes. */
int32_t __stdcall EP_ImprimirTextoNoFiscal(const char* texto);

/* Cierra el documento no fiscal. */
int32_t __stdcall EP_CerrarComprobanteNoFiscal(void);

/* ---- Informes ---- */

/* Imprime el informe X. */
int32_t __stdcall EP_ReporteX(void);

/* Imprime el informe Z y cierra la jornada. */
int32_t __stdcall EP_ReporteZ(void);

/* Lista los cierres Z entre dos números. */
int32_t __stdcall EP_ReporteZporNumeros(int32_t primero, int32_t ultimo, int32_t tercero);

/* Lista los cierres Z entre dos fechas.
   Textos: desde, hasta 6 bytes cada uno. */
int32_t __stdcall EP_ReporteZporFechas(const char* desde, const char* hasta, int32_t tercero);

/* ---- La impresora ---- */

/* Abre el cajón de dinero. */
int32_t __stdcall EP_AbrirCajonDeDinero(int32_t cajon);

/* Pone en hora la impresora.
   Textos: fecha, hora 6 bytes cada uno. */
int32_t __stdcall EP_CambiarFechaHora(const char* fecha, const char* hora);

/* Lee el reloj de la impresora.
   Recibe: resultado, hasta 12 bytes. */
int32_t __stdcall EP_ObtenerFechaHora(char* resultado);

/* Pone una línea del encabezado.
   Textos: texto 120 bytes. */
int32_t __stdcall EP_SetEncabezado(const char* texto, int32_t linea, int32_t atributo);

/* Lee una línea del encabezado.
   Recibe: resultado, hasta 120 bytes. */
int32_t __stdcall EP_GetEncabezado(char* resultado, int32_t linea);

/* Corta el papel. */
int32_t __stdcall EP_CortaPapel(void);

/* Avanza el papel. */
int32_t __stdcall EP_AvanzaPapel(int32_t lineas);

/* Lee los datos del modelo.
   Recibe: resultado, hasta 64 bytes. */
int32_t __stdcall EP_ValoresModelo(char* resultado);

/* Lee los contadores.
   Recibe: resultado, hasta 80 bytes. */
int32_t __stdcall EP_Numeracion(char* resultado);

/* Lee el nombre del modelo.
   Recibe: resultado, hasta 14 bytes. */
int32_t __stdcall EP_AutodetectarModelo(char* resultado);

/* ---- Para programas viejos ---- */

/* El último código de error: siempre 0. */
int32_t __stdcall EP_Chequear_Error(void);

/* No hace nada. */
int32_t __stdcall EP_ReimprimirComprobante(void);

/* No hace nada. */
int32_t __stdcall EP_Configuracion(int32_t a);

/* No hace nada. */
int32_t __stdcall EP_ConsultaMemoria(int32_t a);

/* No hace nada. */
int32_t __stdcall EP_Copias(int32_t a);

/* No hace nada. */
int32_t __stdcall EP_ImpuestoInternoFijo(int32_t a);

/* No hace nada. */
int32_t __stdcall EP_ImpuestoInternoPorMonto(int32_t a);

/* No hace nada. */
int32_t __stdcall EP_InformacionRemito(int32_t a);

/* No hace nada. */
int32_t __stdcall EP_Inicializacion(int32_t a);

/* No hace nada. */
int32_t __stdcall EP_Memoria(int32_t a);

/* No hace nada. */
int32_t __stdcall EP_DescuentoUltimoItem(int32_t a, int32_t b, int32_t c);

/* No hace nada. */
int32_t __stdcall EP_ImprimirItemEnRemito(int32_t a, int32_t b, int32_t c);

/* No hace nada. */
int32_t __stdcall EP_DatosCliente(int32_t a, int32_t b, int32_t c, int32_t d, int32_t e);

/* ---- Qué fue de la última llamada ---- */

/* Qué fue de la última llamada.
   Devuelve: Un número de KestraDesenlace; -1 mientras otra llamada está en curso. */
int32_t __stdcall Kestra_Desenlace(void);

/* Por qué terminó así la última llamada.
   Devuelve: Un número de KestraCausa; 0 cuando no hay nada que decir; -1 mientras otra llamada está en curso. */
int32_t __stdcall Kestra_Causa(void);

/* Por qué terminó así la última llamada, en una frase para el operador.
   Devuelve: El largo del texto entero, 0 si no hay; -1 mientras otra llamada está en curso. */
int32_t __stdcall Kestra_CausaTexto(char* texto, int32_t longitud);

/* Un campo de la última respuesta.
   Devuelve: El largo del texto entero, 0 si no hay; -1 mientras otra llamada está en curso. */
int32_t __stdcall Kestra_Respuesta(int32_t numero, char* texto, int32_t longitud);

/* Cuántas tramas mandó la última llamada.
   Devuelve: La cuenta, con repeticiones y preguntas; -1 mientras otra llamada está en curso. */
int32_t __stdcall Kestra_Intentos(void);

/* Le pregunta a la impresora cómo está.
   Devuelve: 0 contestó, 1 no contestó, -1 mientras otra llamada está en curso. */
int32_t __stdcall Kestra_Estado(void);

/* Qué comprobante está abierto y en qué etapa.
   Devuelve: Un número de KestraDocumento: la clase en los ocho bits bajos y la etapa encima; -1 mientras otra
   llamada está en curso. */
int32_t __stdcall Kestra_DocumentoAbierto(void);

/* Pregunta el total del comprobante abierto.
   Devuelve: El largo del texto entero, 0 si no hay; -1 mientras otra llamada está en curso. */
int32_t __stdcall Kestra_Subtotal(char* texto, int32_t longitud);

/* Pregunta el número del último comprobante de una clase.
   Devuelve: El largo del texto entero, 0 si no hay; -1 mientras otra llamada está en curso. */
int32_t __stdcall Kestra_Numeracion(int32_t clase, int32_t letra, char* texto, int32_t longitud);

/* Si quedó una llamada sin resolver.
   Devuelve: 1 si la hay, 0 si no; -1 mientras no se pueda leer el diario o mientras otra llamada está en curso. */
int32_t __stdcall Kestra_Pendiente(char* texto, int32_t longitud);

/* Averigua qué fue de la llamada pendiente.
   Devuelve: Un número de KestraDesenlace: 0 no había nada, 1 hecha, 6 no hecha, 5 se dio vuelta la hoja y falta
   el ítem, 4 no se sabe todavía; -1 mientras otra llamada está en curso. */
int32_t __stdcall Kestra_Resolver(void);

/* El número del comprobante que Kestra_Resolver encontró cerrado.
   Devuelve: El largo del texto entero, 0 si no hay; -1 mientras otra llamada está en curso. */
int32_t __stdcall Kestra_ResolverNumero(char* texto, int32_t longitud);

/* Deja de lado lo pendiente sin preguntar.
   Devuelve: 1 lo dejó, 0 no había nada, -1 mientras otra llamada está en curso. */
int32_t __stdcall Kestra_Olvidar(void);

/* ---- El operador ---- */

/* Hace que el programa conteste en lugar de los cuadros de la biblioteca.
   Devuelve: No devuelve nada. */
void __stdcall Kestra_DefinirOperador(const KestraOperador* operador);

/* ---- Textos ---- */

/* Elige cómo se pasan los textos.
   Devuelve: El modo que regía; -1 mientras otra llamada está en curso, y entonces no cambia nada. */
int32_t __stdcall Kestra_Textos(int32_t modo);
]]

local k = {}

-- Qué fue de una llamada.
k.KESTRA_DESENLACE_NADA = 0 -- no se le pidió nada a la impresora
k.KESTRA_DESENLACE_HECHO = 1 -- la impresora lo hizo
k.KESTRA_DESENLACE_RECHAZADO = 2 -- la impresora lo rechazó
k.KESTRA_DESENLACE_NO_ENVIADO = 3 -- no se mandó
k.KESTRA_DESENLACE_DESCONOCIDO = 4 -- se mandó, y no se sabe si se hizo: mirar el papel
k.KESTRA_DESENLACE_EN_PARTE = 5 -- se hizo una parte
k.KESTRA_DESENLACE_NO_HECHO = 6 -- pudo haberse mandado, y es seguro que no se hizo

-- Documentos, y lo demás que la impresora numera.
k.KESTRA_DOCUMENTO_NINGUNO = 0 -- ninguno
k.KESTRA_DOCUMENTO_FACTURA = 1 -- factura o tique factura
k.KESTRA_DOCUMENTO_TIQUE = 2 -- tique
k.KESTRA_DOCUMENTO_NOTA_DEBITO = 3 -- nota de débito
k.KESTRA_DOCUMENTO_NOTA_CREDITO = 4 -- nota de crédito
k.KESTRA_DOCUMENTO_REMITO = 5 -- remito
k.KESTRA_DOCUMENTO_VALE = 6 -- vale
k.KESTRA_DOCUMENTO_NO_FISCAL = 7 -- no fiscal
k.KESTRA_DOCUMENTO_OTRO = 15 -- abierto, y no por este programa
k.KESTRA_NUMERO_CIERRE_Z = 16 -- solo para Kestra_Numeracion: cierres Z
k.KESTRA_NUMERO_CANCELADOS = 17 -- solo para Kestra_Numeracion: cancelados de hoy
k.KESTRA_NUMERO_NO_FISCALES = 18 -- solo para Kestra_Numeracion: no fiscales de hoy
k.KESTRA_DOCUMENTO_DESCONOCIDO = 255 -- nadie sabe si hay uno abierto: preguntar con Kestra_Estado
k.KESTRA_ETAPA_ABIERTO = 256 -- se suma a la clase: no tiene nada
k.KESTRA_ETAPA_CON_ITEMS = 512 -- se suma a la clase: tiene ítems
k.KESTRA_ETAPA_EN_PAGO = 768 -- se suma a la clase: tiene pagos

-- Por qué terminó así una llamada.
k.KESTRA_CAUSA_NINGUNA = 0
k.KESTRA_CAUSA_DECLINADA = 101 -- El operador contestó que no se enviara.
k.KESTRA_CAUSA_SIN_COMANDO = 102 -- Este modelo de impresora no tiene ese comprobante o esa operación.
k.KESTRA_CAUSA_SIN_INICIAR = 103 -- El controlador no está iniciado.
k.KESTRA_CAUSA_SIN_RESOLVER = 104 -- Falta saber qué fue de una operación anterior y la impresora no contesta.
k.KESTRA_CAUSA_TOTAL_DISTINTO = 105 -- El total de la impresora no es la suma de lo que se le mandó.
k.KESTRA_CAUSA_SOLO_CONSUMIDOR_FINAL = 106 -- Los tickets se emiten solo a consumidor final.
k.KESTRA_CAUSA_CLAVE_ILEGIBLE = 107 -- Fiscal.ini tiene una clave que no se puede leer.
k.KESTRA_CAUSA_FALLA_INTERNA = 108 -- El controlador falló.
k.KESTRA_CAUSA_SIN_MEMORIA = 109 -- A la máquina le falta memoria.
k.KESTRA_CAUSA_ABANDONADA = 110 -- El programa de ventas dejó la llamada por la mitad.
k.KESTRA_CAUSA_PUERTO_NUMERO = 201 -- El número de puerto no es válido (1 a 256).
k.KESTRA_CAUSA_PUERTO_CONFIGURACION = 202 -- La configuración del puerto no es válida.
k.KESTRA_CAUSA_PUERTO_INEXISTENTE = 203 -- No existe el puerto de la impresora.
k.KESTRA_CAUSA_PUERTO_SIN_EQUIPO = 204 -- No hay un puerto serie donde dice la configuración.
k.KESTRA_CAUSA_PUERTO_NO_SERIE = 205 -- El dispositivo de la configuración no es un puerto serie.
k.KESTRA_CAUSA_PUERTO_SIN_PERMISO = 206 -- No hay permiso para usar el puerto de la impresora.
k.KESTRA_CAUSA_PUERTO_EN_USO = 207 -- Otro programa está usando el puerto de la impresora.
k.KESTRA_CAUSA_PUERTO_NO_ABRE = 208 -- No se pudo abrir el puerto de la impresora.
k.KESTRA_CAUSA_PUERTO_YA_ABIERTO = 209 -- El puerto ya estaba abierto.
k.KESTRA_CAUSA_PUERTO_NO_ABIERTO = 210 -- El puerto no estaba abierto.
k.KESTRA_CAUSA_PUERTO_PERDIDO = 211 -- Se perdió la conexión con la impresora.
k.KESTRA_CAUSA_PUERTO_TRABADO = 212 -- El puerto no acepta datos.
k.KESTRA_CAUSA_PUERTO_TRANSFERENCIA = 213 -- El puerto falló al leer o escribir.
k.KESTRA_CAUSA_RED_DIRECCION = 214 -- La dirección de red no es válida (tcp:EQUIPO:PUERTO).
k.KESTRA_CAUSA_RED_EQUIPO_DESCONOCIDO = 215 -- No se conoce el equipo de la impresora en la red.
k.KESTRA_CAUSA_RED_NADIE_ATIENDE = 216 -- Nadie atiende en la dirección de la impresora.
k.KESTRA_CAUSA_RED_NO_RESPONDE = 217 -- La dirección de la impresora no responde.
k.KESTRA_CAUSA_RED_SIN_CAMINO = 218 -- No hay camino en la red hasta la impresora.
k.KESTRA_CAUSA_RED_CORTADA = 219 -- La conexión se cortó sin contestar: se perdió o la usa otro programa.
k.KESTRA_CAUSA_SILENCIO = 301 -- La impresora no contestó.
k.KESTRA_CAUSA_RESPUESTA_DANADA = 302 -- La respuesta de la impresora llegó dañada.
k.KESTRA_CAUSA_RESPUESTAS_AJENAS = 303 -- La impresora contestó a otros comandos.
k.KESTRA_CAUSA_COMANDO_DANADO = 304 -- La impresora avisó que el comando le llegó dañado.
k.KESTRA_CAUSA_REPETIDO = 305 -- El comando se mandó más de una vez: puede estar repetido.
k.KESTRA_CAUSA_RESPUESTA_INESPERADA = 306 -- La respuesta de la impresora no trae los datos esperados.
k.KESTRA_CAUSA_FALLA_IMPRESORA = 402 -- La impresora avisa un error o una falla.
k.KESTRA_CAUSA_FUERA_DE_LINEA = 403 -- La impresora está fuera de línea.
k.KESTRA_CAUSA_SIN_PAPEL_DIARIO = 404 -- Falta papel del diario.
k.KESTRA_CAUSA_SIN_PAPEL_TICKETS = 405 -- Falta papel de tickets.
k.KESTRA_CAUSA_SIN_PAPEL = 414 -- La impresora no tiene papel.
k.KESTRA_CAUSA_MEMORIA_FISCAL = 500 -- Falló la comprobación de la memoria fiscal.
k.KESTRA_CAUSA_MEMORIA_TRABAJO = 501 -- Falló la comprobación de la memoria de trabajo.
k.KESTRA_CAUSA_BATERIA_BAJA = 502 -- La impresora tiene la batería baja.
k.KESTRA_CAUSA_COMANDO_DESCONOCIDO = 503 -- La impresora no conoce el comando.
k.KESTRA_CAUSA_CAMPO_INVALIDO = 504 -- La impresora no aceptó un dato del comando.
k.KESTRA_CAUSA_ESTADO_INVALIDO = 505 -- El comando no corresponde a lo que la impresora está haciendo.
k.KESTRA_CAUSA_DESBORDE = 506 -- La cantidad o el importe pasa lo que la impresora admite.
k.KESTRA_CAUSA_MEMORIA_LLENA = 507 -- La memoria fiscal está llena.
k.KESTRA_CAUSA_MEMORIA_CASI_LLENA = 508 -- La memoria fiscal está casi llena.
k.KESTRA_CAUSA_CIERRE_NECESARIO = 511 -- Hace falta un cierre Z: pasaron más de 24 horas.
k.KESTRA_CAUSA_SIN_REGISTRO = 601 -- Nada en la impresora muestra si esta operación se hizo.
k.KESTRA_CAUSA_REGISTROS_NO_COINCIDEN = 602 -- Los registros de la impresora no coinciden con lo enviado.
k.KESTRA_CAUSA_REGISTROS_ILEGIBLES = 603 -- No se pudieron leer los registros de la impresora.
k.KESTRA_CAUSA_HOJA_CAMBIADA = 604 -- La hoja se llenó y se hizo el transporte: falta el artículo.
k.KESTRA_CAUSA_YA_CERRADO = 605 -- El comprobante ya estaba cerrado: no se puede cancelar.
k.KESTRA_CAUSA_OLVIDADA = 606 -- La operación pendiente se dejó de lado.
k.KESTRA_CAUSA_SIN_NUMERO = 607 -- La impresora no lleva ese número.
k.KESTRA_CAUSA_DIARIO_NO_SE_ESCRIBE = 701 -- No se puede escribir el diario.
k.KESTRA_CAUSA_DIARIO_AJENO = 702 -- El diario es de otra impresora.
k.KESTRA_CAUSA_DIARIO_EN_USO = 703 -- Otro programa tiene abierto el diario.
k.KESTRA_CAUSA_DIARIO_DANADO = 704 -- El diario está dañado.
k.KESTRA_CAUSA_DIARIO_OMITIDO = 705 -- No se pudo escribir el diario y se siguió sin él.
k.KESTRA_CAUSA_LOG_NO_SE_ESCRIBE = 801 -- No se puede escribir el registro fiscal.log.

function k.cargar(ruta)
  return ffi.load(ruta or (ffi.os == "Windows" and "Kestra.dll" or "kestra"))
end

-- De cada función, sus argumentos: nombre, tipo, bytes (los que se leen, o se escriben a lo sumo).
k.FUNCIONES = {
  {"EP_Init", {}},
  {"EP_Kill", {}},
  {"EP_AbrirComprobanteFiscal", {{"tipo", "texto", 2}, {"letra", "texto", 1}, {"nombre1", "texto", 40}, {"nombre2", "texto", 40}, {"documento_tipo", "texto", 6}, {"documento_numero", "texto", 11}, {"responsabilidad_iva", "texto", 1}, {"domicilio1", "texto", 40}, {"domicilio2", "texto", 40}, {"domicilio3", "texto", 40}, {"linea4", "texto", 40}, {"linea5", "texto", 40}, {"copias", "entero", 0}}},
  {"EP_ImprimirItem", {{"descripcion", "texto", 50}, {"cantidad", "doble", 0}, {"precio", "doble", 0}, {"iva", "doble", 0}, {"impuestos_internos", "doble", 0}, {"extra1", "texto", 22}, {"extra2", "texto", 22}, {"extra3", "texto", 22}}},
  {"EP_AnularItem", {{"descripcion", "texto", 50}, {"cantidad", "doble", 0}, {"precio", "doble", 0}, {"iva", "doble", 0}, {"impuestos_internos", "doble", 0}, {"extra1", "texto", 22}, {"extra2", "texto", 22}, {"extra3", "texto", 22}}},
  {"EP_ImprimirTextoFiscal", {{"texto", "texto", 26}}},
  {"EP_ImprimirTextoFiscalInterna", {{"texto", "texto", 0}}},
  {"EP_CerrarComprobanteFiscal", {{"tipo", "texto", 2}, {"letra", "texto", 1}, {"numero", "bufer", 8}}},
  {"EP_Cancelar", {}},
  {"EP_DescuentoGeneral", {{"descripcion", "texto", 80}, {"monto", "doble", 0}}},
  {"EP_RecargoGeneral", {{"descripcion", "texto", 80}, {"monto", "doble", 0}}},
  {"EP_EspecificarPercepcionGlobal", {{"descripcion", "texto", 20}, {"monto", "doble", 0}, {"iva", "doble", 0}, {"calificador", "texto", 1}}},
  {"EP_ImprimirPago", {{"descripcion", "texto", 80}, {"monto", "doble", 0}}},
  {"EP_AjusteRedondeo", {{"total", "doble", 0}}},
  {"EP_AbrirComprobanteNoFiscalHomologado", {{"tipo", "texto", 2}, {"marca1", "texto", 1}, {"linea1", "texto", 40}, {"linea2", "texto", 40}, {"documento_tipo", "texto", 6}, {"documento_numero", "texto", 11}, {"marca2", "texto", 1}, {"domicilio", "texto", 40}, {"linea4", "texto", 40}, {"linea5", "texto", 40}, {"linea6", "texto", 40}, {"linea7", "texto", 40}, {"cantidad", "entero", 0}}},
  {"EP_CerrarComprobanteNoFiscalHomologado", {{"tipo", "texto", 2}, {"marca", "texto", 1}}},
  {"EP_AbrirComprobanteNoFiscal", {}},
  {"EP_ImprimirTextoNoFiscal", {{"texto", "texto", 120}}},
  {"EP_CerrarComprobanteNoFiscal", {}},
  {"EP_ReporteX", {}},
  {"EP_ReporteZ", {}},
  {"EP_ReporteZporNumeros", {{"primero", "entero", 0}, {"ultimo", "entero", 0}, {"tercero", "entero", 0}}},
  {"EP_ReporteZporFechas", {{"desde", "texto", 6}, {"hasta", "texto", 6}, {"tercero", "entero", 0}}},
  {"EP_AbrirCajonDeDinero", {{"cajon", "entero", 0}}},
  {"EP_CambiarFechaHora", {{"fecha", "texto", 6}, {"hora", "texto", 6}}},
  {"EP_ObtenerFechaHora", {{"resultado", "bufer", 12}}},
  {"EP_SetEncabezado", {{"texto", "texto", 120}, {"linea", "entero", 0}, {"atributo", "entero", 0}}},
  {"EP_GetEncabezado", {{"resultado", "bufer", 120}, {"linea", "entero", 0}}},
  {"EP_CortaPapel", {}},
  {"EP_AvanzaPapel", {{"lineas", "entero", 0}}},
  {"EP_ValoresModelo", {{"resultado", "bufer", 64}}},
  {"EP_Numeracion", {{"resultado", "bufer", 80}}},
  {"EP_AutodetectarModelo", {{"resultado", "bufer", 14}}},
  {"EP_Chequear_Error", {}},
  {"EP_ReimprimirComprobante", {}},
  {"EP_Configuracion", {{"a", "entero", 0}}},
  {"EP_ConsultaMemoria", {{"a", "entero", 0}}},
  {"EP_Copias", {{"a", "entero", 0}}},
  {"EP_ImpuestoInternoFijo", {{"a", "entero", 0}}},
  {"EP_ImpuestoInternoPorMonto", {{"a", "entero", 0}}},
  {"EP_InformacionRemito", {{"a", "entero", 0}}},
  {"EP_Inicializacion", {{"a", "entero", 0}}},
  {"EP_Memoria", {{"a", "entero", 0}}},
  {"EP_DescuentoUltimoItem", {{"a", "entero", 0}, {"b", "entero", 0}, {"c", "entero", 0}}},
  {"EP_ImprimirItemEnRemito", {{"a", "entero", 0}, {"b", "entero", 0}, {"c", "entero", 0}}},
  {"EP_DatosCliente", {{"a", "entero", 0}, {"b", "entero", 0}, {"c", "entero", 0}, {"d", "entero", 0}, {"e", "entero", 0}}},
  {"Kestra_Desenlace", {}},
  {"Kestra_Causa", {}},
  {"Kestra_CausaTexto", {{"texto", "bufer", 0}, {"longitud", "largo", 0}}},
  {"Kestra_Respuesta", {{"numero", "entero", 0}, {"texto", "bufer", 0}, {"longitud", "largo", 0}}},
  {"Kestra_Intentos", {}},
  {"Kestra_Estado", {}},
  {"Kestra_DocumentoAbierto", {}},
  {"Kestra_Subtotal", {{"texto", "bufer", 0}, {"longitud", "largo", 0}}},
  {"Kestra_Numeracion", {{"clase", "entero", 0}, {"letra", "entero", 0}, {"texto", "bufer", 0}, {"longitud", "largo", 0}}},
  {"Kestra_Pendiente", {{"texto", "bufer", 0}, {"longitud", "largo", 0}}},
  {"Kestra_Resolver", {}},
  {"Kestra_ResolverNumero", {{"texto", "bufer", 0}, {"longitud", "largo", 0}}},
  {"Kestra_Olvidar", {}},
  {"Kestra_DefinirOperador", {{"operador", "operador", 0}}},
  {"Kestra_Textos", {{"modo", "entero", 0}}},
}

return k
