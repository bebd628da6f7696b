//! Kestra 1.0.0: declaraciones para Rust.
//! Las hace api/generate a partir de api/kestra.toml: un cambio a mano se pierde.
//!
//! Resultado de una operación: 0 éxito, 1 fracaso; en EP_Init es al revés, 1 éxito y 0 fracaso.
//! Textos: windows-1252. De cada uno se leen exactamente los bytes que se dicen, sin buscar un cero: hay que
//! completarlos con blancos. Uno más corto hace leer memoria ajena. Un puntero nulo se lee como blancos.
//! Búferes de resultado: reciben a lo sumo los bytes que se dicen, sin un cero detrás.
//!
//! Un texto es el puntero a sus bytes exactos. extern "system" es stdcall en Windows de 32 bits y la del sistema en los demás.
#![allow(non_snake_case)]

use std::os::raw::c_void;

// Qué fue de una llamada.
/// no se le pidió nada a la impresora
pub const KESTRA_DESENLACE_NADA: i32 = 0;
/// la impresora lo hizo
pub const KESTRA_DESENLACE_HECHO: i32 = 1;
/// la impresora lo rechazó
pub const KESTRA_DESENLACE_RECHAZADO: i32 = 2;
/// no se mandó
pub const KESTRA_DESENLACE_NO_ENVIADO: i32 = 3;
/// se mandó, y no se sabe si se hizo: mirar el papel
pub const KESTRA_DESENLACE_DESCONOCIDO: i32 = 4;
/// se hizo una parte
pub const KESTRA_DESENLACE_EN_PARTE: i32 = 5;
/// pudo haberse mandado, y es seguro que no se hizo
pub const KESTRA_DESENLACE_NO_HECHO: i32 = 6;

// Documentos, y lo demás que la impresora numera.
/// ninguno
pub const KESTRA_DOCUMENTO_NINGUNO: i32 = 0;
/// factura o tique factura
pub const KESTRA_DOCUMENTO_FACTURA: i32 = 1;
/// tique
pub const KESTRA_DOCUMENTO_TIQUE: i32 = 2;
/// nota de débito
pub const KESTRA_DOCUMENTO_NOTA_DEBITO: i32 = 3;
/// nota de crédito
pub const KESTRA_DOCUMENTO_NOTA_CREDITO: i32 = 4;
/// remito
pub const KESTRA_DOCUMENTO_REMITO: i32 = 5;
/// vale
pub const KESTRA_DOCUMENTO_VALE: i32 = 6;
/// no fiscal
pub const KESTRA_DOCUMENTO_NO_FISCAL: i32 = 7;
/// abierto, y no por este programa
pub const KESTRA_DOCUMENTO_OTRO: i32 = 15;
/// solo para Kestra_Numeracion: cierres Z
pub const KESTRA_NUMERO_CIERRE_Z: i32 = 16;
/// solo para Kestra_Numeracion: cancelados de hoy
pub const KESTRA_NUMERO_CANCELADOS: i32 = 17;
/// solo para Kestra_Numeracion: no fiscales de hoy
pub const KESTRA_NUMERO_NO_FISCALES: i32 = 18;
/// nadie sabe si hay uno abierto: preguntar con Kestra_Estado
pub const KESTRA_DOCUMENTO_DESCONOCIDO: i32 = 255;
/// se suma a la clase: no tiene nada
pub const KESTRA_ETAPA_ABIERTO: i32 = 256;
/// se suma a la clase: tiene ítems
pub const KESTRA_ETAPA_CON_ITEMS: i32 = 512;
/// se suma a la clase: tiene pagos
pub const KESTRA_ETAPA_EN_PAGO: i32 = 768;

// Por qué terminó así una llamada.
pub const KESTRA_CAUSA_NINGUNA: i32 = 0;
/// El operador contestó que no se enviara.
pub const KESTRA_CAUSA_DECLINADA: i32 = 101;
/// Este modelo de impresora no tiene ese comprobante o esa operación.
pub const KESTRA_CAUSA_SIN_COMANDO: i32 = 102;
/// El controlador no está iniciado.
pub const KESTRA_CAUSA_SIN_INICIAR: i32 = 103;
/// Falta saber qué fue de una operación anterior y la impresora no contesta.
pub const KESTRA_CAUSA_SIN_RESOLVER: i32 = 104;
/// El total de la impresora no es la suma de lo que se le mandó.
pub const KESTRA_CAUSA_TOTAL_DISTINTO: i32 = 105;
/// Los tickets se emiten solo a consumidor final.
pub const KESTRA_CAUSA_SOLO_CONSUMIDOR_FINAL: i32 = 106;
/// Fiscal.ini tiene una clave que no se puede leer.
pub const KESTRA_CAUSA_CLAVE_ILEGIBLE: i32 = 107;
/// El controlador falló.
pub const KESTRA_CAUSA_FALLA_INTERNA: i32 = 108;
/// A la máquina le falta memoria.
pub const KESTRA_CAUSA_SIN_MEMORIA: i32 = 109;
/// El programa de ventas dejó la llamada por la mitad.
pub const KESTRA_CAUSA_ABANDONADA: i32 = 110;
/// El número de puerto no es válido (1 a 256).
pub const KESTRA_CAUSA_PUERTO_NUMERO: i32 = 201;
/// La configuración del puerto no es válida.
pub const KESTRA_CAUSA_PUERTO_CONFIGURACION: i32 = 202;
/// No existe el puerto de la impresora.
pub const KESTRA_CAUSA_PUERTO_INEXISTENTE: i32 = 203;
/// No hay un puerto serie donde dice la configuración.
pub const KESTRA_CAUSA_PUERTO_SIN_EQUIPO: i32 = 204;
/// El dispositivo de la configuración no es un puerto serie.
pub const KESTRA_CAUSA_PUERTO_NO_SERIE: i32 = 205;
/// No hay permiso para usar el puerto de la impresora.
pub const KESTRA_CAUSA_PUERTO_SIN_PERMISO: i32 = 206;
/// Otro programa está usando el puerto de la impresora.
pub const KESTRA_CAUSA_PUERTO_EN_USO: i32 = 207;
/// No se pudo abrir el puerto de la impresora.
pub const KESTRA_CAUSA_PUERTO_NO_ABRE: i32 = 208;
/// El puerto ya estaba abierto.
pub const KESTRA_CAUSA_PUERTO_YA_ABIERTO: i32 = 209;
/// El puerto no estaba abierto.
pub const KESTRA_CAUSA_PUERTO_NO_ABIERTO: i32 = 210;
/// Se perdió la conexión con la impresora.
pub const KESTRA_CAUSA_PUERTO_PERDIDO: i32 = 211;
/// El puerto no acepta datos.
pub const KESTRA_CAUSA_PUERTO_TRABADO: i32 = 212;
/// El puerto falló al leer o escribir.
pub const KESTRA_CAUSA_PUERTO_TRANSFERENCIA: i32 = 213;
/// La dirección de red no es válida (tcp:EQUIPO:PUERTO).
pub const KESTRA_CAUSA_RED_DIRECCION: i32 = 214;
/// No se conoce el equipo de la impresora en la red.
pub const KESTRA_CAUSA_RED_EQUIPO_DESCONOCIDO: i32 = 215;
/// Nadie atiende en la dirección de la impresora.
pub const KESTRA_CAUSA_RED_NADIE_ATIENDE: i32 = 216;
/// La dirección de la impresora no responde.
pub const KESTRA_CAUSA_RED_NO_RESPONDE: i32 = 217;
/// No hay camino en la red hasta la impresora.
pub const KESTRA_CAUSA_RED_SIN_CAMINO: i32 = 218;
/// La conexión se cortó sin contestar: se perdió o la usa otro programa.
pub const KESTRA_CAUSA_RED_CORTADA: i32 = 219;
/// La impresora no contestó.
pub const KESTRA_CAUSA_SILENCIO: i32 = 301;
/// La respuesta de la impresora llegó dañada.
pub const KESTRA_CAUSA_RESPUESTA_DANADA: i32 = 302;
/// La impresora contestó a otros comandos.
pub const KESTRA_CAUSA_RESPUESTAS_AJENAS: i32 = 303;
/// La impresora avisó que el comando le llegó dañado.
pub const KESTRA_CAUSA_COMANDO_DANADO: i32 = 304;
/// El comando se mandó más de una vez: puede estar repetido.
pub const KESTRA_CAUSA_REPETIDO: i32 = 305;
/// La respuesta de la impresora no trae los datos esperados.
pub const KESTRA_CAUSA_RESPUESTA_INESPERADA: i32 = 306;
/// La impresora avisa un error o una falla.
pub const KESTRA_CAUSA_FALLA_IMPRESORA: i32 = 402;
/// La impresora está fuera de línea.
pub const KESTRA_CAUSA_FUERA_DE_LINEA: i32 = 403;
/// Falta papel del diario.
pub const KESTRA_CAUSA_SIN_PAPEL_DIARIO: i32 = 404;
/// Falta papel de tickets.
pub const KESTRA_CAUSA_SIN_PAPEL_TICKETS: i32 = 405;
/// La impresora no tiene papel.
pub const KESTRA_CAUSA_SIN_PAPEL: i32 = 414;
/// Falló la comprobación de la memoria fiscal.
pub const KESTRA_CAUSA_MEMORIA_FISCAL: i32 = 500;
/// Falló la comprobación de la memoria de trabajo.
pub const KESTRA_CAUSA_MEMORIA_TRABAJO: i32 = 501;
/// La impresora tiene la batería baja.
pub const KESTRA_CAUSA_BATERIA_BAJA: i32 = 502;
/// La impresora no conoce el comando.
pub const KESTRA_CAUSA_COMANDO_DESCONOCIDO: i32 = 503;
/// La impresora no aceptó un dato del comando.
pub const KESTRA_CAUSA_CAMPO_INVALIDO: i32 = 504;
/// El comando no corresponde a lo que la impresora está haciendo.
pub const KESTRA_CAUSA_ESTADO_INVALIDO: i32 = 505;
/// La cantidad o el importe pasa lo que la impresora admite.
pub const KESTRA_CAUSA_DESBORDE: i32 = 506;
/// La memoria fiscal está llena.
pub const KESTRA_CAUSA_MEMORIA_LLENA: i32 = 507;
/// La memoria fiscal está casi llena.
pub const KESTRA_CAUSA_MEMORIA_CASI_LLENA: i32 = 508;
/// Hace falta un cierre Z: pasaron más de 24 horas.
pub const KESTRA_CAUSA_CIERRE_NECESARIO: i32 = 511;
/// Nada en la impresora muestra si esta operación se hizo.
pub const KESTRA_CAUSA_SIN_REGISTRO: i32 = 601;
/// Los registros de la impresora no coinciden con lo enviado.
pub const KESTRA_CAUSA_REGISTROS_NO_COINCIDEN: i32 = 602;
/// No se pudieron leer los registros de la impresora.
pub const KESTRA_CAUSA_REGISTROS_ILEGIBLES: i32 = 603;
/// La hoja se llenó y se hizo el transporte: falta el artículo.
pub const KESTRA_CAUSA_HOJA_CAMBIADA: i32 = 604;
/// El comprobante ya estaba cerrado: no se puede cancelar.
pub const KESTRA_CAUSA_YA_CERRADO: i32 = 605;
/// La operación pendiente se dejó de lado.
pub const KESTRA_CAUSA_OLVIDADA: i32 = 606;
/// La impresora no lleva ese número.
pub const KESTRA_CAUSA_SIN_NUMERO: i32 = 607;
/// No se puede escribir el diario.
pub const KESTRA_CAUSA_DIARIO_NO_SE_ESCRIBE: i32 = 701;
/// El diario es de otra impresora.
pub const KESTRA_CAUSA_DIARIO_AJENO: i32 = 702;
/// Otro programa tiene abierto el diario.
pub const KESTRA_CAUSA_DIARIO_EN_USO: i32 = 703;
/// El diario está dañado.
pub const KESTRA_CAUSA_DIARIO_DANADO: i32 = 704;
/// No se pudo escribir el diario y se siguió sin él.
pub const KESTRA_CAUSA_DIARIO_OMITIDO: i32 = 705;
/// No se puede escribir el registro fiscal.log.
pub const KESTRA_CAUSA_LOG_NO_SE_ESCRIBE: i32 = 801;

/// Un renglón del informe de estados.
#[repr(C)]
#[derive(Clone, Copy)]
pub struct KestraFila {
    /// 0 renglón de la impresora, 1 fiscal
    pub grupo: i32,
    /// número del renglón
    pub numero: i32,
    /// 0 información, 1 error
    pub clase: i32,
    /// 1 encendido, 0 en gris
    pub encendida: i32,
    /// el renglón
    pub texto: *const u8,
    /// la explicación
    pub ayuda: *const u8,
}

/// Lo que la biblioteca le pregunta y le dice al operador.
#[repr(C)]
#[derive(Clone, Copy)]
pub struct KestraOperador {
    /// tamaño del registro en bytes
    pub tamano: u32,
    /// vuelve en cada llamada
    pub contexto: *mut c_void,
    /// Un cuadro. estilo: 0 Aceptar, 4 Sí/No, 36 Sí/No con el signo de pregunta. Devuelve 1 Aceptar, 6 Sí, 7 No.
    pub mensaje: Option<unsafe extern "system" fn(contexto: *mut c_void, texto: *const u8, titulo: *const u8, estilo: i32) -> i32>,
    /// El informe de estados. Devuelve distinto de 0 para mandar otra vez, 0 para cerrar.
    pub informe_estados: Option<unsafe extern "system" fn(contexto: *mut c_void, impresora: *const u8, fiscal: *const u8, filas: *const KestraFila, cantidad: i32) -> i32>,
    /// La memoria fiscal está por llenarse.
    pub memoria_llena: Option<unsafe extern "system" fn(contexto: *mut c_void)>,
}

#[link(name = "kestra")]
extern "system" {
    // ---- Principio y fin ----
    /// Lee Fiscal.ini y prepara el puerto.
    /// Devuelve: 1 lista, 0 falló. Es la única en la que 1 es éxito.
    pub fn EP_Init() -> i32;
    /// Suelta el puerto.
    /// Devuelve: No quiere decir nada.
    pub fn EP_Kill() -> i32;
    // ---- Comprobantes fiscales ----
    /// Abre una factura, un tique o una nota.
    /// Textos: tipo 2 bytes; letra 1 byte; nombre1, nombre2 40 bytes cada uno; documento_tipo 6 bytes;
    /// documento_numero 11 bytes; responsabilidad_iva 1 byte; domicilio1, domicilio2, domicilio3, linea4, linea5 40
    /// bytes cada uno.
    pub fn EP_AbrirComprobanteFiscal(tipo: *const u8, letra: *const u8, nombre1: *const u8, nombre2: *const u8, documento_tipo: *const u8, documento_numero: *const u8, responsabilidad_iva: *const u8, domicilio1: *const u8, domicilio2: *const u8, domicilio3: *const u8, linea4: *const u8, linea5: *const u8, copias: i32) -> i32;
    /// Imprime una línea de venta.
    /// Textos: descripcion 50 bytes; extra1, extra2, extra3 22 bytes cada uno.
    pub fn EP_ImprimirItem(descripcion: *const u8, cantidad: f64, precio: f64, iva: f64, impuestos_internos: f64, extra1: *const u8, extra2: *const u8, extra3: *const u8) -> i32;
    /// Imprime la anulación de una línea.
    /// Textos: descripcion 50 bytes; extra1, extra2, extra3 22 bytes cada uno.
    pub fn EP_AnularItem(descripcion: *const u8, cantidad: f64, precio: f64, iva: f64, impuestos_internos: f64, extra1: *const u8, extra2: *const u8, extra3: *const u8) -> i32;
    /// Imprime un renglón de texto dentro del comprobante.
    /// Textos: texto 26 bytes.
    pub fn EP_ImprimirTextoFiscal(texto: *const u8) -> i32;
    /// Imprime un renglón de texto terminado en cero.
    pub fn EP_ImprimirTextoFiscalInterna(texto: *const u8) -> i32;
    /// Cierra el comprobante y da su número.
    /// Textos: tipo 2 bytes; letra 1 byte.
    /// Recibe: numero, hasta 8 bytes.
    pub fn EP_CerrarComprobanteFiscal(tipo: *const u8, letra: *const u8, numero: *mut u8) -> i32;
    /// Cancela el comprobante abierto.
    pub fn EP_Cancelar() -> i32;
    // ---- Totales y pagos ----
    /// Le descuenta un importe al comprobante.
    /// Textos: descripcion 80 bytes.
    pub fn EP_DescuentoGeneral(descripcion: *const u8, monto: f64) -> i32;
    /// Le suma un recargo al comprobante.
    /// Textos: descripcion 80 bytes.
    pub fn EP_RecargoGeneral(descripcion: *const u8, monto: f64) -> i32;
    /// Le suma una percepción al comprobante.
    /// Textos: descripcion 20 bytes; calificador 1 byte.
    pub fn EP_EspecificarPercepcionGlobal(descripcion: *const u8, monto: f64, iva: f64, calificador: *const u8) -> i32;
    /// Imprime una línea de pago.
    /// Textos: descripcion 80 bytes.
    pub fn EP_ImprimirPago(descripcion: *const u8, monto: f64) -> i32;
    /// Agrega líneas hasta que el total sea el que se dice.
    pub fn EP_AjusteRedondeo(total: f64) -> i32;
    // ---- Otros documentos ----
    /// Abre un documento no fiscal homologado.
    /// Textos: tipo 2 bytes; marca1 1 byte; linea1, linea2 40 bytes cada uno; documento_tipo 6 bytes;
    /// documento_numero 11 bytes; marca2 1 byte; domicilio, linea4, linea5, linea6, linea7 40 bytes cada uno.
    pub fn EP_AbrirComprobanteNoFiscalHomologado(tipo: *const u8, marca1: *const u8, linea1: *const u8, linea2: *const u8, documento_tipo: *const u8, documento_numero: *const u8, marca2: *const u8, domicilio: *const u8, linea4: *const u8, linea5: *const u8, linea6: *const u8, linea7: *const u8, cantidad: i32) -> i32;
    /// Cierra el documento homologado.
    /// Textos: tipo 2 bytes; marca 1 byte.
    pub fn EP_CerrarComprobanteNoFiscalHomologado(tipo: *const u8, marca: *const u8) -> i32;
    /// Abre un documento no fiscal.
    pub fn EP_AbrirComprobanteNoFiscal() -> i32;
    /// Imprime un renglón en el documento no fiscal.
    /// Textos: texto 120 bytes.
    pub fn EP_ImprimirTextoNoFiscal(texto: *const u8) -> i32;
    /// Cierra el documento no fiscal.
    pub fn EP_CerrarComprobanteNoFiscal() -> i32;
    // ---- Informes ----
    /// Imprime el informe X.
    pub fn EP_ReporteX() -> i32;
    /// Imprime el informe Z y cierra la jornada.
    pub fn EP_ReporteZ() -> i32;
    /// Lista los cierres Z entre dos números.
    pub fn EP_ReporteZporNumeros(primero: i32, ultimo: i32, tercero: i32) -> i32;
    /// Lista los cierres Z entre dos fechas.
    /// Textos: desde, hasta 6 bytes cada uno.
    pub fn EP_ReporteZporFechas(desde: *const u8, hasta: *const u8, tercero: i32) -> i32;
    // ---- La impresora ----
    /// Abre el cajón de dinero.
    pub fn EP_AbrirCajonDeDinero(cajon: i32) -> i32;
    /// Pone en hora la impresora.
    /// Textos: fecha, hora 6 bytes cada uno.
    pub fn EP_CambiarFechaHora(fecha: *const u8, hora: *const u8) -> i32;
    /// Lee el reloj de la impresora.
    /// Recibe: resultado, hasta 12 bytes.
    pub fn EP_ObtenerFechaHora(resultado: *mut u8) -> i32;
    /// Pone una línea del encabezado.
    /// Textos: texto 120 bytes.
    pub fn EP_SetEncabezado(texto: *const u8, linea: i32, atributo: i32) -> i32;
    /// Lee una línea del encabezado.
    /// Recibe: resultado, hasta 120 bytes.
    pub fn EP_GetEncabezado(resultado: *mut u8, linea: i32) -> i32;
    /// Corta el papel.
    pub fn EP_CortaPapel() -> i32;
    /// Avanza el papel.
    pub fn EP_AvanzaPapel(lineas: i32) -> i32;
    /// Lee los datos del modelo.
    /// Recibe: resultado, hasta 64 bytes.
    pub fn EP_ValoresModelo(resultado: *mut u8) -> i32;
    /// Lee los contadores.
    /// Recibe: resultado, hasta 80 bytes.
    pub fn EP_Numeracion(resultado: *mut u8) -> i32;
    /// Lee el nombre del modelo.
    /// Recibe: resultado, hasta 14 bytes.
    pub fn EP_AutodetectarModelo(resultado: *mut u8) -> i32;
    // ---- Para programas viejos ----
    /// El último código de error: siempre 0.
    pub fn EP_Chequear_Error() -> i32;
    /// No hace nada.
    pub fn EP_ReimprimirComprobante() -> i32;
    /// No hace nada.
    pub fn EP_Configuracion(a: i32) -> i32;
    /// No hace nada.
    pub fn EP_ConsultaMemoria(a: i32) -> i32;
    /// No hace nada.
    pub fn EP_Copias(a: i32) -> i32;
    /// No hace nada.
    pub fn EP_ImpuestoInternoFijo(a: i32) -> i32;
    /// No hace nada.
    pub fn EP_ImpuestoInternoPorMonto(a: i32) -> i32;
    /// No hace nada.
    pub fn EP_InformacionRemito(a: i32) -> i32;
    /// No hace nada.
    pub fn EP_Inicializacion(a: i32) -> i32;
    /// No hace nada.
    pub fn EP_Memoria(a: i32) -> i32;
    /// No hace nada.
    pub fn EP_DescuentoUltimoItem(a: i32, b: i32, c: i32) -> i32;
    /// No hace nada.
    pub fn EP_ImprimirItemEnRemito(a: i32, b: i32, c: i32) -> i32;
    /// No hace nada.
    pub fn EP_DatosCliente(a: i32, b: i32, c: i32, d: i32, e: i32) -> i32;
    // ---- Qué fue de la última llamada ----
    /// Qué fue de la última llamada.
    /// Devuelve: Un número de KestraDesenlace; -1 mientras otra llamada está en curso.
    pub fn Kestra_Desenlace() -> i32;
    /// Por qué terminó así la última llamada.
    /// Devuelve: Un número de KestraCausa; 0 cuando no hay nada que decir; -1 mientras otra llamada está en curso.
    pub fn Kestra_Causa() -> i32;
    /// Por qué terminó así la última llamada, en una frase para el operador.
    /// Devuelve: El largo del texto entero, 0 si no hay; -1 mientras otra llamada está en curso.
    pub fn Kestra_CausaTexto(texto: *mut u8, longitud: i32) -> i32;
    /// Un campo de la última respuesta.
    /// Devuelve: El largo del texto entero, 0 si no hay; -1 mientras otra llamada está en curso.
    pub fn Kestra_Respuesta(numero: i32, texto: *mut u8, longitud: i32) -> i32;
    /// Cuántas tramas mandó la última llamada.
    /// Devuelve: La cuenta, con repeticiones y preguntas; -1 mientras otra llamada está en curso.
    pub fn Kestra_Intentos() -> i32;
    /// Le pregunta a la impresora cómo está.
    /// Devuelve: 0 contestó, 1 no contestó, -1 mientras otra llamada está en curso.
    pub fn Kestra_Estado() -> i32;
    /// Qué comprobante está abierto y en qué etapa.
    /// Devuelve: Un número de KestraDocumento: la clase en los ocho bits bajos y la etapa encima; -1 mientras otra
    /// llamada está en curso.
    pub fn Kestra_DocumentoAbierto() -> i32;
    /// Pregunta el total del comprobante abierto.
    /// Devuelve: El largo del texto entero, 0 si no hay; -1 mientras otra llamada está en curso.
    pub fn Kestra_Subtotal(texto: *mut u8, longitud: i32) -> i32;
    /// Pregunta el número del último comprobante de una clase.
    /// Devuelve: El largo del texto entero, 0 si no hay; -1 mientras otra llamada está en curso.
    pub fn Kestra_Numeracion(clase: i32, letra: i32, texto: *mut u8, longitud: i32) -> i32;
    /// Si quedó una llamada sin resolver.
    /// Devuelve: 1 si la hay, 0 si no; -1 mientras no se pueda leer el diario o mientras otra llamada está en curso.
    pub fn Kestra_Pendiente(texto: *mut u8, longitud: i32) -> i32;
    /// Averigua qué fue de la llamada pendiente.
    /// Devuelve: Un número de KestraDesenlace: 0 no había nada, 1 hecha, 6 no hecha, 5 se dio vuelta la hoja y falta
    /// el ítem, 4 no se sabe todavía; -1 mientras otra llamada está en curso.
    pub fn Kestra_Resolver() -> i32;
    /// El número del comprobante que Kestra_Resolver encontró cerrado.
    /// Devuelve: El largo del texto entero, 0 si no hay; -1 mientras otra llamada está en curso.
    pub fn Kestra_ResolverNumero(texto: *mut u8, longitud: i32) -> i32;
    /// Deja de lado lo pendiente sin preguntar.
    /// Devuelve: 1 lo dejó, 0 no había nada, -1 mientras otra llamada está en curso.
    pub fn Kestra_Olvidar() -> i32;
    // ---- El operador ----
    /// Hace que el programa conteste en lugar de los cuadros de la biblioteca.
    /// Devuelve: No devuelve nada.
    pub fn Kestra_DefinirOperador(operador: *const KestraOperador);
    // ---- Textos ----
    /// Elige cómo se pasan los textos.
    /// Devuelve: El modo que regía; -1 mientras otra llamada está en curso, y entonces no cambia nada.
    pub fn Kestra_Textos(modo: i32) -> i32;
}
